#pragma once

#include "platform/IInstrumentSearch.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace portico::discovery {

/// Of one search, so that no network can make it grow without end.
inline constexpr std::size_t MostListed = 1000;

/// An instrument for the list, out of bytes that came from elsewhere. `name` is in canonical form; one that does not
/// read back as it stands, because of what a part of it holds, is none. Of the facts, such as maker and model, those
/// that are not empty are told, with question marks for control characters.
std::optional<FoundInstrument> ListedInstrument(std::string_view name, const std::vector<std::string>& facts);

} // namespace portico::discovery
