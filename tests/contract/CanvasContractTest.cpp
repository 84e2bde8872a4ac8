// A canvas, as far as the program alone can tell.

#include "contract/FormsBench.h"

#include "platform/ICanvas.h"
#include "support/ErrorReports.h"

#include <array>

namespace portico::test {
namespace {

constexpr std::array CanvasControls{ControlDesign{.Kind = ControlKind::Canvas, .Name = u"canvas"}};
constexpr FormDesign CanvasWindow{.Name = u"frmWindow", .Caption = u"A Window", .Controls = CanvasControls};

class CanvasContract : public FormsContract {
protected:
  Ref<IForm> Loaded = Forms().Load(CanvasWindow);
  ICanvas& Canvas = FindControl<ICanvas>(*Loaded, u"canvas");
};

INSTANTIATE_TEST_SUITE_P(AllForms, CanvasContract, testing::ValuesIn(AllFormsBenches()), FormsBenchName);

TEST_P(CanvasContract, IsPlacedInAWindow) {
  EXPECT_EQ(Canvas.Kind(), ControlKind::Canvas);
  Canvas.Move(15, 30, 3000, 1500);
  EXPECT_EQ(Canvas.Left(), 15);
  EXPECT_EQ(Canvas.Top(), 30);
  EXPECT_EQ(Canvas.Width(), 3000);
  EXPECT_EQ(Canvas.Height(), 1500);
  EXPECT_EQ(Raised([&] { Canvas.Height(-1); }).Number, 380);
}

TEST_P(CanvasContract, StandsInATabOrder) {
  EXPECT_EQ(Canvas.TabIndex(), 0);
  EXPECT_TRUE(Canvas.TabStop());
  Canvas.TabStop(false);
  EXPECT_FALSE(Canvas.TabStop());
}

TEST_P(CanvasContract, HasNoCaption) {
  EXPECT_EQ(Canvas.Caption(), String());
  EXPECT_EQ(Raised([&] { Canvas.Caption(u"A caption"); }).Number, 438);
}

TEST_P(CanvasContract, MeasuresTexts) {
  EXPECT_EQ(Canvas.ExtentOf(u""), 0);
  EXPECT_GT(Canvas.ExtentOf(u"0"), 0);
  EXPECT_GT(Canvas.ExtentOf(u"-1.5 mV"), Canvas.ExtentOf(u"-1.5"));
  EXPECT_GT(Canvas.LineHeight(), Canvas.ExtentOf(u"0") / 2);
}

TEST_P(CanvasContract, ShowsADrawingOfEveryKindOfPart) {
  const DrawnRectangle whole{0, 0, 200, 100};
  const std::vector<DrawnPoint> points = {{1, 1}, {50, 60}, {90, 10}, {120, 80}};
  Canvas.Move(0, 0, 3000, 1500);
  Canvas.Show(
      {200,
       100,
       {Fill{whole}, Clip{whole}, Polyline{points}, Segments{points}, Marks{points}, DrawnText{{100, 50}, u"A text"}}});
  Loaded->Show();
  Loop().DoEvents();
  Canvas.Show({});
  Loop().DoEvents();
}

} // namespace
} // namespace portico::test
