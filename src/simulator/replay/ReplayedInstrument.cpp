#include "simulator/replay/ReplayedInstrument.h"

#include "scpi/ScpiError.h"

#include <utility>

namespace portico::simulator {

ReplayedInstrument::ReplayedInstrument(ReplayBook book, Order order, std::uint64_t seed)
    : Instrument(seed), m_book(std::move(book)), m_order(order), m_identification(m_book.FirstAnswer("*IDN?")) {}

std::shared_ptr<MessageExchange> ReplayedInstrument::Join() {
  return m_executor.Join([this](std::string_view message) { Answer(message); });
}

void ReplayedInstrument::Answer(std::string_view message) {
  using scpi::ErrorCode;
  const std::string key = ReplayBook::KeyOf(message);
  if (key.empty()) return;
  const bool isErrorQuery = IsErrorQuery(key);
  if (isErrorQuery && m_status.Errors().Size() > 0) return m_executor.Respond(m_status.Errors().Pop());
  ReplayBook::Reply reply;
  try {
    reply = m_book.Ask(key);
  } catch (const ByteStore::Failed&) {
    throw scpi::ScpiError(ErrorCode::ExecutionError);
  }
  if (reply.Error == ErrorCode::UndefinedHeader) {
    if (isErrorQuery) return m_executor.Respond(m_status.Errors().Pop());
    throw scpi::ScpiError(reply.Error);
  }
  if (key == "*CLS") m_status.Clear();
  if (reply.Error != ErrorCode::NoError && m_order == Order::Demanded) m_status.Raise(reply.Error);
  for (const std::string& answer : reply.Answers) {
    m_executor.Respond(answer);
    m_executor.EndResponse();
  }
}

} // namespace portico::simulator
