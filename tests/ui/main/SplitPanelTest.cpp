#include "ui/main/SplitPanel.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"
#include "support/ErrorReports.h"
#include "support/Journal.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico::test {
namespace {

std::string Number(double number) { return ToUtf8(ToText(number)); }

/// A place that writes each move down, and refuses sizes below 0.
class PlaceDouble : public virtual IPlaced, public Writer {
public:
  using Writer::Writer;
  double Left() const override { return m_left; }
  void Left(double newValue) override { m_left = newValue; }
  double Top() const override { return m_top; }
  void Top(double newValue) override { m_top = newValue; }
  double Width() const override { return m_width; }
  void Width(double newValue) override { m_width = newValue; }
  double Height() const override { return m_height; }
  void Height(double newValue) override { m_height = newValue; }
  void Move(double Left, double Top, double Width, double Height) override {
    Note(Number(Left) + " " + Number(Top) + " " + Number(Width) + " " + Number(Height));
    if (Width < 0 || Height < 0) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
    m_left = Left;
    m_top = Top;
    m_width = Width;
    m_height = Height;
  }

private:
  double m_left = 0;
  double m_top = 0;
  double m_width = 0;
  double m_height = 0;
};

class ControlDouble : public virtual IControl {
public:
  StringView Name() const override { return {}; }
  ControlKind Kind() const override { return ControlKind::SplitPanel; }
  String Tag() const override { return {}; }
  String Caption() const override { return {}; }
  void Caption(const String&) override {}
  String ToolTipText() const override { return {}; }
  void ToolTipText(const String&) override {}
  bool Enabled() const override { return true; }
  void Enabled(bool) override {}
  bool Visible() const override { return true; }
  void Visible(bool) override {}
};

class BarDouble final : public IPictureBox, public PlaceDouble, public ControlDouble {
public:
  using PlaceDouble::PlaceDouble;
  void BackColor(std::int32_t newValue) override { Note("colour " + ToUtf8(ToHexText(std::uint32_t(newValue)))); }
  void MousePointer(std::int32_t shape) override { Note("pointer " + std::to_string(shape)); }
  void BringToFront() override { Note("front"); }
  Event<const MouseEvent&>& MouseDown() override { return Down; }
  Event<const MouseEvent&>& MouseMove() override { return Moved; }
  Event<const MouseEvent&>& MouseUp() override { return Up; }

  Event<const MouseEvent&> Down;
  Event<const MouseEvent&> Moved;
  Event<const MouseEvent&> Up;
};

class AreaDouble final : public ISplitArea, public PlaceDouble, public ControlDouble {
public:
  explicit AreaDouble(Journal& journal) : PlaceDouble(journal, "area"), Bar(journal, "bar") {}
  double ScaleWidth() const override { return Wide; }
  double ScaleHeight() const override { return High; }
  IPictureBox& Splitter() override { return Bar; }
  Event<>& Resize() override { return Resized; }

  double Wide = 1080;
  double High = 580;
  BarDouble Bar;
  Event<> Resized;
};

/// A table of what was written, default or not.
class BagDouble final : public IPropertyBag {
public:
  explicit BagDouble(Journal& journal) : m_journal(journal) {}
  Value ReadProperty(StringView Name, const Value& Default) override {
    const auto found = Items.find(String(Name));
    return found == Items.end() ? Default : found->second;
  }
  void WriteProperty(StringView Name, const Value& NewValue, const Value& Default) override {
    m_journal.push_back(ToUtf8(Name) + "=" + ToUtf8(NewValue.ToString()) + " not " + ToUtf8(Default.ToString()));
  }
  std::map<String, Value> Items;

private:
  Journal& m_journal;
};

class SplitPanelTest : public FrameworkTest {
protected:
  Journal Take() { return std::exchange(Calls, {}); }
  template <class Act>
  Journal CallsOf(Act&& act) {
    Calls.clear();
    act();
    return Take();
  }
  void GiveChildren() {
    Panel.Control1(&First);
    Panel.Control2(&Second);
  }
  /// The mouse at a place within the bar, the left button down.
  void Drag(double x, double y) { Area.Bar.Moved({LeftButton, 0, x, y}); }

