#include "drivers/vxi11/Vxi11Errors.h"

#include <utility>

namespace portico::drivers {
namespace {

using wire::Vxi11::Error;

/// What the peer did.
std::string Words(Error error) {
  switch (error) {
  case Error::DeviceNotAccessible:
    return "cannot reach the device";
  case Error::InvalidLink:
    return "no longer knows the link";
  case Error::NotSupported:
    return "does not support the call";
  case Error::OutOfResources:
    return "is out of resources";
  case Error::Io:
    return "had an error of its interface";
  case Error::Abort:
    return "had the call aborted";
  default:
    return "answered with VXI-11 error " + std::to_string(static_cast<std::int32_t>(error));
  }
}

} // namespace

DriverResult LinkFailure(Error error, const std::string& peer, DriverStatus onTimeout) {
  if (error == Error::IoTimeout) return {onTimeout, peer};
  if (error == Error::LockedByAnotherLink) return {onTimeout, peer + std::string(LockedElsewhere)};
  return {DriverStatus::ConnectionLost, peer + ", " + Words(error)};
}

DriverResult CreateLinkFailure(Error error, const std::string& peer, const std::string& device) {
  std::string reason;
  switch (error) {
  case Error::Syntax:
  case Error::DeviceNotAccessible:
  case Error::InvalidAddress:
    reason = "has no device \"" + device + "\"; check the name in front of ::INSTR";
    break;
  case Error::OutOfResources:
    reason = "has no link left; close the instrument in another program";
    break;
  case Error::LockedByAnotherLink:
    reason = "is locked by another program; close the instrument there";
    break;
  default:
    reason = Words(error) + "; try again, or switch the instrument off and on";
  }
  return {DriverStatus::ConnectFailed, peer + ", " + reason};
}

DriverResult OpeningFailure(DriverResult failure) {
  switch (failure.Status) {
  case DriverStatus::ReadTimeout:
  case DriverStatus::WriteTimeout:
    return {DriverStatus::ConnectTimeout, std::move(failure.Detail)};
  case DriverStatus::ConnectionClosed:
  case DriverStatus::ConnectionLost:
  case DriverStatus::ProtocolError:
    return {DriverStatus::ConnectFailed, ReasonFor(failure) + "; check that the instrument speaks VXI-11 there"};
  default:
    return failure;
  }
}

} // namespace portico::drivers
