#include "qt/text/TextPrinter.h"

#include "qt/text/TextBench.h"
#include "support/ErrorReports.h"

#include <QFile>
#include <QTemporaryDir>

namespace portico::test {
namespace {

class Context final : public qt::IPrinterContext {
public:
  Context(const QString& file, bool selectionOnly) : m_selectionOnly(selectionOnly) {
    m_printer.setOutputFormat(QPrinter::PdfFormat);
    m_printer.setOutputFileName(file);
  }
  StringView ClassName() const override { return u"Context"; }
  QPrinter& Printer() override { return m_printer; }
  bool SelectionOnly() const override { return m_selectionOnly; }

private:
  QPrinter m_printer{QPrinter::HighResolution};
  bool m_selectionOnly;
};

class TextPrinterTest : public testing::Test, protected TextWindow {
protected:
  /// Of the PDF file that comes out; 0 if none does.
  int Pages(bool selectionOnly = false) {
    const QString name = m_folder.filePath("out.pdf");
    QFile::remove(name);
    box.SelPrint(New<Context>(name, selectionOnly));
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) return 0;
    return static_cast<int>(file.readAll().count("/Type /Page\n"));
  }
  static String Lines(int count) {
    String text;
    for (int i = 0; i < count; ++i) text += u"a line\r\n";
    return text;
  }

private:
  QTemporaryDir m_folder;
};

TEST_F(TextPrinterTest, TheEmptyTextHasNoPage) { EXPECT_EQ(Pages(), 0); }

TEST_F(TextPrinterTest, AShortTextHasOne) {
  box.Text(u"a\r\n");
  EXPECT_EQ(Pages(), 1);
}

TEST_F(TextPrinterTest, ALongTextHasMore) {
  box.Text(Lines(300));
  EXPECT_GT(Pages(), 3);
}

TEST_F(TextPrinterTest, AllIsPrintedThoughThereIsASelection) {
  box.Text(Lines(300));
  box.SelLength(5);
  EXPECT_GT(Pages(), 3);
  EXPECT_EQ(box.SelLength(), 5);
}

TEST_F(TextPrinterTest, OnlyTheSelectionIsPrintedIfThereIsOne) {
  box.Text(Lines(300));
  EXPECT_GT(Pages(true), 3);
  box.SelLength(5);
  EXPECT_EQ(Pages(true), 1);
  box.SelStart(box.TextLength());
  box.SelLength(1); // nothing but the end of the text
  EXPECT_GT(Pages(true), 3);
}

TEST_F(TextPrinterTest, AVeryLongLineIsPrintedWhole) {
  box.Text(String(30'000, u'x'));
  EXPECT_GT(Pages(), 3);
}

TEST_F(TextPrinterTest, OtherContextsAreOfTheWrongKind) {
  class Other final : public IDeviceContext {
    StringView ClassName() const override { return u"Other"; }
  };
  EXPECT_EQ(Raised([&] { box.SelPrint(New<Other>()); }).Number, 13);
  EXPECT_EQ(Raised([&] { box.SelPrint({}); }).Number, 91);
}

} // namespace
} // namespace portico::test
