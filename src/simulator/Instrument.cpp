#include "simulator/Instrument.h"

#include "simulator/Mnemonic.h"
#include "simulator/Multimeter.h"
#include "simulator/Oscilloscope.h"
#include "simulator/PowerSupply.h"

#include <utility>

namespace portico::simulator {

std::unique_ptr<SimulatedInstrument> SimulatedInstrument::Make(std::string_view device, std::uint64_t seed) {
  return Instrument::Make(device, seed);
}

std::unique_ptr<Instrument> Instrument::Make(std::string_view device, std::uint64_t seed) {
  const auto make = [seed]<class Kind>(std::type_identity<Kind>) {
    return std::make_unique<Instrument>(
        [seed](Executor& executor, StatusModel& status) { return std::make_unique<Kind>(executor, status, seed); },
        seed);
  };
  if (Mnemonic("DMM").Matches(device)) return make(std::type_identity<Multimeter>());
  if (Mnemonic("PSU").Matches(device)) return make(std::type_identity<PowerSupply>());
  if (Mnemonic("SCOPE").Matches(device)) return make(std::type_identity<Oscilloscope>());
  return nullptr;
}

Instrument::Instrument(const DeviceMaker& makeDevice, std::uint64_t seed)
    : m_device(makeDevice(m_executor, m_status)),
      m_common(*m_device, m_executor, m_status),
      m_faults(m_executor, m_status, m_responses, seed) {
  m_common.AddTo(m_tree);
  m_system.AddTo(m_tree);
  m_faults.AddTo(m_tree);
  m_device->AddTo(m_tree);
}

void Instrument::Write(std::string_view bytes, TimePoint now) {
  m_lastCall = now;
  m_executor.Run(now);
  while (!bytes.empty() && !CloseRequested()) {
    switch (m_framer.Feed(bytes)) {
    case MessageFramer::Outcome::Complete:
      Submit(m_framer.TakeMessage(), now);
      break;
    case MessageFramer::Outcome::Overrun:
      m_status.Raise(ErrorCode::InputBufferOverrun);
      break;
    case MessageFramer::Outcome::Incomplete:
      break;
    }
  }
}

void Instrument::Submit(std::string message, TimePoint now) {
  const auto fits = [&] { return m_executor.InputBytes() + message.size() <= kMostInputBytes; };
  while (!fits() && m_executor.HeldByOutput()) {
    m_status.Raise(ErrorCode::QueryDeadlocked);
    m_responses.Clear();
    m_executor.Run(now);
  }
  if (!fits()) {
    m_status.Raise(ErrorCode::InputBufferOverrun);
    return;
  }
  m_executor.Submit(std::move(message));
  m_executor.Run(now);
}

std::optional<std::string> Instrument::Read(TimePoint now) {
  m_lastCall = now;
  m_executor.Run(now);
  return m_responses.Pop(now);
}

std::optional<TimePoint> Instrument::NextEvent() const {
  auto next = m_executor.OperationEnd();
  const auto ready = m_responses.NextReady();
  // An answer that is ready already waits for its reader; nothing more will happen to it by itself.
  if (ready && *ready > m_lastCall && (!next || *ready < *next)) next = ready;
  return next;
}

} // namespace portico::simulator
