#pragma once

#include "drivers/SteadyClock.h"
#include "drivers/session/InstrumentSession.h"
#include "system/Cancellation.h"
#include "tap/IBridgedClient.h"
#include "tap/LocalWire.h"
#include "tap/MessageSplitter.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace portico::tap {

/// Puts one client before an instrument of another kind: a line feed outside blocks ends a message, and so does the
/// client's mark; a question mark outside strings and blocks asks for an answer, and each answer ends with a line feed.
/// Whatever is said to the instrument blocks.
class InstrumentBridge {
public:
  using TransportMaker = std::function<std::unique_ptr<drivers::ITransport>(
      const drivers::ResourceName& name, drivers::IClock& clock, const system::Cancellation* cancellation)>;
  using Teller = std::function<void(const std::string&)>;

  /// `marks`: whether the client's protocol marks the ends of messages, so that at the other end of the wire there is a
  /// RelayedConnection; without, there is a stream of bytes. `timeout` is for each thing that is said to the
  /// instrument; `tell` gets each diagnostic.
  InstrumentBridge(const drivers::ResourceName& name, const TransportMaker& make, drivers::Marks marks,
                   std::chrono::milliseconds timeout, Teller tell);

  /// Opens the instrument and converses until either side ends it. The end of the wire tells the client.
  void Converse(LocalWire wire);
  /// Ends it, from any thread.
  void Cancel() noexcept { m_cancellation.Request(); }

private:
  std::unique_ptr<IBridgedClient> ClientAt(LocalWire wire) const;
  // False if the conversation cannot go on.
  bool Say(const Message& message, IBridgedClient& client);
  bool Fetch(IBridgedClient& client);
  bool Clear();
  bool Fail(const drivers::DriverResult& failure) const;

  const std::string m_name;
  const drivers::Marks m_marks;
  const Teller m_tell;
  system::Cancellation m_cancellation;
  drivers::SteadyClock m_clock;
  drivers::InstrumentSession m_session;
};

} // namespace portico::tap
