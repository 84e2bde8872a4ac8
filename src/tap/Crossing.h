#pragma once

#include "server/IServedConnection.h"
#include "tap/Recorder.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace portico::tap {

/// What crosses between one connection of a client and one to the instrument, in both directions and independently of
/// each other: no I/O, no thread and no clock. Each side is told as if the other were connected to it: that it has
/// ended, once all is there that it had sent.
///
/// The ends of its two connections own it together, so that it goes with the last of them.
class Crossing : public std::enable_shared_from_this<Crossing> {
public:
  explicit Crossing(Recorder& recorder) : m_recorder(recorder) {}
  virtual ~Crossing() = default;
  Crossing(const Crossing&) = delete;
  Crossing& operator=(const Crossing&) = delete;

  /// The end to be served to the client, and that to be served to the instrument, once each.
  std::unique_ptr<server::IServedConnection> ClientEnd();
  std::unique_ptr<server::IServedConnection> InstrumentEnd();

  /// Whether one of the sides has ended what it has to say.
  bool Ending() const;
  /// Both connections are to end once what has come over the other one is sent.
  virtual void GiveWay();

protected:
  /// What one side has sent. What goes on to the other is appended to its output.
  virtual void FromClient(std::string_view bytes) = 0;
  virtual void FromInstrument(std::string_view bytes) = 0;

  std::string& ToClient() { return m_client.Output; }
  std::string& ToInstrument() { return m_instrument.Output; }
  /// The client's connection ends once it has taken what there is.
  void DismissClient() { m_client.Dismissed = true; }
  Recorder& Record() { return m_recorder; }

private:
  class End;

  /// One of the two.
  struct Side {
    std::string Output;     ///< to be sent to it
    bool Exists = false;    ///< its connection was made
    bool Ended = false;     ///< it sends nothing more
    bool Gone = false;      ///< its connection is over
    bool Dismissed = false; ///< its connection is to end
  };

  Recorder& m_recorder;
  Side m_client;
  Side m_instrument;
};

} // namespace portico::tap
