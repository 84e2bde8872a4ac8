#include "contract/DriverBenches.h"

#include "support/doubles/ManualClock.h"
#include "support/doubles/ScriptedConnection.h"

#include <algorithm>

namespace portico::test {
namespace {

using namespace drivers;

/// What the transports that mark ends have in common, without any protocol.
class MarkingTransport final : public ITransport {
public:
  MarkingTransport(const InstrumentScript& script, std::string& received, ManualClock& clock)
      : m_script(script), m_received(received), m_clock(clock) {}

  DriverResult Open(TimePoint /*deadline*/) override {
    Begin();
    return {};
  }
  void Close() noexcept override { m_instrument.reset(); }
  DriverResult Write(std::string_view bytes, TimePoint /*deadline*/) override {
    m_instrument->Write(bytes, m_clock.Now());
    return {};
  }
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override {
    if (m_answer.empty()) {
      auto answer = m_instrument->Read(m_clock.Now());
      if (!answer) {
        m_clock.SleepUntil(deadline);
        return {{DriverStatus::ReadTimeout, "marking"}};
      }
      m_answer = std::move(*answer);
    }
    const std::size_t count = std::min({size, m_answer.size(), Piece});
    std::copy_n(m_answer.data(), count, buffer);
    m_answer.erase(0, count);
    return {{}, count, m_answer.empty() && m_instrument->Whole()};
  }
  bool MarksEnd() const override { return true; }
  bool Clear(std::chrono::milliseconds /*timeout*/) override {
    Begin();
    return true;
  }

  void Send(const std::string& bytes) { m_instrument->Send(bytes); }

private:
  static constexpr std::size_t Piece = 1000;

  void Begin() {
    m_instrument = std::make_unique<ScriptedConnection>(m_script, m_received);
    m_answer.clear();
  }

  const InstrumentScript m_script;
  std::string& m_received;
  ManualClock& m_clock;
  std::unique_ptr<ScriptedConnection> m_instrument;
  std::string m_answer;
};

class MarkingBench final : public DriverBench {
public:
  MarkingBench(const InstrumentScript& script, std::chrono::milliseconds timeout)
      : m_driver({{InterfaceKind::Simulated,
                   [this, script](const ResourceName&) {
                     auto transport = std::make_unique<MarkingTransport>(script, m_received, m_clock);
                     m_transport = transport.get();
                     return transport;
                   }}},
                 {m_clock, timeout, &observer}) {}

  IExtendedDriver& Driver() override { return m_driver; }
  std::string Name() const override { return "sim::marking::instr"; }
  std::string CanonicalName() const override { return "SIM::marking::INSTR"; }
  std::string Place() const override { return "marking"; }
  std::string ReceivedUpTo(const std::string& /*bytes*/) override { return m_received; }
  void Send(const std::string& bytes) override { m_transport->Send(bytes); }

private:
  ManualClock m_clock;
  std::string m_received;
  MarkingTransport* m_transport = nullptr; // of the session that was opened last
  InstrumentDriver m_driver;
};

} // namespace

DriverBenchKind MarkingBenchKind() {
  return {
      "Marking", MakeBench<MarkingBench>, {.marksEnd = true, .recovery = TransportTraits::RecoveryKind::DeviceClear}};
}

} // namespace portico::test
