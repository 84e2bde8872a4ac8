// Message boxes, file and print dialogs, progress.

#include "framework/errors/Quit.h"
#include "platform/IDesktop.h"
#include "qt/ScreenFixture.h"
#include "qt/desktop/CommonDialog.h"
#include "qt/desktop/MessageBox.h"
#include "qt/desktop/Progress.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>

namespace portico::test {
namespace {

class DialogsTest : public ScreenTest {
protected:
  ~DialogsTest() override { gHelpViewer.reset(); }

  template <class Dialog>
  static Dialog* Open() {
    return qobject_cast<Dialog*>(QApplication::activeModalWidget());
  }
  QString Path(const char* name) const { return folder.filePath(name); }
  /// What the user types into the file dialog that opens, and accepts.
  void Choose(const QString& name, std::function<void(QFileDialog&)> look = {}) {
    Later([=, this] {
      auto* dialog = Open<QFileDialog>();
      ASSERT_NE(dialog, nullptr);
      dialog->setDirectory(folder.path());
      if (look) look(*dialog);
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
      QMetaObject::invokeMethod(dialog, "accept");
    });
  }
  template <class Dialog>
  void CancelLater() {
    Later([] {
      auto* dialog = Open<Dialog>();
      ASSERT_NE(dialog, nullptr);
      dialog->reject();
    });
  }

