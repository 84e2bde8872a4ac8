#include "qt/controls/TextBox.h"

#include "qt/values/QtText.h"

#include <QSignalBlocker>

#include <memory>
#include <utility>

namespace portico::qt {

TextBox::TextBox(const ControlDesign& design, std::shared_ptr<FormLife> life, QLineEdit& edit)
    : TabStopControl(design, std::move(life), edit), m_edit(edit) {
  edit.setText(ToQt(design.Caption));
  QObject::connect(&edit, &QLineEdit::textChanged, &edit, [this] { EnterAndFire(m_change); });
}

String TextBox::Text() const { return FromQt(m_edit.text()); }

void TextBox::Text(const String& newValue) {
  if (newValue == Text()) return;
  {
    const QSignalBlocker quiet(m_edit);
    m_edit.setText(ToQt(newValue));
  }
  Fire(m_change);
}

} // namespace portico::qt
