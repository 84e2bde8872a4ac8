#pragma once

#include "platform/IPlaced.h"

#include <QRect>

namespace portico::qt {

/// A widget that stands where it is put, to the pixel.
class Placed : public virtual IPlaced {
public:
  double Left() const override { return Units(Place().x()); }
  void Left(double newValue) override;
  double Top() const override { return Units(Place().y()); }
  void Top(double newValue) override;
  double Width() const override { return Units(Place().width()); }
  void Width(double newValue) override;
  double Height() const override { return Units(Place().height()); }
  void Height(double newValue) override;
  void Move(double Left, double Top, double Width, double Height) override;

  static double Units(int pixels) { return pixels * FormUnitsPerPixel; }
  /// To the nearest pixel, halves away from zero; a size below 0 raises `BadPropertyValue`.
  static int Pixels(double units);
  static int PixelSize(double units);

protected:
  virtual QRect Place() const = 0;
  virtual void Put(const QRect& place) = 0;
};

} // namespace portico::qt
