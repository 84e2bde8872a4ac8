#include "support/doubles/FakeUsbtmc.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace portico::test {

using drivers::UsbtmcRequest;

namespace {

constexpr std::uint32_t ShortestTimeout = 100;
constexpr std::uint32_t UsualTimeout = 5000;

void PowerOn(FakeUsbtmc::Device& device) {
  device.instrument = std::make_unique<ScriptedConnection>(device.script, device.received);
  device.answer.clear();
  device.outOfStep = false;
}

} // namespace

class FakeUsbtmc::File final : public drivers::IUsbtmcFile {
public:
  File(const FakeUsbtmc& system, std::shared_ptr<Device> device) : m_system(system), m_device(std::move(device)) {
    m_device->isOpen = true;
  }
  ~File() override { m_device->isOpen = false; }

  long Read(char* buffer, std::size_t size) override {
    ++m_device->reads;
    if (Gone()) return -ENODEV;
    if (const int error = std::exchange(m_device->nextError, 0); error != 0) return Fail(-error);
    if (std::exchange(m_device->malformed, false)) return Fail(0);
    if (std::exchange(m_device->outOfStep, false)) return 0; // the tag of the request before
    if (m_device->answer.empty()) {
      auto answer = m_device->instrument->Read(m_system.m_clock.Now());
      if (!answer) {
        Wait();
        return Fail(-ETIMEDOUT);
      }
      m_device->answer = std::move(*answer);
    }
    const std::size_t count = std::min({size, m_device->answer.size(), m_device->mostSent});
    std::copy_n(m_device->answer.data(), count, buffer);
    m_device->answer.erase(0, count);
    m_attributes = m_device->answer.empty() && m_device->instrument->Whole() ? 1 : 0;
    return static_cast<long>(count);
  }

  long Write(std::string_view bytes) override {
    if (Gone()) return -ENODEV;
    if (const int error = std::exchange(m_device->nextError, 0); error != 0) return -error;
    if (m_device->deaf) {
      Wait();
      return -ETIMEDOUT;
    }
    const std::string_view taken = bytes.substr(0, m_device->mostTaken);
    m_device->messages.emplace_back(taken);
    m_device->instrument->Write(taken, m_system.m_clock.Now());
    return static_cast<long>(taken.size());
  }

  int Request(UsbtmcRequest request, std::uint32_t& value) override {
    if (Gone()) return ENODEV;
    if (m_system.unknown.count(request) != 0) return EBADRQC;
    switch (request) {
    case UsbtmcRequest::SetTimeout:
      if (value < ShortestTimeout) return EINVAL;
      m_timeout = value;
      m_device->timeouts.push_back(value);
      return 0;
    case UsbtmcRequest::AutoAbort:
      if (value > 1) return EINVAL;
      m_aborts = value == 1;
      return 0;
    case UsbtmcRequest::MessageAttributes:
      value = m_attributes;
      return 0;
    case UsbtmcRequest::Capabilities:
      value = m_device->capabilities;
      return 0;
    case UsbtmcRequest::Clear:
      ++m_device->clears;
      if (m_device->clearError == 0) PowerOn(*m_device);
      return m_device->clearError;
    case UsbtmcRequest::GoToLocal:
      ++m_device->returnsToLocal;
      return 0;
    }
    return EBADRQC;
  }

  bool Gone() const override { return m_device->instrument == nullptr; }

private:
  void Wait() const { m_system.m_clock.SleepUntil(m_system.m_clock.Now() + std::chrono::milliseconds(m_timeout)); }
  long Fail(long outcome) {
    if (m_aborts) {
      ++m_device->aborts;
    } else {
      m_device->outOfStep = true;
    }
    return outcome;
  }

  const FakeUsbtmc& m_system;
  const std::shared_ptr<Device> m_device;
  std::uint32_t m_timeout = UsualTimeout;
  std::uint32_t m_attributes = 0;
  bool m_aborts = false;
};

FakeUsbtmc::Device& FakeUsbtmc::Plug(drivers::UsbtmcDevice listing, InstrumentScript script) {
  std::string path;
  for (std::size_t number = 0; path.empty() || m_devices.count(path) != 0; ++number) {
    path = "/dev/usbtmc" + std::to_string(number);
  }
  auto device = std::make_shared<Device>();
  device->listing = std::move(listing);
  device->listing.Path = path;
  device->script = std::move(script);
  PowerOn(*device);
  return *m_devices.emplace(path, std::move(device)).first->second;
}

void FakeUsbtmc::Unplug(Device& device) {
  const auto found = m_devices.find(device.listing.Path);
  device.instrument.reset();
  m_gone.push_back(found->second);
  m_devices.erase(found);
}

void FakeUsbtmc::Send(Device& device, const std::string& bytes) { device.instrument->Send(bytes); }

std::vector<drivers::UsbtmcDevice> FakeUsbtmc::Devices() {
  std::vector<drivers::UsbtmcDevice> devices;
  for (const auto& [path, device] : m_devices) devices.push_back(device->listing);
  return devices;
}

drivers::UsbtmcOpening FakeUsbtmc::Open(const std::string& path) {
  const auto found = m_devices.find(path);
  if (found == m_devices.end()) return {ENOENT};
  if (found->second->openError != 0) return {found->second->openError};
  if (found->second->isOpen) return {EWOULDBLOCK};
  return {0, std::make_unique<File>(*this, found->second)};
}

} // namespace portico::test
