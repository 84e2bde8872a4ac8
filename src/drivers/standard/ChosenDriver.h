#pragma once

#include "drivers/session/InstrumentDriver.h"
#include "simulator/connection/DeviceRack.h"

#include <memory>
#include <string>

namespace portico::drivers {

/// The driver that a program runs with.
struct ChosenDriver {
  std::shared_ptr<IExtendedDriver> Driver;
  /// What the user has to be told at the start, in UTF-8; empty if all is well.
  std::string Notice = {};
};

/// The driver as the user chose it: the library that the environment variable `PORTICO_DRIVER` names, with simulated
/// instruments beside it, or without that variable StandardDriver(). If the library cannot be used, simulated
/// instruments open still, and all others are refused with the reason. With a maker the instruments of logs are among
/// the simulated ones.
ChosenDriver ChooseDriver(const SessionOptions& options, simulator::ReplayMaker makeReplay = {});

} // namespace portico::drivers
