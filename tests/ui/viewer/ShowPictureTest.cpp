#include "memory/forms/DeviceContext.h"
#include "memory/forms/PictureView.h"
#include "platform/KeyCodes.h"
#include "ui/viewer/ViewLogFixture.h"

namespace portico::test {
namespace {

using namespace std::string_literals;

/// Pictures that are answers in a log.
class ShowPictureTest : public ViewLogFixture {
protected:
  ShowPictureTest() { gPrinter = std::make_shared<PrinterDouble>(Calls); }
  ~ShowPictureTest() override { gPrinter = {}; }

  static std::string Png(const std::string& size = "\0\0\0\x03\0\0\0\x02"s) {
    return "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR"s + size + "\x08\x02\0\0\0 {\\}"s + "IEND\xAE\x42\x60\x82";
  }
  static std::string Block(const std::string& bytes) {
    const std::string length = std::to_string(bytes.size());
    return "#" + std::to_string(length.size()) + length + bytes;
  }
  /// A viewer of a log in which that answer follows its query. The caret is in the answer.
  Ref<memory::Form> ViewAnswer(const std::string& answer) {
    const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf("run.log"), true));
    store->OpenSession();
    store->AppendDataEntityToStore(Entity(u"HCOP:SDUM:DATA?\r\n", u"Instruction"));
    store->AppendDataEntityToStore(Entity(FromCodePage(answer) + u"\r\n", u"Response"));
    store->CloseSession();
    const auto viewer = View("run.log");
    PutCaret(viewer, 18);
    return viewer;
  }
  static void PutCaret(const Ref<memory::Form>& viewer, std::int32_t place) {
    Select(Past(viewer), place, 0);
    EXPECT_TRUE(Past(viewer).ReleaseMouse({}) || Past(viewer).PressMouse({}));
    EXPECT_TRUE(Menu(viewer, u"mnuEdit").Choose());
  }
  void Refuse(const std::string& answer, StringView sentence) {
    const auto viewer = ViewAnswer(answer);
    Platform.MessageBox->Answer();
    Choose(viewer);
    EXPECT_FALSE(Window());
    ExpectSentence(sentence);
  }
  void Choose(const Ref<memory::Form>& viewer) { EXPECT_TRUE(Menu(viewer, u"mnuShowPicture").Choose()); }
  Ref<memory::Form> Window() { return Platform.Screen->Find(u"PictureWindow"); }
  memory::PictureView& Picture() { return Find<memory::PictureView>(Window(), u"picPicture"); }
  bool ChooseThere(StringView item) { return Menu(Window(), item).Choose(); }
  void ExpectSentence(StringView sentence) {
    ASSERT_EQ(Platform.MessageBox->Calls().size(), 1U);
    EXPECT_EQ(ToUtf8(Platform.MessageBox->Calls().front().Prompt), ToUtf8(sentence));
  }
};

TEST_F(ShowPictureTest, TheBlocksBytesAreShownInAWindow) {
  const auto viewer = ViewAnswer(Block(Png()));
  Choose(viewer);
  ASSERT_TRUE(Window());
  EXPECT_EQ(Window()->Caption(), u"Picture - 3 by 2");
  EXPECT_EQ(Picture().Picture().Bytes, Png());
  EXPECT_EQ(Picture().Picture().Format, "png");
  EXPECT_EQ(Picture().Picture().Width, 3);
  EXPECT_EQ(Picture().Picture().Height, 2);
  EXPECT_EQ(Menu(Window(), u"mnuSavePicture").Caption(), u"&Save As...");
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
}

TEST_F(ShowPictureTest, IsOfferedWhileTheCaretIsInAnAnswer) {
  const auto viewer = ViewAnswer(Block(Png()));
  EXPECT_TRUE(Menu(viewer, u"mnuShowPicture").Enabled());
  PutCaret(viewer, 3);
  EXPECT_FALSE(Menu(viewer, u"mnuShowPicture").Enabled());
}

