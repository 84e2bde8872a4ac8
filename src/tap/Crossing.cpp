#include "tap/Crossing.h"

#include <utility>

namespace portico::tap {
namespace {

using server::TimePoint;

/// What waits for a side that does not take it, in bytes: from there on the other is not listened to.
constexpr std::size_t MostWaiting = std::size_t{256} * 1024;

/// An instrument that does not end its connection though the client's has broken is not waited for any longer.
constexpr auto Patience = std::chrono::seconds(2);

} // namespace

/// The connection of one side.
class Crossing::End final : public server::IServedConnection {
public:
  using Taker = void (Crossing::*)(std::string_view);

  End(std::shared_ptr<Crossing> crossing, Side& own, Side& other, Taker take)
      : m_crossing(std::move(crossing)), m_own(own), m_other(other), m_take(take) {
    m_own.Exists = true;
  }
  ~End() override { m_own.Gone = m_own.Ended = true; }
  End(const End&) = delete;
  End& operator=(const End&) = delete;

  void Receive(std::string_view bytes, TimePoint /*now*/) override {
    if (!m_own.Dismissed && !m_other.Gone) ((*m_crossing).*m_take)(bytes);
  }

  void Collect(std::string& output, TimePoint now) override {
    if (m_other.Ended) m_noticed = true;
    if (m_other.Gone && !m_until) m_until = now + Patience;
    m_over = m_until && now >= *m_until;
    if (output.empty()) output.swap(m_own.Output);
    // Behind the forwarding: what was collected before has been sent.
    if (output.empty() && m_other.Output.empty()) m_crossing->m_recorder.Write();
  }

  bool AcceptsInput() const override { return m_other.Gone || m_other.Output.size() < MostWaiting; }

  std::optional<TimePoint> NextEvent() const override {
    const bool due =
        !m_own.Output.empty() || m_own.Dismissed || (m_other.Ended && !m_noticed) || (m_other.Gone && !m_until);
    if (due) return TimePoint{};
    return m_until;
  }

  bool Finished(bool inputEnded) const override {
    if (!m_own.Output.empty()) return false;
    return m_own.Dismissed || m_over || (inputEnded && (m_other.Ended || !m_other.Exists));
  }

  bool IsDuplex() const override { return true; }
  void EndInput(TimePoint /*now*/) override { m_own.Ended = true; }
  bool OutputEnded() const override { return m_other.Ended && m_own.Output.empty(); }

private:
  const std::shared_ptr<Crossing> m_crossing;
  Side& m_own;
  Side& m_other;
  const Taker m_take;
  bool m_noticed = false; ///< that the other has ended
  std::optional<TimePoint> m_until;
  bool m_over = false;
};

std::unique_ptr<server::IServedConnection> Crossing::ClientEnd() {
  return std::make_unique<End>(shared_from_this(), m_client, m_instrument, &Crossing::FromClient);
}

std::unique_ptr<server::IServedConnection> Crossing::InstrumentEnd() {
  return std::make_unique<End>(shared_from_this(), m_instrument, m_client, &Crossing::FromInstrument);
}

bool Crossing::Ending() const { return m_client.Ended || m_instrument.Ended; }

void Crossing::GiveWay() { m_client.Dismissed = m_instrument.Dismissed = true; }

} // namespace portico::tap
