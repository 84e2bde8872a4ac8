#include "simulator/connection/Connection.h"

#include "scpi/ScpiError.h"

#include <utility>

namespace portico::simulator {

Connection::Connection(Instrument& instrument)
    : m_instrument(instrument),
      m_status(instrument.m_status),
      m_executor(instrument.m_executor),
      m_exchange(instrument.Join()) {}

Connection::~Connection() { m_exchange->Abandon(); }

void Connection::Advance(TimePoint now) {
  m_executor.Run(now);
  Seen(now);
}

void Connection::Submit(std::string message, TimePoint now) {
  const auto fits = [&] { return m_exchange->InputBytes() + message.size() <= MostInputBytes; };
  while (!fits() && m_exchange->HeldByOutput()) {
    m_status.Raise(scpi::ErrorCode::QueryDeadlocked);
    m_exchange->Responses().Clear();
    m_executor.Run(now);
  }
  if (fits()) {
    m_exchange->Submit(std::move(message));
    m_executor.Run(now);
  } else {
    ReportOverrun();
  }
  Seen(now);
}

void Connection::ReportOverrun() { m_status.Raise(scpi::ErrorCode::InputBufferOverrun); }

void Connection::ReportInterrupted() { m_status.Raise(scpi::ErrorCode::QueryInterrupted); }

void Connection::ReportUnterminated() { m_status.Raise(scpi::ErrorCode::QueryUnterminated); }

void Connection::Clear(TimePoint now) {
  m_exchange->Halt();
  m_exchange->Abandon();
  m_exchange = m_instrument.Join();
  AnswerTaken();
  Advance(now);
}

std::uint8_t Connection::SerialPoll(bool messageAvailable, TimePoint now) {
  Advance(now);
  const unsigned reasons = ReasonsForService(messageAvailable);
  const bool news = (reasons & ~static_cast<unsigned>(m_polled)) != 0;
  m_polled = static_cast<std::uint8_t>(reasons);
  const unsigned rest = m_status.StatusByte(messageAvailable) & ~static_cast<unsigned>(StatusBit::Service);
  return static_cast<std::uint8_t>(rest | (news ? StatusBit::Service : 0U));
}

void Connection::AnswerTaken() { m_polled &= static_cast<std::uint8_t>(~StatusBit::MessageAvailable); }

std::uint8_t Connection::ReasonsForService(bool messageAvailable) const {
  return m_status.StatusByte(messageAvailable) & m_status.ServiceEnable();
}

std::optional<std::string> Connection::Read(TimePoint now) {
  Advance(now);
  auto response = m_exchange->Responses().Pop(now);
  if (!response) return response;
  m_executor.Faults().Deliver(m_exchange->Responses().FaultOfLast());
  return response;
}

void Connection::Seen(TimePoint now) {
  m_lastCall = now;
  m_answersSeen = m_exchange->Responses().Count();
  m_polled &= ReasonsForService(true);
}

std::optional<TimePoint> Connection::NextEvent() const {
  auto next = m_executor.OperationEnd();
  const auto ready = m_exchange->Responses().NextReady();
  // An answer that was there at the last call waits for its reader; nothing more will happen to it by itself.
  const bool news = ready && (*ready > m_lastCall || m_exchange->Responses().Count() != m_answersSeen);
  if (news && (!next || *ready < *next)) next = ready;
  return next;
}

} // namespace portico::simulator
