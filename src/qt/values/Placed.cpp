#include "qt/values/Placed.h"

#include "platform/shared/Checks.h"

#include <algorithm>
#include <cmath>

namespace portico::qt {
namespace {

constexpr double FarthestPixel = 100000; // the toolkit's widgets end far above it

} // namespace

int Placed::Pixels(double units) {
  const double pixels = std::round(units / FormUnitsPerPixel);
  return static_cast<int>(std::clamp(std::isnan(pixels) ? 0 : pixels, -FarthestPixel, FarthestPixel));
}

int Placed::PixelSize(double units) {
  CheckSize(units);
  return Pixels(units);
}

void Placed::Left(double newValue) {
  const QRect place = Place();
  Put({Pixels(newValue), place.y(), place.width(), place.height()});
}

void Placed::Top(double newValue) {
  const QRect place = Place();
  Put({place.x(), Pixels(newValue), place.width(), place.height()});
}

void Placed::Width(double newValue) {
  const QRect place = Place();
  Put({place.x(), place.y(), PixelSize(newValue), place.height()});
}

void Placed::Height(double newValue) {
  const QRect place = Place();
  Put({place.x(), place.y(), place.width(), PixelSize(newValue)});
}

void Placed::Move(double Left, double Top, double Width, double Height) {
  Put({Pixels(Left), Pixels(Top), PixelSize(Width), PixelSize(Height)});
}

} // namespace portico::qt
