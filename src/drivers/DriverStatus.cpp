#include "drivers/DriverStatus.h"

#include "drivers/ControlCharacters.h"

#include <algorithm>
#include <array>

namespace portico::drivers {
namespace {

struct StatusEntry {
  DriverStatus Status;
  std::string_view Name;
  /// Without its full stop, so that a detail can follow.
  std::string_view Text;
  /// What the one that the detail names did to the connection; empty where the detail tells that itself.
  std::string_view Deed = {};
  /// What the user can do about one that a detail tells of; empty where the detail says that itself.
  std::string_view Advice = {};
};

constexpr std::array Statuses = {
    StatusEntry{DriverStatus::Success, "TVSCPI_SUCCESS", "No error"},
    StatusEntry{DriverStatus::InvalidSession, "TVSCPI_ERROR_INVALID_SESSION", "The session is not open"},
    StatusEntry{DriverStatus::InvalidResourceName, "TVSCPI_ERROR_INVALID_RESOURCE_NAME",
                "The instrument name is not valid"},
    StatusEntry{DriverStatus::UnsupportedInterface, "TVSCPI_ERROR_UNSUPPORTED_INTERFACE",
                "The interface is not supported yet"},
    StatusEntry{DriverStatus::UnknownSimulatedDevice,
                "TVSCPI_ERROR_UNKNOWN_SIMULATED_DEVICE",
                "There is no such simulated instrument",
                {},
                "write dmm, psu or scope"},
    StatusEntry{DriverStatus::UnknownAttribute, "TVSCPI_ERROR_UNKNOWN_ATTRIBUTE",
                "There is no such attribute of that type"},
    StatusEntry{DriverStatus::InvalidAttributeValue, "TVSCPI_ERROR_INVALID_ATTRIBUTE_VALUE",
                "The attribute does not take that value"},
    StatusEntry{DriverStatus::InvalidBuffer, "TVSCPI_ERROR_INVALID_BUFFER", "The buffer has no room for an answer"},
    StatusEntry{DriverStatus::UnknownHost,
                "TVSCPI_ERROR_UNKNOWN_HOST",
                "The host is not known",
                {},
                "check its name, or use its address"},
    StatusEntry{DriverStatus::ConnectionRefused, "TVSCPI_ERROR_CONNECTION_REFUSED",
                "The instrument refused the connection", "refused it",
                "check the port, and that the instrument serves it"},
    StatusEntry{DriverStatus::ConnectTimeout, "TVSCPI_ERROR_CONNECT_TIMEOUT",
                "Timeout expired before the connection was made", "timed out",
                "check address, port, cable and firewall"},
    StatusEntry{DriverStatus::ConnectFailed, "TVSCPI_ERROR_CONNECT_FAILED", "The connection could not be made"},
    StatusEntry{DriverStatus::ConnectionClosed, "TVSCPI_ERROR_CONNECTION_CLOSED",
                "The instrument closed the connection", "closed it"},
    StatusEntry{DriverStatus::ConnectionLost, "TVSCPI_ERROR_CONNECTION_LOST", "The connection was lost"},
    StatusEntry{DriverStatus::NotConnected, "TVSCPI_ERROR_NOT_CONNECTED", "There is no connection"},
    StatusEntry{DriverStatus::WriteTimeout, "TVSCPI_ERROR_WRITE_TIMEOUT",
                "Timeout expired before the command was sent completely", "took no whole command in time"},
    StatusEntry{DriverStatus::ReadTimeout, "TVSCPI_ERROR_READ_TIMEOUT",
                "Timeout expired before the answer was complete", "gave no whole answer in time"},
    StatusEntry{DriverStatus::Cancelled, "TVSCPI_ERROR_CANCELLED", "The program is about to end", "was given up"},
    StatusEntry{DriverStatus::ProtocolError, "TVSCPI_ERROR_PROTOCOL", "The instrument broke the protocol"},
    StatusEntry{DriverStatus::LibraryNotLoaded, "TVSCPI_ERROR_LIBRARY_NOT_LOADED",
                "The driver library could not be loaded"},
    StatusEntry{DriverStatus::InternalError, "TVSCPI_ERROR_INTERNAL", "The driver failed"},
    StatusEntry{DriverStatus::NotPossible, "TVSCPI_ERROR_NOT_POSSIBLE", "This cannot be done"},
    StatusEntry{DriverStatus::GivenUp, "TVSCPI_ERROR_GIVEN_UP", "The answer was given up"},
};

const StatusEntry* Find(std::int32_t status) {
  const auto* entry = std::find_if(Statuses.begin(), Statuses.end(), [status](const StatusEntry& candidate) {
    return Number(candidate.Status) == status;
  });
  return entry == Statuses.end() ? nullptr : entry;
}

} // namespace

std::string_view StatusName(std::int32_t status) {
  const StatusEntry* entry = Find(status);
  return entry == nullptr ? std::string_view() : entry->Name;
}

std::string StatusMessage(std::int32_t status, std::string_view detail) {
  const StatusEntry* entry = Find(status);
  std::string message = entry == nullptr ? "Unknown status " + std::to_string(status) : std::string(entry->Text);
  if (!detail.empty()) message.append(": ").append(detail);
  if (!detail.empty() && entry != nullptr && !entry->Advice.empty()) message.append("; ").append(entry->Advice);
  message += '.';
  // A detail may quote what the user typed; a line feed or zero byte in it would end the message early.
  std::replace_if(message.begin(), message.end(), IsControl, '?');
  message.resize(std::min(message.size(), MaxErrorMessage));
  return message;
}

bool IsStatusMessage(std::string_view text) {
  return std::any_of(Statuses.begin(), Statuses.end(), [text](const StatusEntry& entry) {
    if (entry.Status == DriverStatus::Success || !text.starts_with(entry.Text)) return false;
    const std::string_view rest = text.substr(entry.Text.size());
    const bool isWhole = text.ends_with('.') || text.size() >= MaxErrorMessage; // a longer one is cut
    return rest == "." || (rest.starts_with(": ") && isWhole);
  });
}

std::string ReasonFor(const DriverResult& failure) {
  const StatusEntry* entry = Find(Number(failure.Status));
  std::string reason = failure.Detail;
  if (entry == nullptr || entry->Deed.empty()) return reason;
  if (!reason.empty()) reason += ", ";
  return reason.append(entry->Deed);
}

void WriteErrorMessage(std::string_view message, char* buffer) {
  const std::size_t length = std::min(message.size(), MaxErrorMessage);
  char* end = std::copy_n(message.data(), length, buffer);
  *end++ = '\n';
  *end = '\0';
}

} // namespace portico::drivers
