#pragma once

#include "platform/IPictureBox.h"
#include "qt/controls/Control.h"
#include "qt/loop/EventFilter.h"

#include <QIcon>

#include <memory>

namespace portico::qt {

/// A borderless field in a colour, with a picture in the middle if it was designed with one.
class PictureBox final : public PlacedControl, public virtual IPictureBox {
public:
  /// The widget is a plain one; the box paints it.
  PictureBox(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget);

  void BackColor(std::int32_t newValue) override;
  void MousePointer(std::int32_t shape) override;
  void BringToFront() override { Widget().raise(); }
  Event<const MouseEvent&>& MouseDown() override { return m_mouse.Down; }
  Event<const MouseEvent&>& MouseMove() override { return m_mouse.Move; }
  Event<const MouseEvent&>& MouseUp() override { return m_mouse.Up; }

private:
  bool Handle(QEvent& event);
  void Paint() const;

  EventFilter m_filter;
  QIcon m_image;
  std::int32_t m_backColor = SystemButtonFace;
  MouseEvents m_mouse;
};

} // namespace portico::qt
