#include "drivers/SimulatedTransport.h"

#include <algorithm>

namespace portico {

SimulatedTransport::SimulatedTransport(std::string device, SimulatedInstrumentFactory factory, IClock& clock)
    : device_(std::move(device)), factory_(std::move(factory)), clock_(clock) {}

DriverResult SimulatedTransport::Open(TimePoint /*deadline*/) {
  Close();
  instrument_ = factory_(device_);
  if (instrument_ == nullptr) return {DriverStatus::UnknownSimulatedDevice, device_};
  return {};
}

void SimulatedTransport::Close() noexcept {
  instrument_.reset();
  response_.clear();
  position_ = 0;
}

DriverResult SimulatedTransport::Write(std::string_view bytes, TimePoint /*deadline*/) {
  instrument_->Write(bytes, clock_.Now());
  return {};
}

Received SimulatedTransport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  if (position_ == response_.size() && !AwaitResponse(deadline)) return {{DriverStatus::ReadTimeout, device_}};
  const std::size_t count = std::min(size, response_.size() - position_);
  std::copy_n(response_.data() + position_, count, buffer);
  position_ += count;
  return {{}, count};
}

bool SimulatedTransport::AwaitResponse(TimePoint deadline) {
  for (;;) {
    const TimePoint now = clock_.Now();
    if (now >= deadline) return false;
    if (auto response = instrument_->Read(now); response && !response->empty()) {
      response_ = std::move(*response);
      position_ = 0;
      return true;
    }
    const auto event = instrument_->NextEvent();
    clock_.SleepUntil(event && *event > now ? std::min(*event, deadline) : deadline);
  }
}

} // namespace portico