  QTemporaryDir folder;
  qt::MessageBox box{loop};
  std::shared_ptr<qt::Printer> printer = std::make_shared<qt::Printer>();
  qt::CommonDialog dialogs{loop, printer};
};

TEST_F(DialogsTest, AMessageBoxShowsItsTextsAsTheyAre) {
  QString text;
  QString title;
  Qt::TextFormat format = Qt::AutoText;
  Later([&] {
    auto* shown = Open<QMessageBox>();
    ASSERT_NE(shown, nullptr);
    text = shown->text();
    title = shown->windowTitle();
    format = shown->textFormat();
    shown->button(QMessageBox::Ok)->click();
  });
  EXPECT_EQ(box.Show(u"Can't <b>run</b> & stop.\r\nWhy?", u"Tolvane Portico", MessageBoxButtons::OKOnly,
                     MessageBoxIcon::Information),
            MessageBoxAnswer::OK);
  EXPECT_EQ(text, "Can't <b>run</b> & stop.\nWhy?");
  EXPECT_EQ(title, "Tolvane Portico");
  EXPECT_EQ(format, Qt::PlainText);
}

TEST_F(DialogsTest, AQuestionIsAnsweredYesOrNo) {
  for (const auto& [button, answer] :
       {std::pair(QMessageBox::Yes, MessageBoxAnswer::Yes), std::pair(QMessageBox::No, MessageBoxAnswer::No)}) {
    Later([wanted = button] { Open<QMessageBox>()->button(wanted)->click(); });
    EXPECT_EQ(box.Show(u"Erase?", u"T", MessageBoxButtons::YesNo, MessageBoxIcon::Question), answer);
  }
}

TEST_F(DialogsTest, ALongReportFitsOnTheScreenAndScrolls) {
  String report;
  for (int i = 0; i < 400; ++i) report += u"a line of the report of what has gone wrong\r\n";
  QSize size;
  QString text;
  Later([&] {
    auto* shown = Open<QMessageBox>();
    size = shown->size();
    text = shown->findChild<QLabel*>("qt_msgbox_label")->text();
    shown->accept();
  });
  box.Show(report, u"T", MessageBoxButtons::OKOnly, MessageBoxIcon::None);
  EXPECT_EQ(text.count('\n'), 400);
  EXPECT_LT(size.height(), qApp->primaryScreen()->availableSize().height());
  EXPECT_LT(size.width(), qApp->primaryScreen()->availableSize().width());
}

TEST_F(DialogsTest, AMessageBoxClosesWhenTheProgramEnds) {
  Later([&] { loop.RequestQuit(); });
  EXPECT_THROW(box.Show(u"?", u"T", MessageBoxButtons::YesNo, MessageBoxIcon::None), Quit);
  EXPECT_THROW(box.Show(u"?", u"T", MessageBoxButtons::OKOnly, MessageBoxIcon::None), Quit);
  loop.FinishQuit();
  Later([] { Open<QMessageBox>()->accept(); });
  EXPECT_NO_THROW(box.Show(u"?", u"T", MessageBoxButtons::OKOnly, MessageBoxIcon::None));
}

TEST_F(DialogsTest, ModalThingsInOneAnotherAllEnd) {
  std::string order;
  Later([&] {
    qt::Enter([&] {
      Later([&] { loop.RequestQuit(); });
      try {
        box.Show(u"inner", u"T", MessageBoxButtons::OKOnly, MessageBoxIcon::None);
      } catch (const Quit&) {
        order += 'i';
        throw;
      }
    });
  });
  const Ref<IForm> form = screen.Load({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  EXPECT_THROW(form->ShowModal(nullptr), Quit);
  EXPECT_EQ(order, "i");
}

TEST_F(DialogsTest, FiltersArePairsOfANameAndAPattern) {
  EXPECT_EQ(qt::NameFilters(u"Log (*.log)|*.log|All (*.*)|*.*"), (QStringList{"Log (*.log)", "All (*)"}));
  EXPECT_EQ(qt::NameFilters(u"Command (*.cmd)"), QStringList{"Command (*.cmd)"});
  EXPECT_EQ(qt::NameFilters(u"Texts|*.txt;*.rtf"), QStringList{"Texts (*.txt *.rtf)"});
  EXPECT_EQ(qt::NameFilters(u""), QStringList{});
}

TEST_F(DialogsTest, TheOpenDialogTakesTheNameOfANewFileAndAddsItsExtension) {
  FileDialogSettings settings{.DialogTitle = u"Open a log file",
                              .Filter = u"Log (*.log)|*.log|All (*.*)|*.*",
                              .FilterIndex = 1,
                              .DefaultExt = u".log",
                              .Flags = 32772};
  QString title;
  QStringList filters;
  Choose("new", [&](QFileDialog& dialog) {
    title = dialog.windowTitle();
    filters = dialog.nameFilters();
  });
  dialogs.ShowOpen(settings);
  EXPECT_EQ(settings.FileName, qt::FromQt(Path("new.log")));
  EXPECT_EQ(title, "Open a log file");
  EXPECT_EQ(filters, (QStringList{"Log (*.log)", "All (*)"}));
  EXPECT_FALSE(QFile::exists(Path("new.log")));
  Choose("other.txt");
  dialogs.ShowOpen(settings);
  EXPECT_EQ(settings.FileName, qt::FromQt(Path("other.txt")));
}

TEST_F(DialogsTest, ACancelledFileDialogLeavesTheNameOrRaises32755) {
  FileDialogSettings settings{.FileName = u"before"};
  CancelLater<QFileDialog>();
  dialogs.ShowOpen(settings);
  EXPECT_EQ(settings.FileName, u"before");
  settings.CancelError = true;
  CancelLater<QFileDialog>();
  EXPECT_EQ(Raised([&] { dialogs.ShowSave(settings); }).Number, 32755);
}

TEST_F(DialogsTest, TheSaveDialogTakesAnExistingFileWithoutAsking) {
  QFile file(Path("old.log"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  FileDialogSettings settings{.DefaultExt = u".log"};
  Choose("old");
  dialogs.ShowSave(settings);
  EXPECT_EQ(settings.FileName, qt::FromQt(Path("old.log")));
}

TEST_F(DialogsTest, AFileDialogClosesWhenTheProgramEnds) {
  FileDialogSettings settings;
  Later([&] { loop.RequestQuit(); });
  EXPECT_THROW(dialogs.ShowOpen(settings), Quit);
}

TEST_F(DialogsTest, ThePrintDialogOffersASelectionAsItsFlagsSayAndNoPages) {
  /// What the page that chooses what to print lets the user choose or fill in; what is chosen bears a '*'.
  const auto offered = [](const QPrintDialog& dialog) {
    std::vector<std::string> names;
    for (const QWidget* widget : dialog.findChild<QWidget*>("copiesTab")->findChildren<QWidget*>()) {
      const bool isPart = widget->objectName().isEmpty() || widget->objectName().startsWith("qt_");
      if (isPart || widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() || !widget->isEnabled()) continue;
      const auto* button = qobject_cast<const QRadioButton*>(widget);
      names.push_back(widget->objectName().toStdString() + (button != nullptr && button->isChecked() ? "*" : ""));
    }
    std::sort(names.begin(), names.end());
    return names;
  };
  const auto shown = [&](std::int32_t flags) {
    std::vector<std::string> first;
    Later([&] {
      auto* dialog = Open<QPrintDialog>();
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->windowTitle(), "Print Setup");
      for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
        if (button->text().contains("Options")) button->click();
      }
      first = offered(*dialog);
      QMetaObject::invokeMethod(dialog->findChild<QComboBox*>("printers"), "currentIndexChanged", Q_ARG(int, 0));
      EXPECT_EQ(offered(*dialog), first) << "another printer";
      dialog->reject();
    });
    dialogs.ShowPrinter({.DialogTitle = u"Print Setup", .Flags = flags});
    return first;
  };
  using Names = std::vector<std::string>;
  EXPECT_EQ(shown(PrintSelectionPreset | PrintNoPageNumbers | PrintReturnsContext),
            (Names{"collate", "copies", "printAll", "printSelection*", "reverse"}));
  EXPECT_EQ(shown(PrintNoSelection | PrintNoPageNumbers | PrintReturnsContext),
            (Names{"collate", "copies", "printAll*", "reverse"}));
}

TEST_F(DialogsTest, ACancelledPrintDialogRaises32755IfThatWasWanted) {
  CancelLater<QPrintDialog>();
  EXPECT_EQ(Raised([&] { dialogs.ShowPrinter({.Flags = PrintReturnsContext, .CancelError = true}); }).Number, 32755);
  CancelLater<QPrintDialog>();
  EXPECT_FALSE(dialogs.ShowPrinter({.Flags = PrintReturnsContext}));
}

TEST_F(DialogsTest, AnAcceptedPrintDialogPrintsToAFile) {
  const QString file = Path("out.pdf");
  Later([&] {
    auto* dialog = Open<QPrintDialog>();
    ASSERT_NE(dialog, nullptr);
    auto* name = dialog->findChild<QLineEdit*>("filename");
    ASSERT_NE(name, nullptr);
    name->setText(file);
    dialog->accept();
  });
  const Ref<IDeviceContext> context = dialogs.ShowPrinter({.Flags = PrintSelectionPreset | PrintReturnsContext});
  ASSERT_TRUE(context);
  EXPECT_TRUE(Cast<qt::IPrinterContext>(context)->SelectionOnly());
  printer->Print(u"");
  EXPECT_FALSE(QFile::exists(file));
  printer->Print(u"text");
  QFile printed(file);
  ASSERT_TRUE(printed.open(QIODevice::ReadOnly));
  EXPECT_TRUE(printed.read(4) == "%PDF");
}

TEST_F(DialogsTest, ThePageIsSetUpInADialogOfItsOwn) {
  QString title;
  Later([&] {
    auto* dialog = Open<QPageSetupDialog>();
    ASSERT_NE(dialog, nullptr);
    title = dialog->windowTitle();
    dialog->findChild<QRadioButton*>("landscape")->click();
    dialog->accept();
  });
  EXPECT_FALSE(dialogs.ShowPrinter({.DialogTitle = u"Print Setup", .Flags = PrintSetupForm}));
  EXPECT_EQ(title, "Print Setup");
  EXPECT_EQ(printer->Device().pageLayout().orientation(), QPageLayout::Landscape);
}

TEST_F(DialogsTest, HelpGoesToTheHelpViewer) {
  class Viewer final : public IHelpViewer {
  public:
    void WinHelp(const String& HelpFile, std::int32_t Command, const String& Data) override {
      Seen = HelpFile + u"," + ToText(std::int64_t{Command}) + u"," + Data;
    }
    String Seen;
  };
  const auto viewer = std::make_shared<Viewer>();
  gHelpViewer = viewer;
  dialogs.ShowHelp({.HelpCommand = HelpMacro, .HelpKey = u"AL(`x',1)", .HelpFile = u"TVPort.hlp"});
  EXPECT_EQ(viewer->Seen, u"TVPort.hlp,258,AL(`x',1)");
}

TEST_F(DialogsTest, ShortWorkShowsNoProgress) {
  qt::Progress progress(loop, std::chrono::hours(1));
  progress.Begin(u"Reading");
  for (int i = 0; i < 1000; ++i) EXPECT_TRUE(progress.Step(i, 1000));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  progress.End();
}

TEST_F(DialogsTest, LongWorkShowsHowFarItIsAndCanBeGivenUp) {
  qt::Progress progress(loop, std::chrono::milliseconds(0));
  progress.Begin(u"Reading x.log");
  EXPECT_TRUE(progress.Step(1, 4));
  auto* dialog = Open<QProgressDialog>();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->labelText(), "Reading x.log");
  EXPECT_EQ(dialog->windowTitle(), "Tolvane Portico");
  EXPECT_EQ(dialog->value() * 4, dialog->maximum());
  progress.Begin(u"Inner");
  EXPECT_EQ(dialog->labelText(), "Reading x.log");
  progress.End();
  ASSERT_EQ(Open<QProgressDialog>(), dialog);
  dialog->findChild<QPushButton*>()->click();
  EXPECT_FALSE(progress.Step(2, 4));
  EXPECT_FALSE(progress.Step(3, 4));
  progress.End();
  EXPECT_EQ(Open<QProgressDialog>(), nullptr);
  progress.Begin(u"Again");
  EXPECT_TRUE(progress.Step(1, 2));
  progress.End();
}

TEST_F(DialogsTest, WorkThrowsQuitWhenTheProgramEnds) {
  qt::Progress progress(loop, std::chrono::milliseconds(0));
  progress.Begin(u"Reading");
  loop.RequestQuit();
  EXPECT_THROW(progress.Step(1, 2), Quit);
  progress.End();
  EXPECT_EQ(Open<QProgressDialog>(), nullptr);
}

} // namespace
} // namespace portico::test
