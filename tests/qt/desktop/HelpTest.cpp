// The manual and its window.

#include "platform/ICommonDialog.h"
#include "qt/ScreenFixture.h"
#include "qt/desktop/HelpViewer.h"

#include <QDir>
#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QWindow>

namespace portico::test {
namespace {

class HelpTest : public ScreenTest {
protected:
  HelpTest() {
    Write("topics.txt", "# what, where\n\ncontents start.md\nfrmOptions.SCPI options.md#termination-character\n"
                        "frmInstrument names.html\n");
    Write("start.md", "# Manual\n\nSee [the options](options.md).\n");
    QByteArray lines;
    for (int i = 0; i < 300; ++i) lines += "line\n\n";
    Write("options.md", "# Options\n\n" + lines + "## Termination character?\n\nIt ends a *message*.\n\n" + lines);
    Write("names.html", "<h1>Names</h1><p>A name of an instrument.</p>");
  }

  void Write(const char* name, const QByteArray& text) const {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  static QWidget* Window() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == "helpViewer") return widget;
    }
    return nullptr;
  }
  static QTextBrowser& Browser() { return *Window()->findChild<QTextBrowser*>("helpPage"); }
  static QString Page() { return Browser().source().fileName(); }
  static QAction& Action(const char* name) { return *Window()->findChild<QAction*>(name); }
  void Macro(StringView name) { viewer.WinHelp(u"TVPort.hlp", HelpMacro, u"AL(`" + String(name) + u"',1)"); }

  QTemporaryDir folder;
  qt::HelpViewer viewer{folder.path()};
};

TEST_F(HelpTest, TheFinderOpensTheContents) {
  viewer.WinHelp(u"TVPort.hlp", HelpFinder, u"");
  EXPECT_EQ(Page(), "start.md");
  EXPECT_TRUE(Window()->isVisible());
  EXPECT_TRUE(Browser().toPlainText().contains("See the options."));
}

TEST_F(HelpTest, AMacroOpensItsTopic) {
  Macro(u"frmInstrument");
  EXPECT_EQ(Page(), "names.html");
  Macro(u"frmInstrument.Any");
  EXPECT_EQ(Page(), "names.html");
  Macro(u"frmUnknown");
  EXPECT_EQ(Page(), "start.md");
  viewer.WinHelp(u"", HelpMacro, u"nonsense");
  EXPECT_EQ(Page(), "start.md");
}

TEST_F(HelpTest, ATopicMayBeAHeading) {
  viewer.WinHelp(u"", HelpFinder, u"");
  Macro(u"frmOptions.SCPI");
  EXPECT_EQ(Page(), "options.md");
  EXPECT_EQ(Browser().textCursor().block().text(), "Termination character?");
  EXPECT_GE(Browser().cursorRect().top(), 0);
  EXPECT_LT(Browser().cursorRect().top(), Browser().viewport()->height());
}

TEST_F(HelpTest, HeadingsHaveTheNamesOfTheirLinks) {
  EXPECT_EQ(qt::HeadingName("Termination character?"), "termination-character");
  EXPECT_EQ(qt::HeadingName("Run_Modes & Stop"), "run_modes--stop");
}

TEST_F(HelpTest, ASearchOpensThePageThatHasTheTextAndMarksIt) {
  viewer.WinHelp(u"", HelpPartialKey, u"MESSAGE");
  EXPECT_EQ(Page(), "options.md");
  EXPECT_EQ(Browser().textCursor().selectedText(), "message");
  viewer.WinHelp(u"", HelpPartialKey, u"nowhere");
  EXPECT_EQ(Page(), "start.md");
}

TEST_F(HelpTest, TheSearchInAPageGoesAroundTheEnd) {
  Macro(u"frmInstrument");
  auto* search = Window()->findChild<QLineEdit*>("helpSearch");
  search->setText("name");
  const auto found = [&] {
    QTest::keyClick(search, Qt::Key_Return);
    return Browser().textCursor().selectionStart();
  };
  const int first = found();
  const int second = found();
  EXPECT_LT(first, second);
  EXPECT_EQ(found(), first);
}

TEST_F(HelpTest, GoesBackForwardAndToTheContents) {
  viewer.WinHelp(u"", HelpFinder, u"");
  EXPECT_FALSE(Action("helpBack").isEnabled());
  Macro(u"frmInstrument");
  Action("helpBack").trigger();
  EXPECT_EQ(Page(), "start.md");
  Action("helpForward").trigger();
  EXPECT_EQ(Page(), "names.html");
  Action("helpContents").trigger();
  EXPECT_EQ(Page(), "start.md");
}

TEST_F(HelpTest, EscapeClosesItFromThePageAndFromTheSearch) {
  for (const char* name : {"helpPage", "helpSearch"}) {
    SCOPED_TRACE(name);
    viewer.WinHelp(u"TVPort.hlp", HelpFinder, u"");
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window()));
    auto* widget = Window()->findChild<QWidget*>(name);
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Escape);
    EXPECT_FALSE(Window()->isVisible());
  }
}

TEST_F(HelpTest, ItsWindowIsWithinTheScreen) {
  viewer.WinHelp(u"TVPort.hlp", HelpFinder, u"");
  Window()->hide();
  Window()->setGeometry(50, 60, 5000, 6000);
  viewer.WinHelp(u"TVPort.hlp", HelpFinder, u"");
  loop.DoEvents();
  EXPECT_TRUE(qApp->primaryScreen()->availableGeometry().contains(Window()->frameGeometry()));
}

TEST_F(HelpTest, AFolderThatIsNotThereRaises53) {
  qt::HelpViewer lost(folder.filePath("none"));
  EXPECT_EQ(Raised([&] { lost.WinHelp(u"TVPort.hlp", HelpFinder, u""); }).Number, 53);
}

TEST_F(HelpTest, LinksCanBeReadInADarkThemeThatHasTheColorOfALightOne) {
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::Link, Qt::blue);
  dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 0x80));
  QApplication::setPalette(dark);
  viewer.WinHelp(u"TVPort.hlp", HelpFinder, u"");
  QTextCursor link(Browser().document());
  while (!link.charFormat().isAnchor() && link.movePosition(QTextCursor::NextCharacter)) {
  }
  ASSERT_TRUE(link.charFormat().isAnchor());
  EXPECT_EQ(link.charFormat().anchorHref(), "options.md");
  EXPECT_GT(qGray(link.charFormat().foreground().color().rgb()), 0x20 + 100);
  const QColor empty = Window()->findChild<QLineEdit*>("helpSearch")->palette().color(QPalette::PlaceholderText);
  EXPECT_GT(qGray(empty.rgb()), 0x20 + 100) << "what an empty field says";
  QApplication::setPalette(before);
}

TEST_F(HelpTest, StaysUsableBesideAModalForm) {
  const Ref<IForm> form = screen.Load({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  bool wasOwned = false;
  Later([&] {
    viewer.WinHelp(u"", HelpFinder, u"");
    wasOwned = Window()->windowHandle()->transientParent() == AsForm(form).Window().windowHandle();
    form->Unload();
  });
  form->ShowModal(nullptr);
  EXPECT_TRUE(wasOwned);
  loop.DoEvents();
  EXPECT_TRUE(Window()->isVisible());
}

} // namespace
} // namespace portico::test
