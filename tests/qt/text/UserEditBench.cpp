#include "contract/UserEditBench.h"

#include "platform/KeyCodes.h"
#include "qt/text/TextBench.h"
#include "qt/values/QtText.h"

#include <QApplication>
#include <QLineEdit>

namespace portico::test {
namespace {

class QtUserEditBench final : public UserEditBench {
public:
  QtUserEditBench() { m_window.TakeFocus(); }
  IRichTextControl& Box() override { return m_window.box; }
  void Type(StringView text) override {
    m_window.Type(qt::ToQt(text));
    QApplication::processEvents();
  }
  void Undo() override { m_window.Key(Qt::Key_Z, Qt::ControlModifier); }

  void Press(std::int32_t code) override {
    m_window.Key(KeyOf(code));
    QApplication::processEvents();
  }
  void Left() override {
    m_window.Key(Qt::Key_Left);
    QApplication::processEvents();
  }
  void Leave() override {
    m_other.show();
    m_other.setFocus();
  }
  bool HasFocus() override { return m_window.View().hasFocus(); }

private:
  static int KeyOf(std::int32_t code) {
    switch (code) {
    case UpKey:
      return Qt::Key_Up;
    case DownKey:
      return Qt::Key_Down;
    case PageUpKey:
      return Qt::Key_PageUp;
    case PageDownKey:
      return Qt::Key_PageDown;
    case ReturnKey:
      return Qt::Key_Return;
    case TabKey:
      return Qt::Key_Tab;
    default:
      return Qt::Key_Escape;
    }
  }

  TextWindow m_window;
  QLineEdit m_other{&m_window.window};
};

} // namespace

std::vector<UserEditBenchKind> AllUserEditBenches() {
  return {{"Qt", []() -> std::unique_ptr<UserEditBench> { return std::make_unique<QtUserEditBench>(); }}};
}

} // namespace portico::test
