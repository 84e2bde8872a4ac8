#pragma once

#include "framework/errors/Value.h"
#include "platform/IPictureBox.h"

#include <cstdint>

namespace portico {

/// Where a control's properties are kept. Reading gives the default for what is not kept; writing passes over what
/// equals the default.
class IPropertyBag {
public:
  virtual ~IPropertyBag() = default;
  virtual Value ReadProperty(StringView Name, const Value& Default) = 0;
  virtual void WriteProperty(StringView Name, const Value& NewValue, const Value& Default) = 0;
};

/// A percentage as it is kept; a number that is no byte raises `Overflow`.
std::uint8_t ToPercent(const Value& value);

/// Shows two controls with a bar between them that the mouse can drag. Made and owned by the window that it stands in;
/// the area must outlive it. It owns neither of the two controls, which must lie in the area and outlive it too.
/// A size too small for them disturbs nobody.
class SplitPanel final {
public:
  explicit SplitPanel(ISplitArea& area);
  ~SplitPanel();
  SplitPanel(const SplitPanel&) = delete;
  SplitPanel& operator=(const SplitPanel&) = delete;

  /// True: the bar lies, `Control1` above it. False, as at creation: the bar stands, `Control1` to its left.
  bool HorizontalSplit() const { return m_horizontalSplit; }
  void HorizontalSplit(bool newValue);
  IPlaced* Control1() const { return m_control1; }
  void Control1(IPlaced* newValue);
  IPlaced* Control2() const { return m_control2; }
  void Control2(IPlaced* newValue);
  /// The share of `Control1`, rounded to the nearest whole percentage. Any value can be set: a mouse alone is kept
  /// between 10 and 90.
  std::uint8_t SplitPercent() const;
  void SplitPercent(std::uint8_t newValue);
  /// The thickness of the bar in form units, at most the width of the area at the time it is set.
  std::uint8_t SplitWidth() const { return static_cast<std::uint8_t>(m_splitWidth); }
  void SplitWidth(std::uint8_t newValue);

  /// What a new panel begins with.
  void InitProperties();
  // Part of the contract; nothing in the program keeps a panel in a property bag. The window stores the share itself.
  /// The direction and the share; a value that cannot be taken leaves what there was.
  void ReadProperties(IPropertyBag& PropBag);
  void WriteProperties(IPropertyBag& PropBag);
  /// A property to be kept has been set since the properties were last made, read or written.
  bool IsChanged() const { return m_changed; }

  // What the toolkit calls.
  void UserControl_Resize();
  void Splitter_MouseDown();
  /// `X` and `Y` come as the mouse's place in the bar; the one along which the bar moves
  /// is set to the bar's new place.
  void Splitter_MouseMove(std::int32_t Button, std::int32_t Shift, double& X, double& Y);
  void Splitter_MouseUp();

private:
  void MarkChanged();
  void ShowPointer();
  void LayOut();
  void MoveBar(double position);

  ISplitArea& m_area;
  IPictureBox& m_splitter;
  IPlaced* m_control1 = nullptr;
  IPlaced* m_control2 = nullptr;
  bool m_horizontalSplit = false;
  float m_fraction = 0;
  std::int32_t m_splitWidth = 0;
  bool m_changed = false;
  struct Connections {
    Event<>::Connection Resize;
    Event<const MouseEvent&>::Connection Down;
    Event<const MouseEvent&>::Connection Move;
    Event<const MouseEvent&>::Connection Up;
  } m_connections{};
};

} // namespace portico
