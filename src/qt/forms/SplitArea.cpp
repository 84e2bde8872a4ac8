#include "qt/forms/SplitArea.h"

#include <memory>

namespace portico::qt {

SplitArea::SplitArea(const ControlDesign& design, const std::shared_ptr<FormLife>& life, QWidget& widget)
    : PlacedControl(design, life, widget),
      m_splitter({.Kind = ControlKind::PictureBox, .Name = u"Splitter"}, life, *new QWidget(&widget)) {
  widget.resize(0, 0);
}

void SplitArea::Put(const QRect& place) {
  const QSize before = Widget().size();
  PlacedControl::Put(place);
  if (Widget().size() != before) Fire(m_resize);
}

} // namespace portico::qt
