#pragma once

#include "platform/IPlaced.h"
#include "platform/shared/Checks.h"

namespace portico::memory {

/// Where something stands, in form units.
struct Place {
  double Left = 0;
  double Top = 0;
  double Width = 0;
  double Height = 0;

  bool operator==(const Place&) const = default;
};

/// Something that stays where it has been put.
class Placement : public virtual IPlaced {
public:
  double Left() const override { return Shown().Left; }
  void Left(double newValue) override { Put({newValue, m_place.Top, m_place.Width, m_place.Height}); }
  double Top() const override { return Shown().Top; }
  void Top(double newValue) override { Put({m_place.Left, newValue, m_place.Width, m_place.Height}); }
  double Width() const override { return Shown().Width; }
  void Width(double newValue) override { Put({m_place.Left, m_place.Top, newValue, m_place.Height}); }
  double Height() const override { return Shown().Height; }
  void Height(double newValue) override { Put({m_place.Left, m_place.Top, m_place.Width, newValue}); }
  void Move(double Left, double Top, double Width, double Height) override { Put({Left, Top, Width, Height}); }

protected:
  explicit Placement(const Place& place) : m_place(place) {}

  /// What was put last.
  const Place& Chosen() const { return m_place; }
  /// What is seen of it.
  virtual Place Shown() const { return m_place; }
  /// Called after each change of the size.
  virtual void Resized() {}

private:
  void Put(const Place& place) {
    CheckSize(place.Width);
    CheckSize(place.Height);
    const bool isResize = place.Width != m_place.Width || place.Height != m_place.Height;
    m_place = place;
    if (isResize) Resized();
  }

  Place m_place;
};

} // namespace portico::memory
