#pragma once

#include "simulator/FileDescriptor.h"
#include "simulator/Instrument.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace portico::simulator {

/// One client of the server, with an instrument of its own.
///
/// No more is read from a client that does not take its answers, so that neither side's memory grows without bound.
class ClientConnection {
public:
  /// `socket` is connected and does not block.
  ClientConnection(FileDescriptor socket, std::unique_ptr<Instrument> instrument);

  int Descriptor() const { return socket_.Get(); }
  bool WantsInput() const { return !inputEnded_ && output_.empty() && instrument_->AcceptsInput(); }
  bool WantsOutput() const { return !output_.empty(); }
  /// When Exchange() is next due though nothing arrives.
  std::optional<TimePoint> NextEvent() const;
  /// Whether the connection is to be closed.
  bool Finished() const { return finished_; }

  /// Takes what has arrived, if `readable`, and sends what is ready, as far as the client takes it.
  void Exchange(bool readable, TimePoint now);
  /// The connection broke.
  void Abandon() { finished_ = true; }

private:
  void Receive(TimePoint now);
  void Send(TimePoint now);
  void Collect(TimePoint now);

  FileDescriptor socket_;
  std::unique_ptr<Instrument> instrument_;
  std::string output_;
  std::size_t sent_ = 0; ///< of output_
  bool inputEnded_ = false;
  bool finished_ = false;
};

} // namespace portico::simulator
