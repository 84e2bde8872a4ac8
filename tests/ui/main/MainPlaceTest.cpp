#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

class MainPlaceTest : public MainWindowFixture {
protected:
  void ExpectPlace(double left, double top, double width, double height) {
    EXPECT_EQ(Form().Left(), left);
    EXPECT_EQ(Form().Top(), top);
    EXPECT_EQ(Form().Width(), width);
    EXPECT_EQ(Form().Height(), height);
  }
  std::vector<std::string> Saved() {
    std::vector<std::string> saved;
    for (const char16_t* key :
         {u"MainLeft", u"MainTop", u"MainWidth", u"MainHeight", u"MainWindowState", u"SplitPercent"}) {
      saved.push_back(Setting(key));
    }
    return saved;
  }
  using Texts = std::vector<std::string>;
};

TEST_F(MainPlaceTest, HasADefault) {
  Start();
  ExpectPlace(1000, 1000, 6500, 6500);
  EXPECT_EQ(Form().WindowState(), WindowState::Normal);
}

TEST_F(MainPlaceTest, IsThatOfTheLastTime) {
  Save(u"MainLeft", u"150");
  Save(u"MainTop", u"30");
  Save(u"MainWidth", u"9000");
  Save(u"MainHeight", u"7500.5");
  Save(u"SplitPercent", u"40");
  Start();
  ExpectPlace(150, 30, 9000, 7500.5);
  End();
  EXPECT_EQ(Saved(), (Texts{"150", "30", "9000", "7500.5", "0", "40"}));
}

TEST_F(MainPlaceTest, IsWithinTheScreenAndSavedAsItIs) {
  Save(u"MainLeft", u"-30");
  Save(u"MainTop", u"900");
  Save(u"MainWidth", u"6500");
  Save(u"MainHeight", u"90000");
  Start();
  ExpectPlace(0, 0, 6500, memory::ScreenHeight);
  End();
  EXPECT_EQ(Saved(), (Texts{"0", "0", "6500", "16200", "0", "75"}));
}

TEST_F(MainPlaceTest, NumbersAreSingleFloats) {
  Save(u"MainLeft", u"0.1");
  Save(u"MainTop", u"1e3");
  Start();
  EXPECT_EQ(Form().Left(), static_cast<double>(0.1F));
  EXPECT_EQ(Form().Top(), 1000);
}

TEST_F(MainPlaceTest, AMaximizedWindowComesBackMaximizedAndKeepsItsPlaceInTheStore) {
  Save(u"MainWindowState", u"2");
  Save(u"MainLeft", u"150");
  Start();
  EXPECT_EQ(Form().WindowState(), WindowState::Maximized);
  End();
  EXPECT_EQ(Saved(), (Texts{"150", "(none)", "(none)", "(none)", "2", "75"}));
}

TEST_F(MainPlaceTest, AMinimizedWindowSavesNoGeometryAndTheStateKeepsItsLastValue) {
  Save(u"MainWindowState", u"2");
  Save(u"MainLeft", u"150");
  Start();
  Form().WindowState(WindowState::Minimized);
  End();
  EXPECT_EQ(Saved(), (Texts{"150", "(none)", "(none)", "(none)", "2", "75"}));
}

TEST_F(MainPlaceTest, AStateOfMinimizedIsRestored) {
  Save(u"MainWindowState", u"1");
  Start();
  ExpectNoBox();
  EXPECT_EQ(Form().WindowState(), WindowState::Minimized);
}

TEST_F(MainPlaceTest, ANormalWindowSavesAll) {
  Start();
  Form().Move(10, 20, 8000, 7000);
  End();
  EXPECT_EQ(Saved(), (Texts{"10", "20", "8000", "7000", "0", "75"}));
}

TEST_F(MainPlaceTest, ADraggedBarIsSavedAsAWholePercentage) {
  Start();
  auto& area = FindControl<memory::SplitArea>(Form(), u"splitterNow");
  auto& bar = area.Splitter();
  EXPECT_TRUE(bar.PressMouse({.Button = LeftButton}));
  EXPECT_TRUE(bar.MoveMouse({.Button = LeftButton, .Y = -100000}));
  EXPECT_TRUE(bar.ReleaseMouse({.Button = LeftButton}));
  End();
  EXPECT_EQ(Setting(u"SplitPercent"), "10");
}

struct OddValue {
  StringView Key;
  StringView Text;
};
class OddPlaceTest : public MainPlaceTest, public ::testing::WithParamInterface<OddValue> {};

TEST_P(OddPlaceTest, FailsTheLoad) {
  Save(String(GetParam().Key), String(GetParam().Text));
  EXPECT_TRUE(Quits([this] { Start(); }));
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_EQ(Box->Calls()[0].Prompt.find(u"An error occured while loading.\r\n"), 0U);
  const auto calls = CallStack(Box->Calls()[0].Prompt);
  ASSERT_FALSE(calls.empty());
  EXPECT_TRUE(Bears(calls.back(), u"frmMain.Form_Load"));
  EXPECT_FALSE(MemoryForm().IsShown());
}

