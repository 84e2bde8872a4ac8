#include "contract/FormsBench.h"

#include "qt/desktop/Screen.h"
#include "qt/loop/EventLoop.h"
#include "qt/text/PlainTextControl.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

namespace portico::test {
namespace {

class QtFormsBench final : public FormsBench {
public:
  IEventLoop& Loop() override { return m_loop; }
  IForms& Forms() override { return m_screen; }
  double ScreenWidth() const override { return Available().width() * FormUnitsPerPixel; }
  double ScreenHeight() const override { return Available().height() * FormUnitsPerPixel; }
  void WhileModal(StringView /*form*/, std::function<void()> call) override {
    QTimer::singleShot(0, qApp, std::move(call));
  }

private:
  static QRect Available() { return QGuiApplication::primaryScreen()->availableGeometry(); }

  qt::EventLoop m_loop;
  qt::Screen m_screen{m_loop, PlainTextControl::Make};
};

} // namespace

std::vector<FormsBenchKind> AllFormsBenches() {
  return {{"Qt", []() -> std::unique_ptr<FormsBench> { return std::make_unique<QtFormsBench>(); }}};
}

} // namespace portico::test
