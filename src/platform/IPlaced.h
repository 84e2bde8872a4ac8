#pragma once

namespace portico {

/// A form unit is a fifteenth of a pixel.
inline constexpr double FormUnitsPerPixel = 15;

/// Something that has a place in the area that holds it, in form units. A width or a height below 0 raises
/// `BadPropertyValue`.
class IPlaced {
public:
  virtual ~IPlaced() = default;

  virtual double Left() const = 0;
  virtual void Left(double newValue) = 0;
  virtual double Top() const = 0;
  virtual void Top(double newValue) = 0;
  virtual double Width() const = 0;
  virtual void Width(double newValue) = 0;
  virtual double Height() const = 0;
  virtual void Height(double newValue) = 0;
  virtual void Move(double Left, double Top, double Width, double Height) = 0;
};

} // namespace portico
