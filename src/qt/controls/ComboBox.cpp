#include "qt/controls/ComboBox.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/shared/Checks.h"
#include "qt/values/QtText.h"

#include <QLineEdit>
#include <QSignalBlocker>

#include <memory>
#include <optional>
#include <utility>

namespace portico::qt {
namespace {

constexpr int TypedCharacters = 40; // an instrument's whole name can be seen

/// What is typed in a line, with its selection and the cursor.
struct TypedLine {
  explicit TypedLine(const QLineEdit& line)
      : Text(line.text()),
        Cursor(line.cursorPosition()),
        Selected(line.hasSelectedText()),
        Start(line.selectionStart()),
        End(line.selectionEnd()) {}

  void Restore(QLineEdit& line) const {
    line.setText(Text);
    line.setCursorPosition(Cursor);
    if (Selected) line.setSelection(Cursor == Start ? End : Start, Cursor == Start ? Start - End : End - Start);
  }

  QString Text;
  int Cursor;
  bool Selected;
  int Start;
  int End;
};

} // namespace

ComboBox::ComboBox(const ControlDesign& design, std::shared_ptr<FormLife> life, QComboBox& box)
    : TabStopControl(design, std::move(life), box), m_box(box) {
  box.setInsertPolicy(QComboBox::NoInsert);
  box.setSizeAdjustPolicy(QComboBox::AdjustToContents);
  if (design.Tag == TypedTag) {
    box.setEditable(true);
    box.setMinimumContentsLength(TypedCharacters);
    box.setCompleter(nullptr); // what is typed stays as it is
    box.setEditText(ToQt(design.Caption));
  }
  QObject::connect(&box, &QComboBox::currentTextChanged, &box, [this] { EnterAndFire(m_change); });
  QObject::connect(&box, &QComboBox::currentIndexChanged, &box, [this] { EnterAndFire(m_click); });
}

String ComboBox::Text() const { return FromQt(m_box.currentText()); }

void ComboBox::Text(const String& newValue) {
  if (newValue == Text()) return;
  if (!m_box.isEditable()) {
    const int index = m_box.findText(ToQt(newValue), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
    return ListIndex(index);
  }
  {
    const QSignalBlocker quiet(m_box);
    m_box.setEditText(ToQt(newValue));
  }
  Fire(m_change);
}

void ComboBox::AddItem(const String& item) {
  // The toolkit selects the first entry by itself.
  const QSignalBlocker quiet(m_box);
  const int selected = m_box.currentIndex();
  const std::optional<TypedLine> typed =
      m_box.isEditable() ? std::optional<TypedLine>(*m_box.lineEdit()) : std::nullopt;
  m_box.addItem(ToQt(item));
  if (m_box.currentIndex() == selected) return;
  m_box.setCurrentIndex(selected);
  if (typed) typed->Restore(*m_box.lineEdit());
}

String ComboBox::List(std::int32_t index) const { return FromQt(m_box.itemText(index)); }

std::int32_t ComboBox::ListIndex() const {
  const int index = m_box.currentIndex();
  return index >= 0 && m_box.currentText() == m_box.itemText(index) ? index : -1;
}

void ComboBox::ListIndex(std::int32_t newValue) {
  CheckValue(newValue, -1, m_box.count() - 1);
  if (newValue == ListIndex()) return;
  const String text = Text();
  {
    const QSignalBlocker quiet(m_box);
    m_box.setCurrentIndex(newValue);
    if (m_box.isEditable()) m_box.setEditText(m_box.itemText(newValue));
  }
  if (Text() != text) Fire(m_change);
  Fire(m_click);
}

} // namespace portico::qt