TEST_F(ShowPictureTest, EscapeClosesIt) {
  const auto viewer = ViewAnswer(Block(Png()));
  Choose(viewer);
  EXPECT_TRUE(Window()->PressKey(EscapeKey));
  EXPECT_FALSE(Window());
}

TEST_F(ShowPictureTest, IsSavedAsItCame) {
  const auto viewer = ViewAnswer(Block(Png()));
  Choose(viewer);
  Dialog->FileName = NameOf("screen.png");
  EXPECT_TRUE(ChooseThere(u"mnuSavePicture"));
  EXPECT_EQ(Read("screen.png"), Png());
  EXPECT_EQ(Dialog->Shown.DialogTitle, u"Save Picture");
  EXPECT_EQ(Dialog->Shown.DefaultExt, u".png");
  EXPECT_EQ(Dialog->Shown.Filter, u"Picture (*.png)|*.png");
}

TEST_F(ShowPictureTest, WhatCannotBeSavedIsToldInASentence) {
  const auto viewer = ViewAnswer(Block(Png()));
  Choose(viewer);
  Dialog->FileName = NameOf("none/screen.png");
  Platform.MessageBox->Answer();
  EXPECT_TRUE(ChooseThere(u"mnuSavePicture"));
  ExpectSentence(NameOf("none/screen.png") + u" cannot be written: No such file or directory.");
}

TEST_F(ShowPictureTest, IsCopiedAndPrinted) {
  const auto viewer = ViewAnswer(Block(Png()));
  Choose(viewer);
  EXPECT_TRUE(ChooseThere(u"mnuCopyPicture"));
  EXPECT_EQ(Picture().TimesCopied(), 1);
  const auto context = New<memory::DeviceContext>();
  Dialog->Context = context;
  EXPECT_TRUE(ChooseThere(u"mnuPrintPicture"));
  ASSERT_EQ(context->Printed().size(), 1U);
  EXPECT_EQ(ToCodePage(context->Printed().front()), Png());
}

TEST_F(ShowPictureTest, FitsItsWindowOrHasItsOwnSize) {
  const auto viewer = ViewAnswer(Block(Png()));
  Choose(viewer);
  EXPECT_TRUE(Picture().FitsField());
  EXPECT_TRUE(Menu(Window(), u"mnuFit").Checked());
  EXPECT_EQ(Picture().Width(), Window()->ScaleWidth());
  EXPECT_TRUE(ChooseThere(u"mnuActualSize"));
  EXPECT_FALSE(Picture().FitsField());
  EXPECT_TRUE(Menu(Window(), u"mnuActualSize").Checked());
  EXPECT_FALSE(Menu(Window(), u"mnuFit").Checked());
  Window()->Width(9000);
  EXPECT_EQ(Picture().Width(), Window()->ScaleWidth());
  EXPECT_TRUE(ChooseThere(u"mnuFit"));
  EXPECT_TRUE(Picture().FitsField());
  EXPECT_TRUE(ChooseThere(u"mnuClosePicture"));
  EXPECT_FALSE(Window());
}

TEST_F(ShowPictureTest, WhatIsNoBlockIsToldInASentence) { Refuse("1.5", u"The answer is no block: it has no #."); }

TEST_F(ShowPictureTest, WhatIsNoPictureIsToldInASentence) {
  Refuse(Block("hello"), u"The answer is no picture: it begins neither as PNG nor as BMP, JPEG or GIF.");
}

TEST_F(ShowPictureTest, OneThatIsTooLargeIsToldInASentence) {
  Refuse(Block(Png("\0\x01\x86\xA0\0\x01\x86\xA0"s)), u"The picture is too large: it has 100000 by 100000 pixels.");
}

TEST_F(ShowPictureTest, OneThatCannotBeReadIsToldInASentence) {
  const std::string png = Png();
  Refuse(Block(png.substr(0, png.size() - 1)), u"The picture is broken: it cannot be read.");
}

} // namespace
} // namespace portico::test
