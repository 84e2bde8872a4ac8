#include "qt/controls/CheckBox.h"

#include "platform/shared/Checks.h"
#include "qt/values/QtText.h"

#include <QSignalBlocker>

#include <memory>
#include <utility>

namespace portico::qt {

CheckBox::CheckBox(const ControlDesign& design, std::shared_ptr<FormLife> life, QCheckBox& box)
    : TabStopControl(design, std::move(life), box), m_box(box) {
  CheckBox::ShowCaption();
  QObject::connect(&box, &QCheckBox::stateChanged, &box, [this] {
    m_box.setTristate(false);
    EnterAndFire(m_click);
  });
}

std::int32_t CheckBox::Value() const {
  switch (m_box.checkState()) {
  case Qt::Unchecked:
    return portico::Unchecked;
  case Qt::Checked:
    return portico::Checked;
  default:
    return portico::Grayed;
  }
}

void CheckBox::Value(std::int32_t newValue) {
  CheckValue(newValue, portico::Unchecked, portico::Grayed);
  if (newValue == Value()) return;
  {
    const QSignalBlocker quiet(m_box);
    m_box.setCheckState(newValue == portico::Grayed    ? Qt::PartiallyChecked
                        : newValue == portico::Checked ? Qt::Checked
                                                       : Qt::Unchecked);
    m_box.setTristate(newValue == portico::Grayed);
  }
  Fire(m_click);
}

void CheckBox::ShowCaption() {
  m_box.setText(ToQt(Caption()));
  m_box.setAccessibleName(Spoken(Caption()));
}

} // namespace portico::qt