  Journal Calls;
  AreaDouble Area{Calls};
  PlaceDouble First{Calls, "first"};
  PlaceDouble Second{Calls, "second"};
  SplitPanel Panel{Area};
};

TEST_F(SplitPanelTest, BeginsWithAStandingBarInTheMiddle) {
  EXPECT_FALSE(Panel.HorizontalSplit());
  EXPECT_EQ(Panel.Control1(), nullptr);
  EXPECT_EQ(Panel.Control2(), nullptr);
  EXPECT_EQ(Panel.SplitPercent(), 50);
  EXPECT_EQ(Panel.SplitWidth(), 80);
  EXPECT_EQ(Take(), (Journal{"bar.pointer 9"}));
}

TEST_F(SplitPanelTest, LaysTwoControlsOutSideBySide) {
  GiveChildren();
  EXPECT_EQ(CallsOf([&] { Area.Resized(); }),
            (Journal{"first.0 0 500 580", "second.580 0 500 580", "bar.500 0 80 580"}));
}

TEST_F(SplitPanelTest, LaysTwoControlsOutOneAboveTheOther) {
  GiveChildren();
  EXPECT_EQ(CallsOf([&] { Panel.HorizontalSplit(true); }),
            (Journal{"bar.pointer 7", "first.0 0 1080 250", "second.0 330 1080 250", "bar.0 250 1080 80"}));
  EXPECT_TRUE(Panel.HorizontalSplit());
  EXPECT_EQ(CallsOf([&] { Panel.HorizontalSplit(false); }),
            (Journal{"bar.pointer 9", "first.0 0 500 580", "second.580 0 500 580", "bar.500 0 80 580"}));
}

TEST_F(SplitPanelTest, GivesTheFirstControlItsShareOfWhatTheBarLeaves) {
  Panel.HorizontalSplit(true);
  GiveChildren();
  EXPECT_EQ(CallsOf([&] { Panel.SplitPercent(75); }),
            (Journal{"first.0 0 1080 375", "second.0 455 1080 125", "bar.0 375 1080 80"}));
}

TEST_F(SplitPanelTest, EachControlIsLaidOutWhenItIsSet) {
  EXPECT_EQ(CallsOf([&] { Panel.Control2(&Second); }), (Journal{"second.580 0 500 580", "bar.500 0 80 580"}));
  EXPECT_EQ(CallsOf([&] { Panel.Control1(&First); }),
            (Journal{"first.0 0 500 580", "second.580 0 500 580", "bar.500 0 80 580"}));
  EXPECT_EQ(Panel.Control1(), &First);
  EXPECT_EQ(Panel.Control2(), &Second);
}

TEST_F(SplitPanelTest, ALayoutWithNoChildrenSetPassesSilently) {
  EXPECT_EQ(CallsOf([&] { Area.Resized(); }), (Journal{"bar.500 0 80 580"}));
}

TEST_F(SplitPanelTest, APercentageOf0Or100IsTakenAsItStands) {
  GiveChildren();
  EXPECT_EQ(CallsOf([&] { Panel.SplitPercent(0); }),
            (Journal{"first.0 0 0 580", "second.80 0 1000 580", "bar.0 0 80 580"}));
  EXPECT_EQ(Panel.SplitPercent(), 0);
  EXPECT_EQ(CallsOf([&] { Panel.SplitPercent(100); }),
            (Journal{"first.0 0 1000 580", "second.1080 0 0 580", "bar.1000 0 80 580"}));
  EXPECT_EQ(Panel.SplitPercent(), 100);
}

TEST_F(SplitPanelTest, APercentageAbove100IsKeptThoughTheSecondControlHasNoRoom) {
  GiveChildren();
  EXPECT_EQ(CallsOf([&] { Panel.SplitPercent(200); }).back(), "bar.2000 0 80 580");
  EXPECT_EQ(Panel.SplitPercent(), 200);
}

TEST_F(SplitPanelTest, EveryPercentageReadsBack) {
  for (int percent = 0; percent <= 255; ++percent) {
    Panel.SplitPercent(static_cast<std::uint8_t>(percent));
    EXPECT_EQ(Panel.SplitPercent(), percent);
  }
}

TEST_F(SplitPanelTest, AWidthAboveTheAreasIsCutToIt) {
  Area.Wide = 30;
  EXPECT_EQ(CallsOf([&] { Panel.SplitWidth(45); }), (Journal{"bar.0 0 30 580"}));
  EXPECT_EQ(Panel.SplitWidth(), 30);
}

TEST_F(SplitPanelTest, AWidthIsCutToAWholeNumberHalvesToTheEvenOne) {
  Area.Wide = 30.5;
  Panel.SplitWidth(45);
  EXPECT_EQ(Panel.SplitWidth(), 30);
  Area.Wide = 31.5;
  Panel.SplitWidth(45);
  EXPECT_EQ(Panel.SplitWidth(), 32);
}

TEST_F(SplitPanelTest, TheWidthThatItHasAlreadyLaysNothingOut) {
  EXPECT_EQ(CallsOf([&] { Panel.SplitWidth(80); }), Journal{});
  EXPECT_EQ(CallsOf([&] { Panel.SplitWidth(45); }), (Journal{"bar.517.5 0 45 580"}));
}

TEST_F(SplitPanelTest, ASizeTooSmallForTheChildrenDisturbsNobody) {
  GiveChildren();
  Area.Wide = 40;
  EXPECT_EQ(CallsOf([&] { Area.Resized(); }),
            (Journal{"first.0 0 -20 580", "second.60 0 -20 580", "bar.-20 0 80 580"}));
}

TEST_F(SplitPanelTest, TheEndOfTheProgramPassesALayout) {
  GiveChildren();
  First.OnCall = [](const std::string&) { throw Quit{}; };
  EXPECT_THROW(Area.Resized(), Quit);
}

TEST_F(SplitPanelTest, TheBarIsDarkAndInFrontWhileItIsDragged) {
  EXPECT_EQ(CallsOf([&] { Area.Bar.Down({LeftButton, 0, 5, 5}); }), (Journal{"bar.colour 80000008", "bar.front"}));
  EXPECT_EQ(CallsOf([&] { Area.Bar.Up({LeftButton, 0, 5, 5}); }), (Journal{"bar.colour 8000000F", "bar.500 0 80 580"}));
}

TEST_F(SplitPanelTest, TheBarFollowsTheMouseAndTheChildrenWaitForItsRelease) {
  GiveChildren();
  Area.Resized(); // the bar stands at 500
  EXPECT_EQ(CallsOf([&] { Drag(380, 17); }), (Journal{"bar.800 0 80 580"}));
  EXPECT_EQ(Panel.SplitPercent(), 74); // 800 of 1080
  EXPECT_EQ(CallsOf([&] { Area.Bar.Up({LeftButton, 0, 0, 0}); }).front(), "bar.colour 8000000F");
  EXPECT_NEAR(First.Width(), 1000.0 * 800 / 1080, 1E-4);
  EXPECT_NEAR(Area.Bar.Left(), 1000.0 * 800 / 1080, 1E-4); // snapped to the share of what the bar leaves
}

TEST_F(SplitPanelTest, ALyingBarFollowsTheMouseUpAndDown) {
  Panel.HorizontalSplit(true);
  GiveChildren();
  Area.Bar.Left(7);
  EXPECT_EQ(CallsOf([&] { Drag(17, 120); }), (Journal{"bar.0 290 1080 80"})); // it lay at 250
  EXPECT_EQ(Panel.SplitPercent(), 50);
}

TEST_F(SplitPanelTest, TheNewPlaceIsWrittenBackIntoTheMousesPlace) {
  Area.Resized();
  double x = 380;
  double y = 17;
  Panel.Splitter_MouseMove(LeftButton, 0, x, y);
  EXPECT_EQ(x, 800);
  EXPECT_EQ(y, 17);
  Panel.HorizontalSplit(true); // it lies at 370 now
  Area.Bar.Top(250);
  x = 17;
  y = 120;
  Panel.Splitter_MouseMove(LeftButton, 0, x, y);
  EXPECT_EQ(x, 17);
  EXPECT_EQ(y, 290);
}

TEST_F(SplitPanelTest, TheBarMovesOnlyWhileTheLeftButtonIsDown) {
  Area.Resized();
  double x = 380;
  double y = 17;
  for (const std::int32_t button : {0, RightButton, 4}) {
    EXPECT_EQ(CallsOf([&] { Panel.Splitter_MouseMove(button, 0, x, y); }), Journal{});
  }
  EXPECT_EQ(x, 380);
  EXPECT_EQ(Panel.SplitPercent(), 50);
  EXPECT_EQ(CallsOf([&] { Panel.Splitter_MouseMove(LeftButton | RightButton, 0, x, y); }),
            (Journal{"bar.800 0 80 580"}));
}

TEST_F(SplitPanelTest, ADragPastTheEdgeLeavesTheBarThereUntilItsRelease) {
  GiveChildren();
  Area.Resized();
  EXPECT_EQ(CallsOf([&] { Drag(-700, 0); }), (Journal{"bar.-280 0 80 580"}));
  EXPECT_EQ(Panel.SplitPercent(), 10);
  Area.Bar.Up({LeftButton, 0, 0, 0});
  EXPECT_NEAR(Area.Bar.Left(), 100, 1E-4);
  EXPECT_NEAR(First.Width(), 100, 1E-4);
  EXPECT_EQ(CallsOf([&] { Drag(1480, 0); }).size(), 1U);
  EXPECT_NEAR(Area.Bar.Left(), 1500, 1E-4);
  EXPECT_EQ(Panel.SplitPercent(), 90);
  Area.Bar.Up({LeftButton, 0, 0, 0});
  EXPECT_NEAR(Area.Bar.Left(), 900, 1E-4);
  EXPECT_NEAR(Second.Width(), 100, 1E-4);
}

TEST_F(SplitPanelTest, APercentageReadBackAfterADragIsTheNearestWholeOneBetween10And90) {
  Area.Wide = 1000;
  for (int place = -200; place <= 1200; ++place) {
    double x = place + 80;
    double y = 0;
    Area.Bar.Left(0);
    Panel.Splitter_MouseMove(LeftButton, 0, x, y);
    const double exact = std::clamp(place / 10.0, 10.0, 90.0);
    EXPECT_LE(std::abs(Panel.SplitPercent() - exact), 0.5001) << place;
  }
  double x = 80 + 125; // 12.5 percent is halfway, and 12 is even
  double y = 0;
  Area.Bar.Left(0);
  Panel.Splitter_MouseMove(LeftButton, 0, x, y);
  EXPECT_EQ(Panel.SplitPercent(), 12);
}

TEST_F(SplitPanelTest, ADragInAnAreaWithoutExtentDoesNothing) {
  Area.Wide = 0;
  double x = 5;
  double y = 5;
  EXPECT_EQ(CallsOf([&] { Panel.Splitter_MouseMove(LeftButton, 0, x, y); }), Journal{});
  EXPECT_EQ(Panel.SplitPercent(), 50);
}

TEST_F(SplitPanelTest, AllButTheWidthMarksAChange) {
  BagDouble bag(Calls);
  EXPECT_FALSE(Panel.IsChanged());
  Panel.SplitWidth(45);
  EXPECT_FALSE(Panel.IsChanged());
  const auto marks = [&](auto&& change) {
    Panel.WriteProperties(bag);
    const bool before = Panel.IsChanged();
    change();
    return !before && Panel.IsChanged();
  };
  EXPECT_TRUE(marks([&] { Panel.HorizontalSplit(true); }));
  EXPECT_TRUE(marks([&] { Panel.Control1(&First); }));
  EXPECT_TRUE(marks([&] { Panel.Control2(&Second); }));
  EXPECT_TRUE(marks([&] { Panel.SplitPercent(50); }));
}

TEST_F(SplitPanelTest, KeepsDirectionAndShareAndNothingElse) {
  BagDouble bag(Calls);
  Panel.HorizontalSplit(true);
  Panel.SplitPercent(75);
  Panel.SplitWidth(45);
  EXPECT_EQ(CallsOf([&] { Panel.WriteProperties(bag); }),
            (Journal{"HorizontalSplit=True not False", "SplitPercent=75 not 50"}));
}

TEST_F(SplitPanelTest, TakesWhatWasKept) {
  BagDouble bag(Calls);
  bag.Items = {{u"HorizontalSplit", true}, {u"SplitPercent", 30}};
  EXPECT_EQ(CallsOf([&] { Panel.ReadProperties(bag); }),
            (Journal{"bar.pointer 7", "bar.0 250 1080 80", "bar.0 150.00000596046448 1080 80"}));
  EXPECT_TRUE(Panel.HorizontalSplit());
  EXPECT_EQ(Panel.SplitPercent(), 30);
  EXPECT_FALSE(Panel.IsChanged());
}

TEST_F(SplitPanelTest, TakesTheDefaultsWhereNothingWasKept) {
  BagDouble bag(Calls);
  Panel.HorizontalSplit(true);
  Panel.SplitPercent(75);
  Panel.ReadProperties(bag);
  EXPECT_FALSE(Panel.HorizontalSplit());
  EXPECT_EQ(Panel.SplitPercent(), 50);
}

TEST_F(SplitPanelTest, GoesOnPastWhatCannotBeTaken) {
  BagDouble bag(Calls);
  bag.Items = {{u"HorizontalSplit", String(u"upright")}, {u"SplitPercent", 30}};
  Panel.ReadProperties(bag);
  EXPECT_FALSE(Panel.HorizontalSplit());
  EXPECT_EQ(Panel.SplitPercent(), 30);
  for (const Value& bad : {Value(256), Value(-1), Value(String(u"much"))}) {
    bag.Items = {{u"HorizontalSplit", true}, {u"SplitPercent", bad}};
    Panel.ReadProperties(bag);
    EXPECT_TRUE(Panel.HorizontalSplit());
    EXPECT_EQ(Panel.SplitPercent(), 30);
  }
}

TEST_F(SplitPanelTest, HearsNothingMoreWhenItIsGone) {
  { SplitPanel other(Area); }
  EXPECT_EQ(CallsOf([&] { Area.Resized(); }).size(), 1U);
  EXPECT_EQ(CallsOf([&] { Area.Bar.Down({}); }).size(), 2U);
  EXPECT_EQ(CallsOf([&] { Area.Bar.Moved({LeftButton, 0, 5, 5}); }).size(), 1U);
  EXPECT_EQ(CallsOf([&] { Area.Bar.Up({}); }).size(), 2U);
}

} // namespace
} // namespace portico::test
