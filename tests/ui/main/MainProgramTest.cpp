#include "application/WindowProgram.h"
#include "support/Journal.h"
#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

/// The program's entry with the window as it is.
class MainProgramTest : public MainWindowFixture {
protected:
  MainProgramTest() { HasSpies = false; }

  /// The whole program, whose loop does this.
  int RunProgram(const std::function<void()>& run, const String& notice = {}) {
    return RunWindow({run, [this] { Loop->FinishQuit(); }, m_quitting}, u"DMM", notice);
  }

private:
  Event<> m_quitting;
};

/// No window can be made.
class NoForms final : public IForms {
public:
  Ref<IForm> Load(const FormDesign&) override { throw std::bad_alloc(); }
  std::vector<Ref<IForm>> Forms() const override { return {}; }
  IControl* ActiveControl() const override { return nullptr; }
};

TEST_F(MainProgramTest, ACommandLineOfBlanksOpensNothing) {
  for (const char16_t* line : {u"", u"   "}) {
    Start(line);
    EXPECT_EQ(Wire, test::Journal{});
    EXPECT_EQ(Item(u"OpenfromTree"), "False");
    EXPECT_EQ(Item(u"InstrumentName"), "");
    EXPECT_TRUE(MemoryForm().IsShown());
    ExpectNoBox();
    End();
    LetGo();
  }
}

TEST_F(MainProgramTest, ANameOpensItsInstrumentWithoutADialog) {
  Start(u"DMM");
  EXPECT_EQ(Wire.at(0), "init DMM");
  EXPECT_EQ(Item(u"InstrumentOpened"), "True");
  EXPECT_EQ(ToUtf8(Panel(1).Text()), "DMM ");
  EXPECT_EQ(ToUtf8(Panel(1).ToolTipText()), "DMM is the open instrument.");
  EXPECT_EQ(ToUtf8(Future().Text()), "REM Enter commands here.\r\n");
  EXPECT_TRUE(Future().HasFocus());
  EXPECT_EQ(Button(u"OpenInstrument").Value(), 1);
  EXPECT_TRUE(IsSameObject(gMainForm, Window));
  ExpectNoBox();
}

TEST_F(MainProgramTest, ANameKeepsTheBlanksAroundIt) {
  Start(u"  DMM two ");
  EXPECT_EQ(Item(u"InstrumentName"), "  DMM two ");
  EXPECT_EQ(Wire.at(0), "init   DMM two ");
}

TEST_F(MainProgramTest, AnOpenThatFailsLeavesTheNameAndItsOrigin) {
  Driver->Statuses["init DMM"] = -1;
  Start(u"DMM");
  EXPECT_EQ(Wire, test::Journal{"init DMM"});
  EXPECT_EQ(Item(u"InstrumentOpened"), "False");
  EXPECT_EQ(Item(u"OpenfromTree"), "True");
  EXPECT_EQ(Item(u"InstrumentName"), "DMM");
  EXPECT_EQ(ToUtf8(Panel(1).Text()), "Open an instrument. ");
  EXPECT_EQ(Window->MousePointer(), 0) << "the failure is in the reports, not in an error";
  ExpectNoBox();
  EXPECT_NE(ToUtf8(Past().Text()).find("failure -1"), std::string::npos) << Escaped(Past().Text());

  Driver->Statuses.clear();
  Click(u"mnuFileOpenInstrument"); // asks nobody
  EXPECT_EQ(Item(u"InstrumentOpened"), "True");
  ExpectNoBox();
}

TEST_F(MainProgramTest, ClosingForgetsTheNameAndItsOrigin) {
  Start(u"DMM");
  Click(u"mnuFileCloseInstrument");
  EXPECT_EQ(Item(u"OpenfromTree"), "False");
  EXPECT_EQ(Item(u"InstrumentName"), "");
  EXPECT_EQ(Wire.back(), "close");
}

TEST_F(MainProgramTest, TheWindowIsShownBeforeTheInstrumentIsOpened) {
  Driver->OnCall = [this](const std::string& line) {
    if (line == "init DMM") {
      EXPECT_TRUE(MemoryForm().IsShown());
      EXPECT_EQ(Window->MousePointer(), 11);
    }
  };
  Start(u"DMM");
  EXPECT_EQ(Window->MousePointer(), 0);
}

TEST_F(MainProgramTest, AFailingCommandIsShownByTheItemsOwnHandler) {
  OnFactory = [this] { OfferFailure(u"OpenInstrument"); };
  Start(u"DMM");
  ExpectOneBox(u"Can't open instrument.", u"frmMain.mnuFileOpenInstrument_Click");
  EXPECT_TRUE(MemoryForm().IsShown());
}

TEST_F(MainProgramTest, ANoticeIsShownOnceTheWindowIsUpAndTheProgramGoesOn) {
  Box->Answer();
  Box->OnShow = [](const auto&) { EXPECT_TRUE(gMainForm); };
  bool hasRun = false;
  EXPECT_EQ(RunProgram([&] { hasRun = true; }, u"the notice"), 0);
  EXPECT_TRUE(hasRun);
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_EQ(Box->Calls()[0], (memory::MessageBox::Call{u"the notice", u"Tolvane Portico"}));
}

TEST_F(MainProgramTest, WithoutANoticeThereIsNoBox) {
  EXPECT_EQ(RunProgram([] {}), 0);
  ExpectNoBox();
}

TEST_F(MainProgramTest, AnOrderToQuitWhileTheNoticeIsUpEndsTheProgram) {
  Box->OnShow = [this](const auto&) { Loop->RequestQuit(); };
  bool hasRun = false;
  EXPECT_EQ(RunProgram([&] { hasRun = true; }, u"the notice"), 0);
  EXPECT_FALSE(hasRun);
  EXPECT_EQ(Wire.back(), "close");
}

TEST_F(MainProgramTest, WithoutAWindowItEndsWithOneAndWaitsForNothing) {
  gForms = std::make_shared<NoForms>();
  bool hasWaited = false;
  EXPECT_EQ(RunProgram([&] { hasWaited = true; }, u"the notice"), 1);
  ExpectNoBox();
  EXPECT_FALSE(hasWaited);
  EXPECT_EQ(Wire, test::Journal{});
}

TEST_F(MainProgramTest, WithAWindowItWaitsForTheEndAndClosesTheInstrument) {
  std::string lastOfTheStart;
  EXPECT_EQ(RunProgram([&] { lastOfTheStart = Wire.back(); }), 0);
  EXPECT_EQ(Wire.front(), "init DMM");
  EXPECT_NE(lastOfTheStart, "close");
  EXPECT_EQ(Wire.back(), "close");
  EXPECT_FALSE(gConfiguration);
}

} // namespace
} // namespace portico::test
