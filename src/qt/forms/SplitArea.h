#pragma once

#include "platform/IPictureBox.h"
#include "qt/controls/Control.h"
#include "qt/controls/PictureBox.h"

#include <memory>

namespace portico::qt {

/// A field in which other controls are placed, and a bar.
class SplitArea final : public PlacedControl, public virtual ISplitArea {
public:
  SplitArea(const ControlDesign& design, const std::shared_ptr<FormLife>& life, QWidget& widget);

  double ScaleWidth() const override { return Width(); }
  double ScaleHeight() const override { return Height(); }
  IPictureBox& Splitter() override { return m_splitter; }
  Event<>& Resize() override { return m_resize; }

protected:
  /// Fires `Resize` at once: the toolkit would wait until the field is seen.
  void Put(const QRect& place) override;

private:
  PictureBox m_splitter;
  Event<> m_resize;
};

} // namespace portico::qt
