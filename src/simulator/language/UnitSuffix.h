#pragma once

#include <optional>
#include <string_view>

namespace portico::simulator {

/// What a numeric parameter measures, and with it which units may follow the number.
enum class Quantity { None, Voltage, Current, Resistance, Time, Frequency };

/// The factor that a unit such as `MV` or `KOHM`, in any case, stands for; none if it is not one of the quantity's.
std::optional<double> UnitFactor(Quantity quantity, std::string_view unit);

} // namespace portico::simulator
