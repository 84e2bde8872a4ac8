#include "qt/text/TextBench.h"

#include "contract/RichTextBench.h"
#include "qt/text/TextBlocks.h"
#include "qt/values/QtText.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QTextFragment>

namespace portico::test {
namespace {

/// The toolkit's one application, for all tests.
class Toolkit final : public testing::Environment {
public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    m_application = std::make_unique<QApplication>(m_count, m_arguments);
  }
  void TearDown() override { m_application.reset(); }

private:
  char m_name[5] = "test";
  char* m_arguments[2] = {m_name, nullptr};
  int m_count = 1;
  std::unique_ptr<QApplication> m_application;
};

const auto* const theToolkit = testing::AddGlobalTestEnvironment(new Toolkit); // which gtest deletes

/// Compares view and box behind each change.
class ShownBox final : public virtual IRichTextBox, public virtual ILineMarks {
public:
  StringView ClassName() const override { return Box().ClassName(); }
  std::int32_t SelStart() const override { return Box().SelStart(); }
  void SelStart(std::int32_t position) override {
    Do([&] { Box().SelStart(position); });
  }
  std::int32_t SelLength() const override { return Box().SelLength(); }
  void SelLength(std::int32_t length) override {
    Do([&] { Box().SelLength(length); });
  }
  String SelText() const override { return Box().SelText(); }
  std::int32_t SelTextLength() const override { return Box().SelTextLength(); }
  void SelText(StringView text) override {
    Do([&] { Box().SelText(text); });
  }
  String SelRTF() const override { return Box().SelRTF(); }
  void SelRTF(StringView fragment) override {
    Do([&] { Box().SelRTF(fragment); });
  }
  SelectionFormat SelFormat() const override { return Box().SelFormat(); }
  void SelFormat(const SelectionFormat& changes) override {
    Do([&] { Box().SelFormat(changes); });
  }
  String Text() const override { return Box().Text(); }
  void Text(StringView text) override {
    Do([&] { Box().Text(text); });
  }
  std::int32_t TextLength() const override { return Box().TextLength(); }
  String TextRTF() const override { return Box().TextRTF(); }
  void TextRTF(StringView text) override {
    Do([&] { Box().TextRTF(text); });
  }
  std::int32_t Find(StringView text, std::int32_t Start, std::int32_t End) override {
    std::int32_t found = 0;
    Do([&] { found = Box().Find(text, Start, End); });
    return found;
  }
  void Span(StringView CharacterSet) override {
    Do([&] { Box().Span(CharacterSet); });
  }
  std::int32_t GetLineFromChar(std::int32_t position) const override { return Box().GetLineFromChar(position); }
  void SetFocus() override { Box().SetFocus(); }
  Event<>& Change() override { return Box().Change(); }
  void MarkLine(std::int32_t position) override {
    Do([&] { Box().MarkLine(position); });
  }
  void ClearMarks() override {
    Do([&] { Box().ClearMarks(); });
  }
  std::vector<std::int32_t> MarkedLines() const override { return Box().MarkedLines(); }
  void GoToLine(std::int32_t line) override {
    Do([&] { Box().GoToLine(line); });
  }
  void ShowNotes(const Ref<ILineNotes>& notes) override {
    Do([&] { Box().ShowNotes(notes); });
  }
  Ref<ILineNotes> Notes() const override { return Box().Notes(); }

private:
  qt::RichTextBox& Box() const { return m_window->box; }
  template <class Call>
  void Do(Call&& call) {
    call();
    ExpectShown(Box());
  }

  std::unique_ptr<TextWindow> m_window = std::make_unique<TextWindow>();
};

} // namespace

std::vector<RichTextBenchKind> AllRichTextBenches() {
  return {{"Window",
           []() -> Ref<IRichTextBox> {
             const auto window = std::make_shared<TextWindow>();
             return Ref<IRichTextBox>(std::shared_ptr<IRichTextBox>(window, &window->box));
           }},
          {"WindowShownEachTime", []() -> Ref<IRichTextBox> { return New<ShownBox>(); }}};
}

TextWindow::TextWindow()
    : box(*new qt::RichTextBox({.Kind = ControlKind::RichTextBox, .Name = u"txtTest"}, window, u"Sans", 10)),
      m_box(&box) {
  box.Change().Connect([this] { ++changes; });
  window.resize(400, 300);
  box.Move(0, 0, 400 * FormUnitsPerPixel, 300 * FormUnitsPerPixel);
}

TextWindow::~TextWindow() { QApplication::clipboard()->clear(); }

void TextWindow::TakeFocus() {
  window.show();
  window.activateWindow();
  View().setFocus();
  QApplication::processEvents();
  ASSERT_TRUE(View().hasFocus());
}

void TextWindow::Settle() {
  box.Show();
  QApplication::processEvents();
}

void TextWindow::Key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&View(), &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
  QApplication::sendEvent(&View(), &release);
}

void TextWindow::Type(const QString& text) {
  for (const QChar unit : text) {
    if (unit == u'\n') {
      Key(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    } else {
      Key(0, Qt::NoModifier, unit);
    }
  }
}

void TextWindow::SelectInView(int anchor, int caret) {
  box.Show();
  QTextCursor cursor = View().textCursor();
  cursor.setPosition(anchor);
  cursor.setPosition(caret, QTextCursor::KeepAnchor);
  View().setTextCursor(cursor);
}

String ShownText(const qt::RichTextBox& box) {
  String text;
  const QTextDocument& document = *box.Widget()->document();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block != document.begin()) text += NewLine;
    text += qt::FromQt(block.text());
  }
  return text;
}

String TextToShow(const IRichTextBox& box) {
  String shown;
  const String text = box.Text();
  for (const StringView line : Split(text, NewLine)) {
    if (line.data() != text.data()) shown += NewLine;
    String part(line);
    if (line.size() > qt::TextBlocks::LongestShown) {
      part.replace(qt::TextBlocks::HeadShown, line.size() - qt::TextBlocks::HeadShown - qt::TextBlocks::TailShown,
                   u"\u2026");
    }
    for (char16_t& unit : part) {
      if (StringView(u"\u2028\u2029\uFDD0\uFDD1\uFFFC").find(unit) != StringView::npos) unit = u'\uFFFD';
    }
    shown += part;
  }
  return shown;
}

void ExpectShown(qt::RichTextBox& box) {
  box.Show();
  ASSERT_TRUE(ShownText(box) == TextToShow(box));
  const QTextCursor cursor = box.Widget()->textCursor();
  const auto toBox = [&](int position) {
    return position + box.Widget()->document()->findBlock(position).blockNumber();
  };
  if (box.TextLength() < static_cast<std::int32_t>(qt::TextBlocks::LongestShown)) {
    EXPECT_EQ(toBox(cursor.selectionStart()), box.SelStart());
    EXPECT_EQ(toBox(cursor.selectionEnd()), box.SelStart() + static_cast<std::int32_t>(box.SelText().size()));
  }
}

} // namespace portico::test
