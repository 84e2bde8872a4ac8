#include "qt/desktop/MessageBox.h"

#include "qt/desktop/Dialogs.h"
#include "qt/values/QtText.h"

#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>

namespace portico::qt {
namespace {

constexpr qsizetype MostLines = 20;
constexpr qsizetype LongestText = 1500;
constexpr int WidestText = 640; // pixels

QMessageBox::Icon IconFor(MessageBoxIcon icon) {
  switch (icon) {
  case MessageBoxIcon::Question:
    return QMessageBox::Question;
  case MessageBoxIcon::Information:
    return QMessageBox::Information;
  case MessageBoxIcon::None:
    break;
  }
  return QMessageBox::NoIcon;
}

/// Puts the text of a box that would be too high into a field that scrolls.
void LetScroll(QMessageBox& box) {
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr) return;
  auto* area = new QScrollArea(&box);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  delete box.layout()->replaceWidget(label, area);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  area->setWidget(label);
  const QSize screen = box.screen()->availableSize();
  const int width = std::min(WidestText, screen.width() / 2);
  area->setMinimumSize(width, std::min(label->heightForWidth(width), screen.height() / 2));
  box.setSizeGripEnabled(true);
}

} // namespace

MessageBoxAnswer MessageBox::Show(const String& Prompt, const String& Title, MessageBoxButtons Buttons,
                                  MessageBoxIcon Icon) {
  QMessageBox box;
  box.setObjectName(QStringLiteral("messageBox"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(IconFor(Icon));
  box.setWindowTitle(ToQt(Title));
  box.setText(ToQt(ReplaceAll(Prompt, NewLine, u"\n")));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  box.setStandardButtons(Buttons == MessageBoxButtons::YesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  if (box.text().count('\n') >= MostLines || box.text().size() > LongestText) LetScroll(box);
  switch (Exec(box, m_loop)) {
  case QMessageBox::Yes:
    return MessageBoxAnswer::Yes;
  case QMessageBox::No:
    return MessageBoxAnswer::No;
  default:
    return Buttons == MessageBoxButtons::YesNo ? MessageBoxAnswer::No : MessageBoxAnswer::OK;
  }
}

} // namespace portico::qt
