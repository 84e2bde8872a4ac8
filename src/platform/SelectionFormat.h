#pragma once

#include "framework/text.h"

#include <cstdint>
#include <optional>

namespace portico {

/// The formatting of a selection. A value that is not set means, read, that the selection is mixed; written, that the
/// value stays. Lengths are in twips, a twentieth of a point.
struct SelectionFormat {
  // Of paragraphs.
  std::optional<std::int32_t> SelAlignment; ///< 0 left, 1 right, 2 centred
  std::optional<bool> SelBullet;
  std::optional<std::int32_t> SelHangingIndent;
  std::optional<std::int32_t> SelIndent;
  std::optional<std::int32_t> SelRightIndent;
  // Of characters.
  std::optional<bool> SelBold;
  std::optional<std::int32_t> SelCharOffset; ///< above the base line; below it if negative
  std::optional<std::int32_t> SelColor;      ///< 0x00BBGGRR
  std::optional<String> SelFontName;
  std::optional<double> SelFontSize; ///< points
  std::optional<bool> SelItalic;
  std::optional<bool> SelStrikeThru;
  std::optional<bool> SelUnderline;

  bool operator==(const SelectionFormat&) const = default;
};

} // namespace portico
