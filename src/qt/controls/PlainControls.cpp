#include "qt/controls/PlainControls.h"

#include "qt/values/QtText.h"

#include <memory>
#include <utility>

namespace portico::qt {

Label::Label(const ControlDesign& design, std::shared_ptr<FormLife> life, QLabel& label)
    : WidgetControl(design, std::move(life), label), m_label(label) {
  label.setTextFormat(Qt::PlainText);
  Label::ShowCaption();
}

void Label::ShowCaption() {
  m_label.setText(ToQt(Caption()));
  m_label.setAccessibleName(Spoken(Caption()));
}

Frame::Frame(const ControlDesign& design, std::shared_ptr<FormLife> life, QGroupBox& box)
    : WidgetControl(design, std::move(life), box), m_box(box) {
  Frame::ShowCaption();
}

void Frame::ShowCaption() {
  m_box.setTitle(ToQt(Caption()));
  m_box.setAccessibleName(Spoken(Caption()));
}

Page::Page(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget)
    : WidgetControl(design, std::move(life), widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

void Page::Left(double newValue) {
  m_left = newValue;
  ShowVisible();
}

void Page::ShowVisible() { Widget().setVisible(Visible() && m_left >= 0); }

} // namespace portico::qt
