#include "contract/UserEditBench.h"

#include "qt/text/TextBench.h"
#include "qt/values/QtText.h"

namespace portico::test {
namespace {

class QtUserEditBench final : public UserEditBench {
public:
  IRichTextControl& Box() override { return m_window.box; }
  void Type(StringView text) override { m_window.Type(qt::ToQt(text)); }
  void Undo() override { m_window.Key(Qt::Key_Z, Qt::ControlModifier); }

private:
  TextWindow m_window;
};

} // namespace

std::vector<UserEditBenchKind> AllUserEditBenches() {
  return {{"Qt", []() -> std::unique_ptr<UserEditBench> { return std::make_unique<QtUserEditBench>(); }}};
}

} // namespace portico::test
