// The driver as a shared library. Only wires: the work is done in src/.

#include "drivers/TVSCPI_32.h"
#include "drivers/exported/SharedDriver.h"

#include <cstddef>
#include <new>

namespace {

/// Never let go, since threads may call until the very end of the program.
portico::drivers::SharedDriver& Driver() noexcept {
  using portico::drivers::SharedDriver;
  alignas(SharedDriver) static std::byte place[sizeof(SharedDriver)];
  static auto* const driver = new (place) SharedDriver;
  return *driver;
}

} // namespace

std::int32_t TVSCPI_init(const char* name, std::int32_t, std::int32_t, std::int32_t* session) {
  return Driver().Init(name, session);
}

std::int32_t TVSCPI_close(std::int32_t session) { return Driver().Close(session); }

std::int32_t TVSCPI_WriteInstrData(std::int32_t session, const char* text) {
  return Driver().WriteInstrData(session, text);
}

std::int32_t TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer, std::int32_t* count) {
  return Driver().ReadInstrData(session, size, buffer, count);
}

std::int32_t TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t, std::int32_t attribute,
                                        std::int32_t* value) {
  return Driver().GetAttribute(session, attribute, value);
}

std::int32_t TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t, std::int32_t attribute, std::int32_t size,
                                         char* buffer) {
  return Driver().GetAttribute(session, attribute, size, buffer);
}

std::int32_t TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t, std::int32_t attribute,
                                        std::int32_t value) {
  return Driver().SetAttribute(session, attribute, value);
}

std::int32_t TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t, std::int32_t attribute, const char* text) {
  return Driver().SetAttribute(session, attribute, text);
}

std::int32_t TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) {
  return Driver().ErrorMessage(session, status, buffer);
}
