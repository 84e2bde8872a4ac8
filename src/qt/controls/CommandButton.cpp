#include "qt/controls/CommandButton.h"

#include "qt/values/QtText.h"

#include <memory>
#include <utility>

namespace portico::qt {

CommandButton::CommandButton(const ControlDesign& design, std::shared_ptr<FormLife> life, QPushButton& button)
    : TabStopControl(design, std::move(life), button), m_button(button) {
  CommandButton::ShowCaption();
  button.setDefault(design.IsDefault);
  QObject::connect(&button, &QPushButton::clicked, &button, [this] { EnterAndFire(m_click); });
}

void CommandButton::ShowCaption() {
  m_button.setText(ToQt(Caption()));
  m_button.setAccessibleName(Spoken(Caption()));
}

} // namespace portico::qt
