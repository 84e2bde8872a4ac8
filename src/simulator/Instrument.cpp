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
    : device_(makeDevice(executor_, status_)),
      common_(*device_, executor_, status_),
      faults_(executor_, status_, responses_, seed) {
  common_.AddTo(tree_);
  system_.AddTo(tree_);
  faults_.AddTo(tree_);
  device_->AddTo(tree_);
}

void Instrument::Write(std::string_view bytes, TimePoint now) {
  lastCall_ = now;
  executor_.Run(now);
  while (!bytes.empty() && !CloseRequested()) {
    switch (framer_.Feed(bytes)) {
    case MessageFramer::Outcome::Complete:
      Submit(framer_.TakeMessage(), now);
      break;
    case MessageFramer::Outcome::Overrun:
      status_.Raise(ErrorCode::InputBufferOverrun);
      break;
    case MessageFramer::Outcome::Incomplete:
      break;
    }
  }
}

void Instrument::Submit(std::string message, TimePoint now) {
  const auto fits = [&] { return executor_.InputBytes() + message.size() <= kMostInputBytes; };
  while (!fits() && executor_.HeldByOutput()) {
    status_.Raise(ErrorCode::QueryDeadlocked);
    responses_.Clear();
    executor_.Run(now);
  }
  if (!fits()) {
    status_.Raise(ErrorCode::InputBufferOverrun);
    return;
  }
  executor_.Submit(std::move(message));
  executor_.Run(now);
}

std::optional<std::string> Instrument::Read(TimePoint now) {
  lastCall_ = now;
  executor_.Run(now);
  return responses_.Pop(now);
}

std::optional<TimePoint> Instrument::NextEvent() const {
  auto next = executor_.OperationEnd();
  const auto ready = responses_.NextReady();
  // An answer that is ready already waits for its reader; nothing more will happen to it by itself.
  if (ready && *ready > lastCall_ && (!next || *ready < *next)) next = ready;
  return next;
}

} // namespace portico::simulator
