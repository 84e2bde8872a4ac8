#include "memory/forms/Canvas.h"
#include "ui/viewer/ViewLogFixture.h"

#include <gtest/gtest.h>

#include <fstream>

namespace portico::test {
namespace {

/// Plots of logs.
class ViewLogPlotTest : public ViewLogFixture {
protected:
  void Log() {
    const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf("run.log"), true));
    store->OpenSession();
    const auto append = [&](StringView text, StringView type, StringView stamp) {
      store->AppendDataEntityToStore(Create(Class::DataEntity, ToBytes(text), type, stamp));
    };
    append(u"VOLT?\r\n", DataTypeName::Instruction, u"2026-11-22T10:00:00.000000001+00:00");
    append(u"1.5\r\n", DataTypeName::Response, u"2026-11-22T10:00:01.000000001+00:00");
    append(u"VOLT?\r\n", DataTypeName::Instruction, u"2026-11-22T10:00:05.000000001+00:00");
    append(u"2.5\r\n", DataTypeName::Response, u"2026-11-22T10:00:08.000000001+00:00");
    store->CloseSession();
  }
  memory::Canvas& Plot(const Ref<memory::Form>& viewer) {
    EXPECT_TRUE(Menu(viewer, u"mnuPlot").Choose());
    for (const auto& form : Platform.Screen->Forms()) {
      if (form->Name() == u"frmPlot") return FindControl<memory::Canvas>(*form, u"cnvPlot");
    }
    throw std::logic_error("no plot");
  }
  static bool Shows(const memory::Canvas& canvas, StringView text) {
    for (const auto& part : canvas.Picture().Parts) {
      const auto* drawn = std::get_if<DrawnText>(&part);
      if (drawn != nullptr && drawn->Text == text) return true;
    }
    return false;
  }
};

TEST_F(ViewLogPlotTest, TimesAreThoseOfTheLogAndTheAxisSaysHowExact) {
  Log();
  const auto viewer = View("run.log");
  auto& canvas = Plot(viewer);
  EXPECT_EQ(ToUtf8(canvas.Description()), "VOLT?: 2 values, minimum 1.5, maximum 2.5.");
  EXPECT_TRUE(Shows(canvas, u"Time since the first answer, in whole seconds as the log has them"));
  EXPECT_TRUE(Shows(canvas, u"7.0 s")) << "from the first answer to the second";
}

TEST_F(ViewLogPlotTest, ALogThatGrowsMeanwhileIsNoFault) {
  Log();
  const auto viewer = View("run.log");
  std::ofstream(ToUtf8(NameOf("run.log")), std::ios::app) << "<what somebody writes";
  EXPECT_EQ(ToUtf8(Plot(viewer).Description()), "VOLT?: 2 values, minimum 1.5, maximum 2.5.");
}

TEST_F(ViewLogPlotTest, APlotOutlivesItsViewer) {
  Log();
  const auto viewer = View("run.log");
  auto& canvas = Plot(viewer);
  viewer->Close();
  EXPECT_TRUE(canvas.TurnWheel({.X = 3000, .Y = 3000}, 1));
}

} // namespace
} // namespace portico::test
