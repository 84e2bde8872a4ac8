#pragma once

#include "drivers/ResourceName.h"
#include "drivers/usbtmc/IUsbtmcSystem.h"

#include <string>
#include <vector>

namespace portico::drivers {

/// The instrument name of a device, in canonical form. A serial number that cannot stand in a name is left out.
std::string InstrumentName(const UsbtmcDevice& device);

/// Those of the devices that an instrument name means: with exactly its serial number or, if it tells none and no
/// device without one is there, with any.
std::vector<UsbtmcDevice> DevicesMeant(const UsbAddress& address, std::vector<UsbtmcDevice> devices);

} // namespace portico::drivers
