// The plot of the main window's conversation.

#include "memory/desktop/DrawingOutput.h"
#include "memory/forms/Canvas.h"
#include "memory/forms/ListView.h"
#include "platform/KeyCodes.h"
#include "support/Files.h"
#include "ui/main/MainWindowFixture.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace portico::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class PlotTest : public MainWindowFixture {
protected:
  PlotTest() {
    HasSpies = false;
    gDrawingOutput = Output;
    Driver->OnWrite = [this](const std::string& text) {
      m_asked = text;
      return 0;
    };
    Driver->OnRead = [this] {
      if (m_asked == ":SYST:ERR?") return DriverDouble::Reading{0, "0,\"No error\"\n"};
      if (m_asked == "LIST?") return DriverDouble::Reading{0, "1,2,4\n"};
      return DriverDouble::Reading{0, m_asked == "VOLT?" ? std::to_string(++m_volts) + "\n" : "1\n"};
    };
  }
  ~PlotTest() override {
    gDrawingOutput = nullptr;
    std::filesystem::remove(Path);
  }

  void Run(StringView lines) {
    Future().Text(lines);
    Click(u"mnuRun");
  }
  IForm& Plot() {
    Click(u"mnuPlot");
    for (const auto& form : Screen->Forms()) {
      if (form->Name() == u"frmPlot") return *form;
    }
    throw std::logic_error("no plot");
  }
  static memory::Canvas& CanvasOf(IForm& plot) { return FindControl<memory::Canvas>(plot, u"cnvPlot"); }
  static std::string Described(IForm& plot) { return ToUtf8(CanvasOf(plot).Description()); }
  static std::vector<std::string> Rows(IForm& plot, StringView list) {
    std::vector<std::string> rows;
    auto& view = FindControl<memory::ListView>(plot, list);
    for (std::int32_t i = 0; i < view.ListCount(); ++i) rows.push_back(ToUtf8(view.Row(i)));
    return rows;
  }
  static bool Choose(IForm& plot, StringView item) { return FindControl<memory::MenuItem>(plot, item).Choose(); }
  /// Lets timers fire that are due within that time.
  void Wait(std::int32_t milliseconds) {
    Clock.Advance(std::chrono::milliseconds(milliseconds));
    Loop->DoEvents();
  }
  std::string Saved() const {
    std::ostringstream text;
    text << std::ifstream(Path, std::ios::binary).rdbuf();
    return text.str();
  }

  const std::filesystem::path Path = std::filesystem::path(testing::TempDir()) / "portico-plot-test";
  std::shared_ptr<memory::DrawingOutput> Output = std::make_shared<memory::DrawingOutput>();

private:
  std::string m_asked;
  int m_volts = 0;
};

TEST_F(PlotTest, ShowsWhatWasAnsweredBefore) {
  Start(u"DMM");
  Run(u"LIST?\r\nVOLT?\r\nVOLT?\r\n*RST\r\n");
  IForm& plot = Plot();
  EXPECT_THAT(Rows(plot, u"lstQueries"), ElementsAre(" | LIST? | 1", " | VOLT? | 2"));
  EXPECT_EQ(Described(plot), "VOLT?: 2 values, minimum 1, maximum 2.");
  EXPECT_EQ(CanvasOf(plot).AccessibleName(), u"Plot");
  EXPECT_THAT(Rows(plot, u"lstValues")[1], HasSubstr("VOLT? | 2 | 0 | 0 | 1 | 2 | 1.5 | 0.7071068"));
  ExpectNoBox();
}

TEST_F(PlotTest, FollowsWhatComesWithoutRedrawingAtEachAnswer) {
  Start(u"DMM");
  Run(u"VOLT?\r\n");
  IForm& plot = Plot();
  const int drawn = CanvasOf(plot).TimesShown();
  Run(u"VOLT?\r\nVOLT?\r\nVOLT?\r\n");
  EXPECT_LE(CanvasOf(plot).TimesShown(), drawn + 1);
  Wait(90);
  EXPECT_EQ(Described(plot), "VOLT?: 4 values, minimum 1, maximum 4.");
  EXPECT_LE(CanvasOf(plot).TimesShown(), drawn + 2);
}

TEST_F(PlotTest, OpensOnNothingAndSaysSo) {
  Start();
  IForm& plot = Plot();
  EXPECT_EQ(Described(plot), "Nothing is chosen.");
  EXPECT_TRUE(CanvasOf(plot).TurnWheel({.X = 3000, .Y = 3000}, 3));
  EXPECT_TRUE(CanvasOf(plot).PressKey(u'1'));
  EXPECT_TRUE(Choose(plot, u"mnuOverIndex"));
  ExpectNoBox();
}

TEST_F(PlotTest, SeveralQueriesAreDrawnAtOnce) {
  Start(u"DMM");
  Run(u"LIST?\r\nVOLT?\r\n");
  IForm& plot = Plot();
  auto& queries = FindControl<memory::ListView>(plot, u"lstQueries");
  EXPECT_TRUE(queries.DoubleClick(1));
  EXPECT_TRUE(queries.Select(0));
  EXPECT_EQ(queries.Row(1), u"yes | VOLT? | 1");
  EXPECT_EQ(Rows(plot, u"lstValues").size(), 5U) << "the cursors, three numbers of a list, one more";
  EXPECT_TRUE(queries.DoubleClick(1));
  EXPECT_TRUE(queries.Select(0));
  EXPECT_EQ(Rows(plot, u"lstValues").size(), 4U);
}

