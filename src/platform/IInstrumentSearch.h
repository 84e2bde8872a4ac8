#pragma once

#include "framework/text/text.h"

#include <memory>
#include <vector>

namespace portico {

struct FoundInstrument {
  String Name;
  /// What it says of itself, on one line; empty if it says nothing.
  String Description;
};

/// Asks around for instruments whose answers take their time. Nothing here waits for anything. Where there is nobody to
/// ask, nothing is found, which is no failure.
class IInstrumentSearch {
public:
  virtual ~IInstrumentSearch() = default;

  /// Forgets what was not taken, and asks anew for all that no name of `known` opens, however it is spelt.
  virtual void Start(const std::vector<String>& known) = 0;
  /// What has come since it was last asked. Each instrument comes once.
  virtual std::vector<FoundInstrument> Take() = 0;
  /// From now on nothing comes until the next start.
  virtual void Stop() noexcept = 0;
};
extern std::shared_ptr<IInstrumentSearch> gInstrumentSearch;

} // namespace portico
