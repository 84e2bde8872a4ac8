#include "numbers/PictureHead.h"

#include <algorithm>
#include <array>

namespace portico::numbers {
namespace {

struct Size {
  std::uint64_t Width;
  std::uint64_t Height;
};

std::uint8_t ByteAt(std::string_view bytes, std::size_t place) { return static_cast<std::uint8_t>(bytes[place]); }

std::uint32_t BigEndian(std::string_view bytes, std::size_t place, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i) value = value << 8 | ByteAt(bytes, place + i);
  return value;
}

std::uint32_t LittleEndian(std::string_view bytes, std::size_t place, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = count; i > 0; --i) value = value << 8 | ByteAt(bytes, place + i - 1);
  return value;
}

std::optional<Size> SizeOfPng(std::string_view bytes) {
  constexpr std::size_t end = 24;
  if (bytes.size() < end || bytes.substr(12, 4) != "IHDR") return {};
  return Size{BigEndian(bytes, 16, 4), BigEndian(bytes, 20, 4)};
}

/// A height below 0 says that the rows stand from top to bottom.
std::uint64_t Magnitude(std::uint32_t side) {
  return side > 0x7FFF'FFFF ? (std::uint64_t{1} << 32) - side : std::uint64_t{side};
}

std::optional<Size> SizeOfBmp(std::string_view bytes) {
  constexpr std::size_t oldHead = 12; // which has sides of two bytes
  constexpr std::size_t longestHead = 124;
  if (bytes.size() < 26) return {};
  const std::uint32_t head = LittleEndian(bytes, 14, 4);
  if (head == oldHead) return Size{LittleEndian(bytes, 18, 2), LittleEndian(bytes, 20, 2)};
  if (head < 40 || head > longestHead) return {};
  return Size{LittleEndian(bytes, 18, 4), Magnitude(LittleEndian(bytes, 22, 4))};
}

std::optional<Size> SizeOfGif(std::string_view bytes) {
  if (bytes.size() < 10) return {};
  return Size{LittleEndian(bytes, 6, 2), LittleEndian(bytes, 8, 2)};
}

/// The segment that tells the size stands behind others, in front of the first scan.
std::optional<Size> SizeOfJpeg(std::string_view bytes) {
  constexpr std::uint8_t fill = 0xFF;
  std::size_t place = 2;
  while (place + 4 <= bytes.size() && ByteAt(bytes, place) == fill) {
    const std::uint8_t marker = ByteAt(bytes, place + 1);
    if (marker == fill) {
      ++place;
      continue;
    }
    const bool isFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    if (isFrame && place + 9 <= bytes.size()) {
      return Size{BigEndian(bytes, place + 7, 2), BigEndian(bytes, place + 5, 2)};
    }
    const std::uint32_t length = BigEndian(bytes, place + 2, 2);
    const bool isScan = marker == 0xDA || marker == 0xD9;
    if (isFrame || isScan) return {};
    place += 2 + length;
  }
  return {};
}

struct Kind {
  std::string_view Start;
  PictureFormat Format;
  std::optional<Size> (*SizeOf)(std::string_view bytes);
};

constexpr std::array Kinds = {
    Kind{"\x89PNG\r\n\x1A\n", PictureFormat::Png, SizeOfPng},
    Kind{"BM", PictureFormat::Bmp, SizeOfBmp},
    Kind{"\xFF\xD8\xFF", PictureFormat::Jpeg, SizeOfJpeg},
    Kind{"GIF87a", PictureFormat::Gif, SizeOfGif},
    Kind{"GIF89a", PictureFormat::Gif, SizeOfGif},
};

const Kind* KindOf(std::string_view bytes) {
  const auto* found =
      std::find_if(Kinds.begin(), Kinds.end(), [bytes](const Kind& kind) { return bytes.starts_with(kind.Start); });
  return found == Kinds.end() ? nullptr : found;
}

bool HasArea(const std::optional<Size>& size) { return size && size->Width > 0 && size->Height > 0; }

} // namespace

std::string_view SuffixOf(PictureFormat format) {
  constexpr std::array<std::string_view, 4> suffixes = {"png", "bmp", "jpg", "gif"};
  return suffixes[static_cast<std::size_t>(format)];
}

std::optional<PictureFormat> FindPictureFormat(std::string_view bytes) {
  const Kind* const kind = KindOf(bytes);
  if (kind == nullptr || !HasArea(kind->SizeOf(bytes))) return {};
  return kind->Format;
}

std::variant<PictureHead, Fault> ReadPictureHead(std::string_view bytes) {
  const Kind* const kind = KindOf(bytes);
  if (kind == nullptr) {
    return Fault{0, u"The answer is no picture: it begins neither as PNG nor as BMP, JPEG or GIF."};
  }
  const auto size = kind->SizeOf(bytes);
  if (!HasArea(size)) {
    return Fault{kind->Start.size(), u"The picture is broken: it does not tell how large it is."};
  }
  if (size->Width > LargestPictureSide || size->Height > LargestPictureSide ||
      size->Width * size->Height > MostPicturePixels) {
    return Fault{kind->Start.size(), u"The picture is too large: it has " +
                                         ToText(static_cast<std::int64_t>(size->Width)) + u" by " +
                                         ToText(static_cast<std::int64_t>(size->Height)) + u" pixels."};
  }
  return PictureHead{kind->Format, static_cast<std::uint32_t>(size->Width), static_cast<std::uint32_t>(size->Height)};
}

} // namespace portico::numbers
