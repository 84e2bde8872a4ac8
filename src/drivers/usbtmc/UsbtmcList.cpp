#include "drivers/usbtmc/UsbtmcList.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace portico::drivers {

std::string InstrumentName(const UsbtmcDevice& device) {
  std::string name =
      ResourceName(UsbAddress{0, device.Vendor, device.Product, device.Serial, device.InterfaceNumber}).Canonical();
  const auto read = ResourceName::Parse(name);
  const auto* again = std::get_if<ResourceName>(&read);
  if (again != nullptr && again->Canonical() == name) return name;
  return ResourceName(UsbAddress{0, device.Vendor, device.Product, {}, device.InterfaceNumber}).Canonical();
}

std::vector<UsbtmcDevice> DevicesMeant(const UsbAddress& address, std::vector<UsbtmcDevice> devices) {
  std::erase_if(devices, [&](const UsbtmcDevice& device) {
    return device.Vendor != address.Vendor || device.Product != address.Product ||
           device.InterfaceNumber != address.InterfaceNumber;
  });
  const auto differs = [&](const UsbtmcDevice& device) { return device.Serial != address.Serial; };
  const bool exactly = !address.Serial.empty() || !std::all_of(devices.begin(), devices.end(), differs);
  if (exactly) std::erase_if(devices, differs);
  return devices;
}

} // namespace portico::drivers
