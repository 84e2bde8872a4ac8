#pragma once

#include "drivers/SteadyClock.h"
#include "drivers/session/InstrumentSession.h"
#include "system/Cancellation.h"
#include "tap/LocalWire.h"
#include "tap/MessageSplitter.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace portico::tap {

/// Makes an instrument of any kind one behind a raw socket, for one client: a line feed outside blocks ends a message,
/// a question mark outside strings and blocks asks for an answer, and each answer ends with a line feed. Whatever is
/// said to the instrument blocks.
class InstrumentBridge {
public:
  using TransportMaker = std::function<std::unique_ptr<drivers::ITransport>(
      const drivers::ResourceName& name, drivers::IClock& clock, const system::Cancellation* cancellation)>;
  using Teller = std::function<void(const std::string&)>;

  /// `timeout` is for each thing that is said to the instrument; `tell` gets each diagnostic.
  InstrumentBridge(const drivers::ResourceName& name, const TransportMaker& make, std::chrono::milliseconds timeout,
                   Teller tell);

  /// Opens the instrument and converses until either side ends it. The end of the wire tells the client.
  void Converse(LocalWire wire);
  /// Ends it, from any thread.
  void Cancel() noexcept { m_cancellation.Request(); }

private:
  // False if the conversation cannot go on.
  bool Say(const Message& message, LocalWire& wire);
  bool Fetch(LocalWire& wire);
  bool Fail(const drivers::DriverResult& failure) const;

  const std::string m_name;
  const Teller m_tell;
  system::Cancellation m_cancellation;
  drivers::SteadyClock m_clock;
  drivers::InstrumentSession m_session;
};

} // namespace portico::tap
