#include "simulator/language/UnitSuffix.h"

#include "scpi/Syntax.h"

#include <algorithm>
#include <array>
#include <string>

namespace portico::simulator {
namespace {

struct Multiplier {
  std::string_view Prefix;
  double Factor;
};

// IEEE 488.2, 7.7.3: M is milli, so that mega is MA.
constexpr auto Multipliers = std::to_array<Multiplier>({
    {"", 1.0},
    {"EX", 1E18},
    {"PE", 1E15},
    {"T", 1E12},
    {"G", 1E9},
    {"MA", 1E6},
    {"K", 1E3},
    {"M", 1E-3},
    {"U", 1E-6},
    {"N", 1E-9},
    {"P", 1E-12},
    {"F", 1E-15},
    {"A", 1E-18},
});

std::string_view NameOf(Quantity quantity) {
  switch (quantity) {
  case Quantity::Voltage:
    return "V";
  case Quantity::Current:
    return "A";
  case Quantity::Resistance:
    return "OHM";
  case Quantity::Time:
    return "S";
  case Quantity::Frequency:
    return "HZ";
  case Quantity::None:
    break;
  }
  return "";
}

} // namespace

std::optional<double> UnitFactor(Quantity quantity, std::string_view unit) {
  const std::string_view name = NameOf(quantity);
  if (name.empty()) return std::nullopt;
  std::string upper(unit);
  std::transform(upper.begin(), upper.end(), upper.begin(), scpi::ToUpper);
  if (!upper.ends_with(name)) return std::nullopt;
  // The two exceptions of the standard: nobody means milliohm or millihertz.
  if (upper == "MOHM" || upper == "MHZ") return 1E6;
  const std::string_view prefix = std::string_view(upper).substr(0, upper.size() - name.size());
  const auto found = std::find_if(Multipliers.begin(), Multipliers.end(),
                                  [prefix](const Multiplier& multiplier) { return multiplier.Prefix == prefix; });
  if (found == Multipliers.end()) return std::nullopt;
  return found->Factor;
}

} // namespace portico::simulator
