#include "qt/desktop/Progress.h"

#include "framework/shared/Application.h"
#include "qt/desktop/Dialogs.h"
#include "qt/loop/EventLoop.h"
#include "qt/values/QtText.h"

#include <QCoreApplication>

namespace portico::qt {
namespace {

constexpr int BarSteps = 1000;
constexpr qint64 TurnInterval = 30; // milliseconds between two turns of the event loop

} // namespace

void Progress::Begin(const String& Prompt) {
  if (m_depth++ > 0) return;
  m_prompt = ToQt(Prompt);
  m_isGivenUp = false;
  m_begun.start();
  m_turned.start();
}

bool Progress::Step(double Done, double Total) {
  if (m_isGivenUp) return false;
  const bool isDue = !m_dialog && m_begun.elapsed() >= m_patience.count();
  if (!isDue && m_turned.elapsed() < TurnInterval) return true;
  m_loop.ThrowIfQuitting();
  if (isDue) Show();
  if (m_dialog) m_dialog->setValue(Total > 0 ? static_cast<int>(BarSteps * Done / Total) : 0);
  // Once the dialog keeps the other windows from taking input, it may have some itself.
  QCoreApplication::processEvents(m_dialog ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
  m_turned.restart();
  m_loop.ThrowIfQuitting();
  return !m_isGivenUp;
}

void Progress::End() noexcept {
  if (--m_depth == 0) m_dialog.reset();
}

void Progress::Show() {
  m_dialog = std::make_unique<QProgressDialog>();
  m_dialog->setObjectName(QStringLiteral("progressDialog"));
  m_dialog->setWindowModality(Qt::ApplicationModal);
  m_dialog->setWindowTitle(ToQt(ApplicationTitle));
  m_dialog->setLabelText(m_prompt);
  m_dialog->setRange(0, BarSteps);
  m_dialog->setAutoClose(false);
  m_dialog->setAutoReset(false);
  QObject::connect(m_dialog.get(), &QProgressDialog::canceled, m_dialog.get(), [this] { m_isGivenUp = true; });
  SetOwner(*m_dialog);
  m_dialog->show();
}

} // namespace portico::qt
