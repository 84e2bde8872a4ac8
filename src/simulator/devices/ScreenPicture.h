#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace portico::simulator {

/// What stands on the screen of an oscilloscope: a graticule of ten by eight divisions, and traces.
class ScreenPicture {
public:
  static constexpr std::size_t Width = 320;
  static constexpr std::size_t Height = 200;

  ScreenPicture();
  /// A record from edge to edge, one byte a point, in the colour of a channel, counted from 0.
  void Trace(std::size_t channel, std::string_view codes);
  /// As a BMP file of four bits a pixel.
  std::string Bmp() const;

private:
  void Set(std::size_t x, std::size_t y, std::uint8_t color) { m_pixels[y * Width + x] = color; }

  std::array<std::uint8_t, Width * Height> m_pixels{}; // from the top; numbers of colours
};

} // namespace portico::simulator
