#include "drivers/standard/ChosenDriver.h"

#include "drivers/loaded/LoadedDriver.h"
#include "drivers/standard/DriverRouter.h"
#include "drivers/standard/StandardDriver.h"

#include <cstdlib>
#include <utility>
#include <variant>

namespace portico::drivers {

ChosenDriver ChooseDriver(const SessionOptions& options, simulator::ReplayMaker makeReplay) {
  auto own = StandardDriver(options, std::move(makeReplay));
  const char* const name = std::getenv("PORTICO_DRIVER");
  if (name == nullptr || *name == '\0') return {std::move(own)};
  auto library = LoadDriverLibrary(name);
  if (auto* error = std::get_if<DriverLibraryError>(&library)) {
    const std::string notice = "The driver library that PORTICO_DRIVER names could not be loaded: " + error->Text +
                               ". Until that is put right, only simulated instruments open.";
    DriverResult refusal = {DriverStatus::LibraryNotLoaded, std::move(error->Text)};
    return {std::make_shared<DriverRouter>(std::move(own), std::move(refusal)), notice};
  }
  auto loaded =
      std::make_shared<LoadedDriver>(std::get<DriverFunctions>(library), options.Observer, options.Cancellation);
  return {std::make_shared<DriverRouter>(std::move(own), std::move(loaded))};
}

} // namespace portico::drivers
