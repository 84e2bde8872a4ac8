#pragma once

#include "drivers/TVSCPI_32.h"

#include <string>
#include <variant>

namespace portico::drivers {

/// The functions of a driver library, as TVSCPI_32.h declares them. None is null.
struct DriverFunctions {
  decltype(&::TVSCPI_init) Init;
  decltype(&::TVSCPI_close) Close;
  decltype(&::TVSCPI_WriteInstrData) WriteInstrData;
  decltype(&::TVSCPI_ReadInstrData) ReadInstrData;
  decltype(&::TVSCPI_GetAttributeViInt32) GetAttributeViInt32;
  decltype(&::TVSCPI_GetAttributeViString) GetAttributeViString;
  decltype(&::TVSCPI_SetAttributeViInt32) SetAttributeViInt32;
  decltype(&::TVSCPI_SetAttributeViString) SetAttributeViString;
  decltype(&::TVSCPI_error_message) ErrorMessage;
};

/// Why a driver library cannot be used, as one clause without a full stop.
struct DriverLibraryError {
  std::string Text;
};

/// Loads a shared library, by its path or as the system finds it by its name, and binds its functions. It stays loaded
/// until the program ends: who has begun threads or left handlers behind must not go before them.
std::variant<DriverFunctions, DriverLibraryError> LoadDriverLibrary(const std::string& name);

} // namespace portico::drivers
