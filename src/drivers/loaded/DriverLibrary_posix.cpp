#include "drivers/loaded/DriverLibrary.h"

#include <dlfcn.h>

namespace portico::drivers {
namespace {

/// Finds functions in a library, and keeps the names of those that it lacks.
class Binder {
public:
  explicit Binder(void* library) : m_library(library) {}

  template <typename Function>
  void Bind(Function& function, const char* name) {
    function = reinterpret_cast<Function>(::dlsym(m_library, name));
    if (function != nullptr) return;
    if (!m_missing.empty()) m_missing += ", ";
    m_missing += name;
  }

  const std::string& Missing() const { return m_missing; }

private:
  void* const m_library;
  std::string m_missing;
};

} // namespace

std::variant<DriverFunctions, DriverLibraryError> LoadDriverLibrary(const std::string& name) {
  void* const library = ::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) {
    const char* const reason = ::dlerror(); // begins with the name
    return DriverLibraryError{reason == nullptr ? name : reason};
  }
  DriverFunctions functions = {};
  Binder binder(library);
  binder.Bind(functions.Init, "TVSCPI_init");
  binder.Bind(functions.Close, "TVSCPI_close");
  binder.Bind(functions.WriteInstrData, "TVSCPI_WriteInstrData");
  binder.Bind(functions.ReadInstrData, "TVSCPI_ReadInstrData");
  binder.Bind(functions.GetAttributeViInt32, "TVSCPI_GetAttributeViInt32");
  binder.Bind(functions.GetAttributeViString, "TVSCPI_GetAttributeViString");
  binder.Bind(functions.SetAttributeViInt32, "TVSCPI_SetAttributeViInt32");
  binder.Bind(functions.SetAttributeViString, "TVSCPI_SetAttributeViString");
  binder.Bind(functions.ErrorMessage, "TVSCPI_error_message");
  if (!binder.Missing().empty()) return DriverLibraryError{name + ": it lacks " + binder.Missing()};
  return functions;
}

} // namespace portico::drivers
