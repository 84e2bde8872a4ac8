#include "qt/ProgressDisplay.h"

#include "qt/Dialogs.h"
#include "qt/EventLoop.h"
#include "qt/Text.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressDialog>

namespace portico::qt {
namespace {

constexpr int Fine = 1000;         // steps of the bar
constexpr qint64 TurnInterval = 30; // milliseconds between two turns of the event loop

class Progress final : public IProgress {
public:
  Progress(EventLoop& loop, std::chrono::milliseconds patience, const String& text)
      : m_loop(loop), m_patience(patience), m_text(ToQt(text)) {
    m_begun.start();
    m_turned.start();
  }

  bool Step(std::int64_t done, std::int64_t total) override {
    if (m_cancelled) return false;
    const bool isDue = !m_dialog && m_begun.elapsed() >= m_patience.count();
    if (!isDue && m_turned.elapsed() < TurnInterval) return true;
    if (isDue) Show();
    if (m_dialog) m_dialog->setValue(total > 0 ? static_cast<int>(done * Fine / total) : 0);
    // Once the dialog keeps the other windows from taking input, it may have some itself.
    QCoreApplication::processEvents(m_dialog ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    m_turned.restart();
    m_loop.ThrowIfQuitting();
    return !m_cancelled;
  }

private:
  void Show() {
    m_dialog = std::make_unique<QProgressDialog>();
    m_dialog->setObjectName(QStringLiteral("progressDialog"));
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->setLabelText(m_text);
    m_dialog->setRange(0, Fine);
    m_dialog->setAutoClose(false);
    m_dialog->setAutoReset(false);
    m_dialog->setMinimumDuration(0);
    QObject::connect(m_dialog.get(), &QProgressDialog::canceled, m_dialog.get(), [this] { m_cancelled = true; });
    SetOwner(*m_dialog);
    m_dialog->show();
  }

  EventLoop& m_loop;
  std::chrono::milliseconds m_patience;
  QString m_text;
  QElapsedTimer m_begun;
  QElapsedTimer m_turned;
  std::unique_ptr<QProgressDialog> m_dialog;
  bool m_cancelled = false;
};

} // namespace

std::unique_ptr<IProgress> ProgressDisplay::Begin(const String& text) {
  return std::make_unique<Progress>(m_loop, m_patience, text);
}

} // namespace portico::qt