TEST_F(PlotTest, DrawsTheLastAnswerOverItsIndex) {
  Start(u"DMM");
  Run(u"LIST?\r\n");
  IForm& plot = Plot();
  EXPECT_TRUE(Choose(plot, u"mnuOverIndex"));
  EXPECT_EQ(Described(plot), "LIST?: 3 values, minimum 1, maximum 4.");
  EXPECT_TRUE(FindControl<IMenuItem>(plot, u"mnuOverIndex").Checked());
  EXPECT_FALSE(FindControl<IMenuItem>(plot, u"mnuOverTime").Checked());
}

TEST_F(PlotTest, CursorsTellTheirValuesAndDifference) {
  Start(u"DMM");
  Run(u"LIST?\r\n");
  IForm& plot = Plot();
  EXPECT_TRUE(Choose(plot, u"mnuOverIndex"));
  EXPECT_TRUE(CanvasOf(plot).PressKey(u'1'));
  EXPECT_TRUE(CanvasOf(plot).PressKey(u'2'));
  EXPECT_TRUE(CanvasOf(plot).PressKey(RightKey, CtrlState));
  EXPECT_EQ(Rows(plot, u"lstValues")[0], "(place) |  |  |  |  |  |  |  | 1 | 2 | 1");
  EXPECT_THAT(Rows(plot, u"lstValues")[1], HasSubstr(" | 2 | 4 | 2"));
}

TEST_F(PlotTest, EscapeTakesTheCursorsAwayAndThenCloses) {
  Start(u"DMM");
  Run(u"LIST?\r\n");
  IForm& plot = Plot();
  EXPECT_TRUE(Choose(plot, u"mnuOverIndex"));
  EXPECT_TRUE(Choose(plot, u"mnuCursor1"));
  const std::size_t open = Screen->Forms().size();
  const auto escape = [&plot] { EXPECT_TRUE(dynamic_cast<memory::Form&>(plot).PressKey(EscapeKey)); };
  escape();
  EXPECT_EQ(Rows(plot, u"lstValues")[0], "(place) |  |  |  |  |  |  |  |  |  | ");
  EXPECT_EQ(Screen->Forms().size(), open);
  escape();
  EXPECT_EQ(Screen->Forms().size(), open - 1);
}

TEST_F(PlotTest, SavesPicturesAndValues) {
  Start(u"DMM");
  Run(u"LIST?\r\n");
  IForm& plot = Plot();
  CommonDialog->FileName = Path.u16string();
  EXPECT_TRUE(Choose(plot, u"mnuSaveSvg"));
  EXPECT_THAT(Saved(), HasSubstr("Svg "));
  EXPECT_EQ(CommonDialog->Shown.DefaultExt, u".svg");
  EXPECT_TRUE(Choose(plot, u"mnuSavePng"));
  EXPECT_THAT(Saved(), HasSubstr("Png "));
  EXPECT_TRUE(Choose(plot, u"mnuSavePdf"));
  EXPECT_THAT(Saved(), HasSubstr("Pdf "));
  EXPECT_TRUE(Choose(plot, u"mnuOverIndex"));
  EXPECT_TRUE(Choose(plot, u"mnuSaveCsv"));
  EXPECT_EQ(Saved(), "Curve,\"Index\",Value\r\n\"LIST?\",0,1\r\n\"LIST?\",1,2\r\n\"LIST?\",2,4\r\n");
  ExpectNoBox();
}

TEST_F(PlotTest, ADiskThatRefusesIsToldAndACancelledDialogIsNot) {
  Start(u"DMM");
  Run(u"VOLT?\r\n");
  IForm& plot = Plot();
  EXPECT_TRUE(Choose(plot, u"mnuSavePng"));
  ExpectNoBox();
  CommonDialog->FileName = u"/dev/full";
  EXPECT_TRUE(Choose(plot, u"mnuSaveCsv"));
  ASSERT_EQ(Box->Calls().size(), 1U);
  EXPECT_THAT(ToUtf8(Box->Calls()[0].Prompt), HasSubstr("/dev/full was not saved: No space left on device."));
}

TEST_F(PlotTest, Prints) {
  Start(u"DMM");
  Run(u"VOLT?\r\n");
  IForm& plot = Plot();
  EXPECT_TRUE(Choose(plot, u"mnuPrint"));
  EXPECT_TRUE(Output->Printed().empty());
  CommonDialog->Context = New<DeviceContextDouble>();
  EXPECT_TRUE(Choose(plot, u"mnuPrint"));
  EXPECT_EQ(Output->Printed().size(), 1U);
}

TEST_F(PlotTest, APlotChangesNothingThatIsSentOrShown) {
  Start(u"DMM");
  Run(u"VOLT?\r\n*IDN?\r\n");
  const std::vector<std::string> wire(Wire.begin(), Wire.end());
  const String history = Past().Text();
  Plot();
  Wait(90);
  EXPECT_EQ(std::vector<std::string>(Wire.begin(), Wire.end()), wire);
  EXPECT_EQ(Past().Text(), history);
}

TEST_F(PlotTest, AClosedPlotHearsNothingMore) {
  Start(u"DMM");
  IForm& plot = Plot();
  plot.Close();
  Run(u"VOLT?\r\n");
  Wait(90);
  ExpectNoBox();
}

} // namespace
} // namespace portico::test
