#pragma once

#include "drivers/ITransport.h"
#include "drivers/ReceiveBuffer.h"
#include "drivers/ResourceName.h"
#include "drivers/session/SessionAttributes.h"
#include "drivers/session/UnfinishedAnswer.h"
#include "platform/IDriverObserver.h"
#include "platform/IExtendedDriver.h"
#include "system/Cancellation.h"

#include <chrono>
#include <memory>
#include <span>
#include <string>

namespace portico::drivers {

/// What every session of a driver shares.
struct SessionOptions {
  /// Must outlive the sessions.
  IClock& Clock;
  /// For each call as a whole: opening, writing, or reading one message. Each attempt to clear the instrument takes as
  /// long once more.
  std::chrono::milliseconds Timeout = std::chrono::milliseconds(UsualTimeout);
  /// Null, or must outlive the sessions.
  IDriverObserver* Observer = nullptr;
  /// Null, or must outlive the sessions.
  const system::Cancellation* Cancellation = nullptr;
};

/// One open instrument, over any transport.
///
/// After a read that timed out it is out of step: the answer may still be on its way. The next read goes on waiting for
/// it. The next write first sees to it that no late answer is taken for that of the next query: by the transport's way
/// to clear the instrument, or by a fresh connection. After any other failure the session drops the connection at once
/// and makes a fresh one before the next write; a read until then fails at once, with the reason why there is none.
/// Such a fresh connection is cleared as well, before it gets a command.
class InstrumentSession {
public:
  InstrumentSession(const ResourceName& name, std::unique_ptr<ITransport> transport, const SessionOptions& options);

  DriverResult Open();

  /// Gives local control back, as far as that is possible, and drops the connection.
  void Close() noexcept;

  /// Sends the text and a line feed, which most instruments on a bare socket wait for.
  DriverResult Write(const std::string& text);

  /// Fills `buffer` with one message and a zero byte, without the message's terminator. `count` includes the zero
  /// byte. Of a message that does not fit, the excess is consumed and lost, and `count` is the buffer's size. On
  /// failure `count` is 0 and the bytes that the call had written are zero again; what came before a time-out is kept
  /// for the next read, as far as it fitted.
  DriverResult Read(std::span<char> buffer, std::int32_t& count);

  /// Hands one message to `sink` in pieces, each within the time-out. One that breaks off once it has begun, or that
  /// the sink gives up, is dropped at once. An answer that a Read() has waited for in vain is not for this.
  DriverResult ReadInPieces(const AnswerSink& sink);

  /// Clears the instrument, or gives the connection up and makes a fresh one.
  DriverResult Clear();

  /// Gives the instrument's front panel back. Makes a connection if there is none.
  DriverResult GoToLocal();

  /// For the calls that follow.
  void SetTimeout(std::chrono::milliseconds timeout) { m_options.Timeout = timeout; }

  SessionAttributes& Attributes() { return m_attributes; }

  /// The last failure that was remembered; a success before there is any.
  const DriverResult& LastFailure() const { return m_lastFailure; }
  void RememberFailure(const DriverResult& failure) { m_lastFailure = failure; }

private:
  /// Opens the transport, unless the program is to end.
  DriverResult Connect(TimePoint deadline);
  /// Sees to it that nothing that was asked is answered any more; without a way to, gives the connection up.
  void GetInStep(TimePoint& deadline);
  /// Sees to it that there is a connection.
  DriverResult Connected(TimePoint& deadline) {
    return m_connection.Succeeded() ? Restore(deadline) : Reconnect(deadline);
  }
  /// Makes a connection that the instrument has ended anew. What came of it stays to be read.
  DriverResult Restore(TimePoint deadline);
  /// Makes a connection where there is none, and clears the instrument.
  DriverResult Reconnect(TimePoint& deadline);
  /// Clears the instrument, and puts the deadline off.
  bool ClearTransport(TimePoint& deadline);
  /// Gives the connection up for this reason.
  void Drop(DriverResult reason);
  /// Drops all that has come.
  void Forget();
  MessageReader Reader() const;
  /// A whole answer has been read.
  void NoteComplete(bool terminated);
  /// Drops the rest of an answer, on its way as it is.
  void DropRest();
  /// Waits for the next bytes; `anew` if the answer that was being read begins again with them.
  DriverResult Fill(TimePoint deadline, bool& anew);
  template <typename News>
  void Tell(News news) const;
  bool Cancelled() const { return system::Requested(m_options.Cancellation); }
  TimePoint Deadline() const { return m_options.Clock.Now() + m_options.Timeout; }

  const std::string m_name;
  const std::unique_ptr<ITransport> m_transport;
  SessionOptions m_options;
  SessionAttributes m_attributes;
  ReceiveBuffer m_input;
  UnfinishedAnswer m_unfinished;
  /// The last answer ended with its terminator and nothing was there behind it: a mark that comes alone is its own.
  bool m_markMayFollow = false;
  /// There is a connection, and what was asked there may still be answered.
  bool m_outOfStep = false;
  std::string m_output;
  /// A success while there is a connection, else why there is none.
  DriverResult m_connection = {DriverStatus::NotConnected};
  DriverResult m_lastFailure;
};

} // namespace portico::drivers
