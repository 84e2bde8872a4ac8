#include "scpi/ScpiError.h"

#include <algorithm>
#include <array>

namespace portico::scpi {
namespace {

struct StandardError {
  int Number;
  std::string_view Text;
};

constexpr auto StandardErrors = std::to_array<StandardError>({
    {0, "No error"},
    {-100, "Command error"},
    {-101, "Invalid character"},
    {-102, "Syntax error"},
    {-103, "Invalid separator"},
    {-104, "Data type error"},
    {-105, "GET not allowed"},
    {-108, "Parameter not allowed"},
    {-109, "Missing parameter"},
    {-110, "Command header error"},
    {-111, "Header separator error"},
    {-112, "Program mnemonic too long"},
    {-113, "Undefined header"},
    {-114, "Header suffix out of range"},
    {-120, "Numeric data error"},
    {-121, "Invalid character in number"},
    {-123, "Exponent too large"},
    {-124, "Too many digits"},
    {-128, "Numeric data not allowed"},
    {-130, "Suffix error"},
    {-131, "Invalid suffix"},
    {-134, "Suffix too long"},
    {-138, "Suffix not allowed"},
    {-140, "Character data error"},
    {-141, "Invalid character data"},
    {-144, "Character data too long"},
    {-148, "Character data not allowed"},
    {-150, "String data error"},
    {-151, "Invalid string data"},
    {-158, "String data not allowed"},
    {-160, "Block data error"},
    {-161, "Invalid block data"},
    {-168, "Block data not allowed"},
    {-170, "Expression error"},
    {-178, "Expression data not allowed"},
    {-200, "Execution error"},
    {-203, "Command protected"},
    {-210, "Trigger error"},
    {-211, "Trigger ignored"},
    {-213, "Init ignored"},
    {-214, "Trigger deadlock"},
    {-220, "Parameter error"},
    {-221, "Settings conflict"},
    {-222, "Data out of range"},
    {-223, "Too much data"},
    {-224, "Illegal parameter value"},
    {-225, "Out of memory"},
    {-230, "Data corrupt or stale"},
    {-240, "Hardware error"},
    {-241, "Hardware missing"},
    {-250, "Mass storage error"},
    {-256, "File name not found"},
    {-257, "File name error"},
    {-300, "Device specific error"},
    {-310, "System error"},
    {-311, "Memory error"},
    {-315, "Configuration memory lost"},
    {-321, "Out of memory"},
    {-330, "Self-test failed"},
    {-340, "Calibration failed"},
    {-350, "Queue overflow"},
    {-360, "Communication error"},
    {-363, "Input buffer overrun"},
    {-365, "Time out error"},
    {-400, "Query error"},
    {-410, "Query INTERRUPTED"},
    {-420, "Query UNTERMINATED"},
    {-430, "Query DEADLOCKED"},
    {-440, "Query UNTERMINATED after indefinite response"},
});

} // namespace

std::string_view ErrorText(ErrorCode code) {
  const int number = static_cast<int>(code);
  if (number > 0) return "Simulated device error";
  const auto found = std::find_if(StandardErrors.begin(), StandardErrors.end(),
                                  [number](const StandardError& error) { return error.Number == number; });
  return found == StandardErrors.end() ? std::string_view("") : found->Text;
}

} // namespace portico::scpi
