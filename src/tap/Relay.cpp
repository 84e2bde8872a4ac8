#include "tap/Relay.h"

#include <utility>

namespace portico::tap {

using server::TimePoint;
using wire::HislipPiece;
using wire::HislipType;

/// The wire's connection on this side.
class Relay::End final : public server::IServedConnection {
public:
  explicit End(std::shared_ptr<Relay> relay) : m_relay(std::move(relay)) {}
  ~End() override {
    m_relay->Lose();
    m_relay->m_talk.reset();
  }
  End(const End&) = delete;
  End& operator=(const End&) = delete;

  void Receive(std::string_view bytes, TimePoint /*now*/) override {
    while (const auto piece = m_relay->m_reader.Next(bytes)) m_relay->Take(*piece);
  }

  void Collect(std::string& output, TimePoint /*now*/) override {
    if (output.empty() && !m_relay->m_output.empty()) {
      output.swap(m_relay->m_output);
      m_relay->m_news = true; // there is room
    }
    // Behind the forwarding: what was collected before has been sent.
    if (output.empty() && m_relay->IsForwarded() && std::exchange(m_relay->m_unwritten, false)) {
      m_relay->m_recorder.Write();
    }
  }

  bool AcceptsInput() const override { return m_relay->m_left || m_relay->m_answerBytes < MostWaiting; }

  std::optional<TimePoint> NextEvent() const override {
    const bool due =
        !m_relay->m_output.empty() || (m_relay->m_unwritten && m_relay->IsForwarded()) || m_relay->HasNobody();
    if (due) return TimePoint{};
    return std::nullopt;
  }

  bool IsDuplex() const override { return true; }
  bool Finished(bool inputEnded) const override { return inputEnded || m_relay->HasNobody(); }

private:
  const std::shared_ptr<Relay> m_relay;
};

std::unique_ptr<server::IServedConnection> Relay::WireEnd() { return std::make_unique<End>(shared_from_this()); }

void Relay::Write(std::string_view bytes, bool end) {
  if (m_output.size() + bytes.size() > MostSaid) Lose();
  if (m_state != State::Open) return;
  m_talk->Sent(bytes, end);
  Say(end ? HislipType::DataEnd : HislipType::Data, bytes);
}

void Relay::Clear() {
  if (m_state != State::Open) return;
  m_talk->Break();
  Say(MarkedWire::Clear);
  DropAnswers();
}

void Relay::Say(HislipType type, std::string_view bytes) {
  m_output += wire::HislipMessage(type, 0, 0, bytes);
  m_unwritten = true;
  ++m_said;
}

void Relay::DropAnswers() {
  m_answers.clear();
  m_answerBytes = 0;
  m_unwanted = m_said;
}

std::optional<Relay::Piece> Relay::Read() {
  if (m_answers.empty()) return std::nullopt;
  Piece piece = std::move(m_answers.front());
  m_answers.pop_front();
  m_answerBytes -= piece.Bytes.size();
  return piece;
}

void Relay::Leave() {
  m_left = true;
  DropAnswers();
}

void Relay::Take(const HislipPiece& piece) {
  m_news = true;
  if (piece.Header.Type == MarkedWire::Opened) {
    m_state = State::Open;
    m_talk.emplace(std::make_shared<Recording>(m_recorder), drivers::Marks::Ends);
  } else if (piece.Header.Type == MarkedWire::Done) {
    TakeDone();
  } else {
    TakeAnswer(piece);
  }
}

void Relay::TakeAnswer(const HislipPiece& piece) {
  const bool end = piece.Last && piece.Header.Type == HislipType::DataEnd;
  m_talk->Answered(piece.Payload, end);
  m_unwritten = true;
  m_amidAnswer = !end;
  if (m_done < m_unwanted || piece.Payload.empty()) return;
  m_answers.push_back({std::string(piece.Payload), end});
  m_answerBytes += piece.Payload.size();
}

/// An answer that has not ended by now has broken off.
void Relay::TakeDone() {
  ++m_done;
  if (!std::exchange(m_amidAnswer, false)) return;
  m_talk->Break();
  while (!m_answers.empty() && !m_answers.back().End) {
    m_answerBytes -= m_answers.back().Bytes.size();
    m_answers.pop_back();
  }
}

void Relay::Lose() {
  m_state = State::Lost;
  m_news = true;
}

} // namespace portico::tap
