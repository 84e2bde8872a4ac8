#pragma once

#include "simulator/status/Misbehaviour.h"
#include "simulator/status/SimulatedConnection.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace portico::simulator {

/// A connection to an instrument, as the servers of protocols have it that mark where messages end. It has no thread
/// and no clock of its own; whoever owns it says what time it is.
class IMessageConnection {
public:
  enum class State : std::uint8_t {
    Opening, ///< it is not known yet whether there will be one
    Open,
    Lost, ///< or there was none to be had
  };

  /// An answer, or the part of it that has come since the last one.
  struct Piece {
    std::string Bytes; ///< never empty; the last ones of an answer are its line feed
    bool End = false;  ///< the answer ends here
  };

  virtual ~IMessageConnection() = default;

  virtual State Standing() const { return State::Open; }

  /// Takes bytes of program messages. A line feed outside definite-length blocks ends a message, and so does End().
  virtual void Write(std::string_view bytes, TimePoint now) = 0;
  /// The message that was written ends here, with or without a line feed.
  virtual void End(TimePoint now) = 0;
  /// Whether up to 64 KiB more can be written without loss. If not, NextEvent() tells when to ask again.
  virtual bool HasRoom() = 0;
  /// The next piece that is ready at `now`.
  virtual std::optional<Piece> ReadPiece(TimePoint now) = 0;
  /// When something is next due though the client does nothing: there may be a piece then, or another State.
  virtual std::optional<TimePoint> NextEvent() const = 0;

  /// Device clear: what was written and not carried out is dropped, and so is what was not read.
  virtual void Clear(TimePoint now) = 0;
  /// The client has sent the next message before it took the answer, which is dropped.
  virtual void Interrupt(TimePoint now) = 0;

  /// Whether the instrument asks for the end of the connection once the answers so far are read.
  virtual bool CloseRequested() const = 0;
  /// Whether something that was written is still to be carried out, or an answer to be read.
  virtual bool Busy() const = 0;
  /// Whether an answer waits to be read.
  virtual bool MessageAvailable() const = 0;
  /// The status byte, of a protocol that knows best whether a message is available.
  virtual std::uint8_t SerialPoll(bool messageAvailable, TimePoint now) = 0;

  // What the instrument may like to know: the client has the whole of an answer; it does not know where answers and
  // messages stand; it has waited for an answer to nothing.

  virtual void AnswerTaken() = 0;
  virtual void ReportInterrupted() = 0;
  virtual void ReportUnterminated() = 0;
};

/// What such servers connect to.
class IMessageInstrument {
public:
  virtual ~IMessageInstrument() = default;

  /// A null pointer if there is no room for another one. The instrument must outlive it.
  virtual std::unique_ptr<IMessageConnection> Connect() = 0;
  /// How it misbehaves.
  virtual Misbehaviour& Faults() = 0;
};

} // namespace portico::simulator