INSTANTIATE_TEST_SUITE_P(OfEachKey, OddPlaceTest,
                         ::testing::Values(OddValue{u"MainLeft", u"left"}, OddValue{u"MainTop", u""},
                                           OddValue{u"MainWidth", u"1,2x"}, OddValue{u"MainHeight", u"six"},
                                           OddValue{u"MainWindowState", u"open"}, OddValue{u"MainWindowState", u"3"},
                                           OddValue{u"MainWindowState", u"-1"}, OddValue{u"SplitPercent", u"half"},
                                           OddValue{u"SplitPercent", u"256"}, OddValue{u"SplitPercent", u"-1"}));

TEST_F(MainPlaceTest, ANumberThatIsNoneIsATypeMismatch) {
  Save(u"MainLeft", u"left");
  EXPECT_TRUE(Quits([this] { Start(); }));
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_NE(Box->Calls()[0].Prompt.find(u"  Number: 13 = "), String::npos) << ToUtf8(Box->Calls()[0].Prompt);
}

struct Share {
  StringView Text;
  double Fraction;
};
class ShareTest : public MainPlaceTest, public ::testing::WithParamInterface<Share> {};

TEST_P(ShareTest, IsTakenAsItStands) {
  Save(u"SplitPercent", String(GetParam().Text));
  Start();
  ExpectNoBox();
  const auto& area = FindControl<ISplitArea>(Form(), u"splitterNow");
  EXPECT_NEAR(Past().Height(), (area.ScaleHeight() - 3 * FormUnitsPerPixel) * GetParam().Fraction, 1);
}

INSTANTIATE_TEST_SUITE_P(Odd, ShareTest,
                         ::testing::Values(Share{u"0", 0}, Share{u"100", 1}, Share{u"62.5", 0.62},
                                           Share{u" 5 ", 0.05}));

class MainResizeTest : public MainWindowFixture {
protected:
  MainResizeTest() { Start(); }
  ISplitArea& Area() { return FindControl<ISplitArea>(Form(), u"splitterNow"); }
  IPictureBox& Logo() { return FindControl<IPictureBox>(Form(), u"picLogo"); }
  IToolBar& Bar() { return FindControl<IToolBar>(Form(), ToolBarName); }
  IStatusBar& Status() { return FindControl<IStatusBar>(Form(), StatusBarName); }
};

TEST_F(MainResizeTest, FillsTheWindow) {
  ASSERT_TRUE(MemoryForm().Resize(12000, 9000));
  EXPECT_EQ(Area().Top(), Bar().Height() + Form().ScaleTop());
  EXPECT_EQ(Area().Height(), Form().ScaleHeight() - Bar().Height() - Status().Height());
  EXPECT_EQ(Area().Width(), Form().ScaleWidth());
  EXPECT_EQ(Logo().Top(), Bar().Top());
  EXPECT_EQ(Logo().Left(), Form().ScaleWidth() - Logo().Width());
  EXPECT_EQ(Bar().Width(), Form().ScaleWidth());
  EXPECT_GT(Area().Width(), 11000);
}

TEST_F(MainResizeTest, FollowsAToolbarOfAnotherPlaceAndHeight) {
  Bar().Top(30);
  Bar().Height(900);
  Window->Form_Resize();
  EXPECT_EQ(Area().Top(), 900 + Form().ScaleTop());
  EXPECT_EQ(Logo().Top(), 30);
}

TEST_F(MainResizeTest, TheLogoStandsAtTheRightEndWhateverItsWidth) {
  EXPECT_EQ(Logo().Left(), 6500 - 8 * 15 - 32 * 15) << "without the frame";
  Logo().Width(900);
  ASSERT_TRUE(MemoryForm().Resize(12000, 9000));
  EXPECT_EQ(Logo().Left(), 12000 - 8 * 15 - 900);
}

TEST_F(MainResizeTest, AStepThatFailsMovesOnToTheNext) {
  const double height = Area().Height();
  ASSERT_TRUE(MemoryForm().Resize(12000, 100)); // too low for the two bars
  EXPECT_EQ(Area().Height(), height) << "a height below 0 is refused";
  EXPECT_EQ(Area().Width(), Form().ScaleWidth());
  EXPECT_EQ(Logo().Left(), Form().ScaleWidth() - Logo().Width());
  EXPECT_EQ(Bar().Width(), Form().ScaleWidth());
  ExpectNoBox();
  EXPECT_EQ(HuntERR::ErrNumber(), 0) << "nothing is reported";
}

TEST_F(MainResizeTest, AMinimizedWindowIsLeftAlone) {
  const double width = Bar().Width();
  Form().Move(0, 0, 12000, 9000);
  Bar().Width(width);
  Area().Top(1);
  Form().WindowState(WindowState::Minimized);
  Window->Form_Resize();
  EXPECT_EQ(Bar().Width(), width);
  EXPECT_EQ(Area().Top(), 1);
}

} // namespace
} // namespace portico::test
