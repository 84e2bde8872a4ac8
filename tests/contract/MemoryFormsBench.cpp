#include "contract/FormsBench.h"

#include "memory/EventLoop.h"
#include "memory/desktop/Screen.h"
#include "support/doubles/ManualClock.h"

namespace portico::test {
namespace {

class MemoryFormsBench final : public FormsBench {
public:
  IEventLoop& Loop() override { return m_loop; }
  IForms& Forms() override { return m_screen; }
  double ScreenWidth() const override { return memory::ScreenWidth; }
  double ScreenHeight() const override { return memory::ScreenHeight; }
  void WhileModal(StringView form, std::function<void()> call) override {
    m_screen.OnShowModal(form, [act = std::move(call)](memory::Form& /*form*/) { act(); });
  }

private:
  ManualClock m_clock;
  memory::EventLoop m_loop{m_clock};
  memory::Screen m_screen{[this] { return m_loop.IsQuitting(); }};
};

} // namespace

std::vector<FormsBenchKind> AllFormsBenches() {
  return {{"Memory", []() -> std::unique_ptr<FormsBench> { return std::make_unique<MemoryFormsBench>(); }}};
}

} // namespace portico::test
