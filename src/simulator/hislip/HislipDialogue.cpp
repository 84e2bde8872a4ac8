#include "simulator/hislip/HislipDialogue.h"

#include "wire/HislipMessage.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {
namespace {

using namespace wire;

/// What a client may have sent before it has to wait for answers, in bytes and in messages.
constexpr std::size_t MostInputBytes = std::size_t{1} << 20U;
constexpr std::size_t MostInputs = 1024;

constexpr std::string_view TriggerCommand = "*TRG\n";

} // namespace

HislipDialogue::HislipDialogue(std::unique_ptr<IMessageConnection> connection, Misbehaviour& faults)
    : m_stream(std::move(connection)), m_faults(faults) {
  SetLongestMessage(HislipHeaderSize + HislipLongestText);
  Forget();
}

void HislipDialogue::SetLongestMessage(std::uint64_t size) {
  m_longestPayload = static_cast<std::size_t>(std::min<std::uint64_t>(size - HislipHeaderSize, SIZE_MAX));
}

void HislipDialogue::Take(const HislipPiece& piece) {
  if (m_clearing) return;
  if (!std::exchange(m_amidMessage, !piece.Last)) {
    const bool delivered = (piece.Header.Control & HislipControl::ResponseDelivered) != 0;
    if (delivered != m_deliveryExpected) m_stream->ReportInterrupted();
    Delivered();
  }
  Enter(piece);
  if (piece.Last) m_lastId = piece.Header.Parameter;
}

void HislipDialogue::Enter(const HislipPiece& piece) {
  const bool trigger = piece.Header.Type == HislipType::Trigger;
  const std::string_view bytes = trigger ? TriggerCommand : piece.Payload;
  const bool end = trigger || (piece.Header.Type == HislipType::DataEnd && piece.Last);
  if (m_input.empty() || m_input.back().End || m_input.back().Id != piece.Header.Parameter) {
    m_input.push_back({{}, piece.Header.Parameter});
  }
  m_input.back().Bytes += bytes;
  m_input.back().End = end;
  m_inputBytes += bytes.size();
}

bool HislipDialogue::AcceptsInput() const {
  return m_clearing || (m_inputBytes < MostInputBytes && m_input.size() < MostInputs);
}

void HislipDialogue::Collect(std::string& output, bool admitted, TimePoint now) {
  for (;;) {
    if (m_whole) {
      const auto piece = m_stream->ReadPiece(now);
      if (piece && m_input.empty()) return Send(output, *piece);
      if (piece) return Interrupt(output, now);
      if (m_stream->Busy()) return;
    }
    if (m_input.empty() || !admitted) return;
    const Input input = std::move(m_input.front());
    m_input.pop_front();
    m_inputBytes -= input.Bytes.size();
    m_currentId = input.Id;
    m_whole = input.End;
    m_stream->Write(input.Bytes, now);
    if (m_whole) m_stream->End(now);
  }
}

void HislipDialogue::Send(std::string& output, const IMessageConnection::Piece& piece) {
  std::string_view answer = piece.Bytes;
  const std::uint32_t id = m_currentId - (m_faults.Take(AnswerFault::Number) ? HislipMessageIdStep : 0);
  for (; answer.size() > m_longestPayload; answer.remove_prefix(m_longestPayload)) {
    output += HislipMessage(HislipType::Data, 0, id, answer.substr(0, m_longestPayload));
  }
  output += HislipMessage(piece.End ? HislipType::DataEnd : HislipType::Data, 0, id, answer);
  m_available = true;
  m_deliveryExpected = piece.End;
}

void HislipDialogue::Interrupt(std::string& output, TimePoint now) {
  m_stream->Interrupt(now);
  m_available = false;
  m_interruption = m_input.front().Id;
  output += HislipMessage(HislipType::Interrupted, 0, *m_interruption);
}

std::optional<std::uint32_t> HislipDialogue::TakeInterruption() { return std::exchange(m_interruption, std::nullopt); }

std::optional<TimePoint> HislipDialogue::NextEvent(bool admitted) const {
  if (Standing() == IMessageConnection::State::Lost) return TimePoint{};
  // Half a message waits for its rest, whatever the device does meanwhile.
  const bool free = !m_whole || !m_stream->Busy();
  if (!m_input.empty() && admitted && free) return TimePoint{};
  return m_whole ? m_stream->NextEvent() : std::nullopt;
}

void HislipDialogue::Delivered() {
  m_deliveryExpected = m_available = false;
  m_stream->AnswerTaken();
}

void HislipDialogue::BeginClear(TimePoint now) {
  m_clearing = true;
  m_stream->Clear(now);
  Forget();
}

void HislipDialogue::EndClear() {
  m_clearing = false;
  Forget();
}

void HislipDialogue::Forget() {
  m_input.clear();
  m_inputBytes = 0;
  m_amidMessage = false;
  m_lastId = m_currentId = HislipFirstMessageId - HislipMessageIdStep;
  m_whole = true;
  m_interruption.reset();
  Delivered();
}

} // namespace portico::simulator
