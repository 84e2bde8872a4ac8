#include "qt/loop/EventLoop.h"

#include "qt/loop/HandlerTurn.h"
#include "qt/loop/LoopTimer.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDrag>
#include <QPointer>
#include <QSessionManager>
#include <QWidget>

#include <memory>

namespace portico::qt {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int DeepestInput = 20;

// Far below what anybody notices, and far above a turn: a run takes one every few microseconds.
constexpr auto LookInterval = std::chrono::microseconds(100);

class Nesting {
public:
  explicit Nesting(int& depth) : m_depth(depth) { ++m_depth; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;
  ~Nesting() { --m_depth; }

private:
  int& m_depth;
};

} // namespace

EventLoop::EventLoop() : m_notifier(m_pipe.Descriptor(), QSocketNotifier::Read) {
  QApplication::setQuitOnLastWindowClosed(false); // the program tells when it ends
  QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] {
    m_pipe.Drain();
    Enter([this] { EndLoops(); });
  });
  // The end of the desktop session waits for nobody, so that nothing may be asked.
  QObject::connect(qApp, &QGuiApplication::commitDataRequest, &m_notifier,
                   [this](QSessionManager& /*session*/) { RequestQuit(); });
}

void EventLoop::EndLoops() {
  while (QPointer<QWidget> popup = QApplication::activePopupWidget()) {
    if (!popup->close()) break;
  }
  QDrag::cancel();
  m_quitting();
  if (m_running) QCoreApplication::exit(0);
}

QEventLoop::ProcessEventsFlags EventLoop::HandledAt(int depth) {
  return depth > DeepestInput ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents;
}

void EventLoop::Process() {
  const Nesting nested(m_depth);
  const auto now = Clock::now();
  if (now < m_nextLook) return QCoreApplication::sendPostedEvents();
  m_nextLook = now + LookInterval;
  if (QAbstractEventDispatcher::instance()->processEvents(HandledAt(m_depth))) m_nextLook = {}; // more may follow
}

void EventLoop::Wait() {
  const Nesting nested(m_depth);
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

std::unique_ptr<ITimer> EventLoop::MakeTimer() { return std::make_unique<LoopTimer>(); }

int EventLoop::Run() {
  if (!IsQuitRequested()) {
    m_running = true;
    QApplication::exec();
    m_running = false;
  }
  NoteQuit();
  return 0;
}

} // namespace portico::qt
