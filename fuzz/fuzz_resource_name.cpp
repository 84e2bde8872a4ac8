#include "drivers/ResourceName.h"

#include <cstdlib>

using portico::drivers::ResourceName;
using portico::drivers::ResourceNameError;

// A text is either a name, whose canonical form reads back as the same name, or an error with a reason.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto parsed = ResourceName::Parse({reinterpret_cast<const char*>(data), size});
  if (const auto* error = std::get_if<ResourceNameError>(&parsed)) {
    if (error->Text.empty()) std::abort();
    return 0;
  }
  const auto& name = std::get<ResourceName>(parsed);
  const std::string canonical = name.Canonical();
  const auto again = ResourceName::Parse(canonical);
  const auto* same = std::get_if<ResourceName>(&again);
  if (same == nullptr || same->Kind() != name.Kind() || same->Canonical() != canonical) std::abort();
  return 0;
}
