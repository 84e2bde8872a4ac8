#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace portico::logtool {

/// For each of A the place in B of what it is aligned with, if anything: equal numbers, in the order of both, as many
/// as there can be while the two are alike. Of texts that have nothing to do with each other as many as are found at a
/// cost of a few hundred steps for each number.
std::vector<std::optional<std::size_t>> Align(std::span<const std::size_t> a, std::span<const std::size_t> b);

} // namespace portico::logtool
