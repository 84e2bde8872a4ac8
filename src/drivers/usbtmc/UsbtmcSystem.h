#pragma once

#include "drivers/usbtmc/IUsbtmcSystem.h"

#include <string>

namespace portico::drivers {

/// The Linux kernel's driver `usbtmc`: device files `usbtmcN`, and what sysfs tells of them.
class UsbtmcSystem final : public IUsbtmcSystem {
public:
  explicit UsbtmcSystem(std::string classFolder = "/sys/class/usbmisc", std::string deviceFolder = "/dev");

  std::vector<UsbtmcDevice> Devices() override;
  UsbtmcOpening Open(const std::string& path) override;

private:
  const std::string m_classFolder;
  const std::string m_deviceFolder;
};

} // namespace portico::drivers
