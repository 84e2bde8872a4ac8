#include "simulator/devices/ScreenPicture.h"

#include "simulator/devices/WaveformRecord.h"

#include <algorithm>

namespace portico::simulator {
namespace {

constexpr std::size_t DivisionAcross = 32;
constexpr std::size_t DivisionDown = 25; // one code of a record is one pixel
constexpr std::uint8_t GridColor = 1;
constexpr std::uint8_t FirstTraceColor = 2;

/// Blue, green, red: ground, grid, and one for each channel.
constexpr std::array<std::array<std::uint8_t, 3>, 16> Colors = {{{0x10, 0x10, 0x10},
                                                                 {0x60, 0x60, 0x60},
                                                                 {0x20, 0xE0, 0xFF},
                                                                 {0xFF, 0xE0, 0x30},
                                                                 {0xE0, 0x60, 0xFF},
                                                                 {0x60, 0xE0, 0x60}}};

void Append(std::string& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> 8 * i & 0xFF);
}

} // namespace

ScreenPicture::ScreenPicture() {
  for (std::size_t y = 0; y < Height; ++y) {
    for (std::size_t x = 0; x < Width; ++x) {
      if ((x % DivisionAcross == 0 && y % 5 == 0) || (y % DivisionDown == 0 && x % 4 == 0)) Set(x, y, GridColor);
    }
  }
}

void ScreenPicture::Trace(std::size_t channel, std::string_view codes) {
  if (codes.empty()) return;
  const auto color = static_cast<std::uint8_t>(FirstTraceColor + channel);
  const auto row = [&](std::size_t x) {
    const auto code = static_cast<std::uint8_t>(codes[x * codes.size() / Width]);
    const auto y =
        static_cast<std::ptrdiff_t>(Height / 2) + static_cast<std::ptrdiff_t>(WaveformScale::CentreCode) - code;
    return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(y, 0, Height - 1));
  };
  std::size_t before = row(0);
  for (std::size_t x = 0; x < Width; ++x) {
    const std::size_t now = row(x);
    for (std::size_t y = std::min(before, now); y <= std::max(before, now); ++y) Set(x, y, color);
    before = now;
  }
}

std::string ScreenPicture::Bmp() const {
  constexpr std::uint32_t heads = 14 + 40 + 4 * Colors.size();
  constexpr std::uint32_t pixels = Width / 2 * Height;
  std::string file = "BM";
  file.reserve(heads + pixels);
  Append(file, heads + pixels, 4);
  Append(file, 0, 4);
  Append(file, heads, 4);
  Append(file, 40, 4); // of the head that follows
  Append(file, Width, 4);
  Append(file, Height, 4);
  Append(file, 1, 2); // plane
  Append(file, 4, 2); // bits a pixel
  Append(file, 0, 4); // not compressed
  Append(file, pixels, 4);
  for (int i = 0; i < 4; ++i) Append(file, 0, 4); // no resolution; all colours
  for (const auto& color : Colors) {
    for (const std::uint8_t part : color) file += static_cast<char>(part);
    file += '\0';
  }
  for (std::size_t y = Height; y-- > 0;) { // from the bottom
    for (std::size_t x = 0; x < Width; x += 2) {
      file += static_cast<char>(m_pixels[y * Width + x] << 4 | m_pixels[y * Width + x + 1]);
    }
  }
  return file;
}

} // namespace portico::simulator
