#pragma once

#include "drivers/IClock.h"
#include "drivers/usbtmc/IUsbtmcSystem.h"
#include "support/doubles/InstrumentScript.h"
#include "support/doubles/ScriptedConnection.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace portico::test {

/// USB test and measurement devices behind a kernel driver that does as the real one does: one transfer for a read, a
/// time-out of at least 100 ms, and a device that stays out of step after a failed transfer which nobody aborted. A
/// wait in vain moves the clock.
class FakeUsbtmc final : public drivers::IUsbtmcSystem {
public:
  /// A device that follows a script.
  struct Device {
    drivers::UsbtmcDevice listing = {};
    InstrumentScript script = {};

    /// What opening its file fails with; 0 if it opens.
    int openError = 0;
    /// What the next read or write fails with, once.
    int nextError = 0;
    /// What a device clear fails with.
    int clearError = 0;
    /// The next transfer is malformed, once.
    bool malformed = false;
    /// It takes no message.
    bool deaf = false;
    /// Of a message it takes this many bytes at most.
    std::size_t mostTaken = SIZE_MAX;
    /// Of an answer it sends this many bytes in one transfer at most.
    std::size_t mostSent = SIZE_MAX;
    std::uint32_t capabilities = 2;

    std::string received = {};
    std::vector<std::string> messages = {};
    std::vector<std::uint32_t> timeouts = {};
    /// Of the reads that failed, how many the system has aborted.
    int aborts = 0;
    int clears = 0;
    int returnsToLocal = 0;
    int reads = 0;
    bool isOpen = false;
    std::unique_ptr<ScriptedConnection> instrument = {};
    /// Of the answer that is being sent, what is left.
    std::string answer = {};
    bool outOfStep = false;
  };

  /// `clock` must outlive it.
  explicit FakeUsbtmc(drivers::IClock& clock) : m_clock(clock) {}

  /// Plugs a device in: "/dev/usbtmcN", counted from 0. It stays until it is unplugged.
  Device& Plug(drivers::UsbtmcDevice listing, InstrumentScript script = {});
  void Unplug(Device& device);
  void Send(Device& device, const std::string& bytes);

  /// Requests that this system is too old for.
  std::set<drivers::UsbtmcRequest> unknown;

  std::vector<drivers::UsbtmcDevice> Devices() override;
  drivers::UsbtmcOpening Open(const std::string& path) override;

private:
  class File;

  drivers::IClock& m_clock;
  std::map<std::string, std::shared_ptr<Device>> m_devices;
  /// Unplugged, while somebody may still look at them.
  std::vector<std::shared_ptr<Device>> m_gone;
};

} // namespace portico::test
