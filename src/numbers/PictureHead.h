#pragma once

#include "numbers/Fault.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

namespace portico::numbers {

enum class PictureFormat : std::uint8_t { Png, Bmp, Jpeg, Gif };

/// What the files of a format end in, without the dot.
std::string_view SuffixOf(PictureFormat format);

/// The format of a picture whose head tells how large it is, whatever that is; none of other bytes.
std::optional<PictureFormat> FindPictureFormat(std::string_view bytes);

/// What the first bytes of a picture tell.
struct PictureHead {
  PictureFormat Format;
  std::uint32_t Width; ///< in pixels, neither of them 0
  std::uint32_t Height;
};

/// A picture that is larger is not shown: nobody makes room for what a head promises.
inline constexpr std::uint32_t LargestPictureSide = 16'384;
inline constexpr std::uint64_t MostPicturePixels = std::uint64_t{32} * 1024 * 1024;

/// The head of a picture that may be shown. A fault's place counts bytes. Nothing is allocated, whatever is promised.
std::variant<PictureHead, Fault> ReadPictureHead(std::string_view bytes);

} // namespace portico::numbers
