#include "drivers/session/InstrumentSession.h"

#include "drivers/session/StreamedAnswer.h"

namespace portico::drivers {

InstrumentSession::InstrumentSession(const ResourceName& name, std::unique_ptr<ITransport> transport,
                                     const SessionOptions& options)
    : m_name(name.Canonical()), m_transport(std::move(transport)), m_options(options) {
  if (options.Observer != nullptr) m_transport->OnWait([observer = options.Observer] { observer->Waits(); });
}

DriverResult InstrumentSession::Open() {
  m_connection = Connect(Deadline());
  return m_connection;
}

void InstrumentSession::Close() noexcept {
  if (m_connection.Succeeded() && !Cancelled()) m_transport->ReturnToLocal(Deadline());
  Drop({DriverStatus::NotConnected});
}

DriverResult InstrumentSession::Write(const std::string& text) {
  TimePoint deadline = Deadline();
  if (m_outOfStep) GetInStep(deadline);
  DriverResult result = Connected(deadline);
  if (result.Succeeded()) {
    m_output.assign(text);
    m_output += '\n';
    result = m_transport->Write(m_output, deadline);
  }
  if (!result.Succeeded()) Drop(result);
  return result;
}

DriverResult InstrumentSession::Clear() {
  TimePoint deadline = Deadline();
  if (m_connection.Succeeded()) GetInStep(deadline);
  if (m_connection.Succeeded()) return {};
  DriverResult result = Reconnect(deadline);
  if (!result.Succeeded()) Drop(result);
  return result;
}

DriverResult InstrumentSession::GoToLocal() {
  TimePoint deadline = Deadline();
  DriverResult result = Connected(deadline);
  if (result.Succeeded()) result = m_transport->GoToLocal(deadline);
  if (result.Status == DriverStatus::NotPossible) {
    if (result.Detail.empty()) result.Detail = m_name + " has no means for it";
  } else if (!result.Succeeded()) {
    Drop(result);
  }
  return result;
}

DriverResult InstrumentSession::Read(std::span<char> buffer, std::int32_t& count) {
  count = 0;
  if (buffer.empty()) return {DriverStatus::InvalidBuffer};
  if (!m_connection.Succeeded()) return {DriverStatus::NotConnected, ReasonFor(m_connection)};
  const TimePoint deadline = Deadline();
  const MessageReader reader = Reader();
  Answer answer = m_unfinished.Start(reader, buffer);
  while (!answer.Complete()) {
    if (!m_unfinished.Unread().empty()) {
      m_unfinished.Drop(answer.Take(m_unfinished.Unread()));
      continue;
    }
    if (m_input.Empty()) {
      bool anew = false;
      if (DriverResult result = Fill(deadline, anew); !result.Succeeded()) {
        if (result.Status == DriverStatus::ReadTimeout) m_unfinished.Keep(answer);
        answer.Erase();
        return result;
      }
      if (anew) {
        answer.Erase();
        answer = Answer(reader, buffer);
      }
    }
    m_input.Drop(answer.Take(m_input.Unread()));
    if (m_input.AtEndOfMessage()) answer.End();
  }
  NoteComplete(answer.Terminated());
  count = answer.Finish();
  if (answer.FillsBuffer()) {
    Tell([&](IDriverObserver& observer) { observer.AnswerFilledBuffer(m_name, answer.Length()); });
  }
  return {};
}

DriverResult InstrumentSession::ReadInPieces(const AnswerSink& sink) {
  if (!m_connection.Succeeded()) return {DriverStatus::NotConnected, ReasonFor(m_connection)};
  if (m_outOfStep) return {DriverStatus::NotPossible, m_name + " still owes the answer to an earlier command"};
  StreamedAnswer answer(Reader(), sink);
  while (!answer.Complete() && !answer.Refused()) {
    if (m_input.Empty()) {
      bool anew = false;
      DriverResult result = Fill(Deadline(), anew);
      if (anew && answer.Begun()) result = {DriverStatus::ConnectionLost, m_name + " broke its answer off"};
      if (!result.Succeeded()) {
        if (answer.Begun()) DropRest();
        return result;
      }
    }
    m_input.Drop(answer.Take(m_input.Unread()));
    if (m_input.AtEndOfMessage()) answer.End();
  }
  if (answer.Complete()) {
    answer.Finish();
    NoteComplete(answer.Terminated());
  } else {
    DropRest();
  }
  return answer.Refused() ? DriverResult{DriverStatus::GivenUp, m_name} : DriverResult{};
}

MessageReader InstrumentSession::Reader() const {
  return MessageReader{m_attributes.Termination(), m_transport->MarksEnd() ? Marks::Ends : Marks::None};
}

void InstrumentSession::NoteComplete(bool terminated) {
  m_outOfStep = false;
  m_markMayFollow = terminated && m_unfinished.Unread().empty() && m_input.Empty() && !m_input.AtEndOfMessage();
}

void InstrumentSession::DropRest() {
  if (!m_connection.Succeeded() || Cancelled()) return;
  TimePoint deadline = Deadline();
  GetInStep(deadline);
}

DriverResult InstrumentSession::Connect(TimePoint deadline) {
  return Cancelled() ? DriverResult{DriverStatus::Cancelled} : m_transport->Open(deadline);
}

void InstrumentSession::GetInStep(TimePoint& deadline) {
  if (!ClearTransport(deadline)) {
    Drop({DriverStatus::NotConnected});
    return;
  }
  Forget();
  Tell([this](IDriverObserver& observer) { observer.Cleared(m_name); });
}

DriverResult InstrumentSession::Restore(TimePoint deadline) {
  if (m_transport->Stands()) return {};
  DriverResult result = Connect(deadline);
  if (result.Succeeded()) Tell([this](IDriverObserver& observer) { observer.Restored(m_name); });
  return result;
}

DriverResult InstrumentSession::Reconnect(TimePoint& deadline) {
  DriverResult result = Connect(deadline);
  // An instrument may keep its answers beyond the connection, and the attempt to clear it may cost this one.
  if (result.Succeeded() && !ClearTransport(deadline) && (Cancelled() || !m_transport->Stands())) {
    m_transport->Close();
    result = Connect(deadline);
  }
  if (!result.Succeeded()) return result;
  m_connection = {};
  Tell([this](IDriverObserver& observer) { observer.Reconnected(m_name); });
  return result;
}

bool InstrumentSession::ClearTransport(TimePoint& deadline) {
  const bool cleared = m_transport->Clear(m_options.Timeout);
  deadline = Deadline();
  return cleared;
}

void InstrumentSession::Drop(DriverResult reason) {
  m_transport->Close();
  Forget();
  m_connection = std::move(reason);
}

void InstrumentSession::Forget() {
  m_input.Clear();
  m_unfinished.Forget();
  m_markMayFollow = false;
  m_outOfStep = false;
}

DriverResult InstrumentSession::Fill(TimePoint deadline, bool& anew) {
  for (;;) {
    Received received = m_transport->Read(m_input.Space(), ReceiveBuffer::Capacity, deadline);
    if (received.Result.Status == DriverStatus::ReadTimeout) {
      m_outOfStep = true;
      return std::move(received.Result);
    }
    if (!received.Result.Succeeded()) {
      Drop(received.Result);
      return std::move(received.Result);
    }
    m_input.Filled(received.Count, received.End);
    anew = received.Anew;
    const bool lateMark = m_markMayFollow && received.Count == 0 && received.End && !anew;
    m_markMayFollow = false;
    if (!lateMark) return {};
  }
}

template <typename News>
void InstrumentSession::Tell(News news) const {
  if (m_options.Observer != nullptr) news(*m_options.Observer);
}

} // namespace portico::drivers
