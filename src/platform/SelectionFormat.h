#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace portico {

/// Lengths are in twips, a twentieth of a point, and reach 22 inches either way.
inline constexpr std::int32_t FarthestTwips = 31680;
/// What a font size, in points, and a character offset are rounded to, since a fragment carries no less.
inline constexpr std::int32_t TwipsPerHalfPoint = 10;
inline constexpr double SmallestFontSize = 0.5;
inline constexpr double LargestFontSize = 1638;
inline constexpr std::size_t LongestFontName = 100;

/// The formatting of a selection. A value that is not set means, read, that the selection is mixed; written, that the
/// value stays.
struct SelectionFormat {
  // Of paragraphs.
  std::optional<std::int32_t> SelAlignment = {}; ///< 0 left, 1 right, 2 centred
  std::optional<bool> SelBullet = {};
  std::optional<std::int32_t> SelHangingIndent = {}; ///< of the further lines, from the first one's left edge on
  std::optional<std::int32_t> SelIndent = {};        ///< of the first line
  std::optional<std::int32_t> SelRightIndent = {};
  // Of characters.
  std::optional<bool> SelBold = {};
  std::optional<std::int32_t> SelCharOffset = {}; ///< above the base line; below it if negative
  std::optional<std::int32_t> SelColor = {};      ///< 0x00BBGGRR
  std::optional<String> SelFontName = {};         ///< not empty
  std::optional<double> SelFontSize = {};         ///< points
  std::optional<bool> SelItalic = {};
  std::optional<bool> SelStrikeThru = {};
  std::optional<bool> SelUnderline = {};

  bool operator==(const SelectionFormat&) const = default;
};

} // namespace portico
