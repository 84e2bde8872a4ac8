#pragma once

#include "drivers/DriverStatus.h"
#include "wire/Vxi11.h"

#include <string>

namespace portico::drivers {

/// What an error means that an instrument answered a call on a link with, of `peer`. `onTimeout` is the status of one
/// that came because the call's time was over, or because another link held the device's lock all the while.
DriverResult LinkFailure(wire::Vxi11::Error error, const std::string& peer, DriverStatus onTimeout);

/// Why there is no link to `device`, and what to do about it.
DriverResult CreateLinkFailure(wire::Vxi11::Error error, const std::string& peer, const std::string& device);

/// A failure of the calls that make a link, as one of opening: tells what to do where the status does not.
DriverResult OpeningFailure(DriverResult failure);

} // namespace portico::drivers
