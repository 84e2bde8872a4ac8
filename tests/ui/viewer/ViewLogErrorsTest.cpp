#include "memory/forms/ListView.h"
#include "ui/viewer/ViewLogFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

/// Viewers of logs in which errors stand.
class ViewLogErrorsTest : public ViewLogFixture {
protected:
  struct Line {
    StringView Kind;
    StringView Text;
  };
  void Log(const std::vector<Line>& lines) {
    const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf("run.log"), true));
    store->OpenSession();
    for (const Line& line : lines) store->AppendDataEntityToStore(Entity(line.Text, line.Kind));
    store->CloseSession();
  }
  static constexpr StringView Typed = u"Instruction";
  static constexpr StringView Sent = u"AutomaticInstruction";
  static constexpr StringView Answer = u"Response";
};

TEST_F(ViewLogErrorsTest, MarksErrorAnswersAndMessagesOfTheDriver) {
  Log({{Typed, u"BAD\r\n"},
       {Sent, u":SYST:ERR?\r\n"},
       {Answer, u"-113,\"Undefined header\"\r\n"},
       {Typed, u"*TST?\r\n"},
       {Answer, u"Timeout expired before the answer was complete: bench.\r\n"},
       {Sent, u"*OPC?\r\n"},
       {Answer, u"1\r\n"}});
  const auto viewer = View("run.log");
  EXPECT_THAT(Past(viewer).MarkedLines(), ElementsAre(2, 4));
  for (const StringView item : {u"mnuNextError", u"mnuPreviousError", u"mnuErrors"}) {
    EXPECT_TRUE(Menu(viewer, item).Enabled()) << ToUtf8(item);
  }
}

TEST_F(ViewLogErrorsTest, OffersNothingWhereThereIsNone) {
  Log({{Typed, u"*IDN?\r\n"}, {Answer, u"-113\r\n"}});
  const auto viewer = View("run.log");
  EXPECT_THAT(Past(viewer).MarkedLines(), ElementsAre());
  for (const StringView item : {u"mnuNextError", u"mnuPreviousError", u"mnuErrors"}) {
    EXPECT_FALSE(Menu(viewer, item).Enabled()) << ToUtf8(item);
  }
}

TEST_F(ViewLogErrorsTest, LeadsThereByKeysAndByItsList) {
  Log({{Typed, u"BAD\r\n"},
       {Sent, u":SYST:ERR?\r\n"},
       {Answer, u"-113,\"x\"\r\n"},
       {Typed, u"*RST\r\n"},
       {Sent, u":SYST:ERR?\r\n"},
       {Answer, u"-350,\"y\"\r\n"}});
  const auto viewer = View("run.log");
  auto& box = Past(viewer);
  box.SelStart(0);
  const auto caretLine = [&] { return box.GetLineFromChar(box.SelStart()); };
  EXPECT_TRUE(viewer->PressKey(F1Key + 6, 0));
  EXPECT_EQ(caretLine(), 2);
  EXPECT_TRUE(viewer->PressKey(F1Key + 6, ShiftState));
  EXPECT_EQ(caretLine(), 5);
  std::vector<std::string> rows;
  Platform.Screen->OnShowModal(u"ErrorsDialog", [&](memory::Form& form) {
    auto& list = FindControl<memory::ListView>(form, u"lstErrors");
    for (std::int32_t i = 0; i < list.ListCount(); ++i) rows.push_back(ToUtf8(list.Row(i)));
    EXPECT_TRUE(list.DoubleClick(0));
  });
  EXPECT_TRUE(Menu(viewer, u"mnuErrors").Choose());
  EXPECT_THAT(rows, ElementsAre("3 | BAD | -113,\"x\"", "6 | *RST | -350,\"y\""));
  EXPECT_EQ(caretLine(), 2);
}

TEST_F(ViewLogErrorsTest, MarksGoOnToComeWhileALongLogIsShown) {
  std::vector<Line> lines;
  for (int i = 0; i < 500; ++i) {
    lines.push_back({Typed, u"BAD\r\n"});
    lines.push_back({Sent, u":SYST:ERR?\r\n"});
    lines.push_back({Answer, u"-113\r\n"});
  }
  Log(lines);
  const auto viewer = View("run.log");
  const std::size_t first = Past(viewer).MarkedLines().size();
  EXPECT_GT(first, 10U);
  EXPECT_LT(first, 500U);
  EXPECT_TRUE(viewer->PressKey(F1Key + 6, 0));
  EXPECT_EQ(Past(viewer).SelText(), u"\u00AE-113");
  while (viewer->Caption().ends_with(u" %)")) {
    Platform.Time.Advance(std::chrono::milliseconds(1));
    gEventLoop->DoEvents();
  }
  EXPECT_EQ(Past(viewer).MarkedLines().size(), 500U);
  EXPECT_EQ(Past(viewer).MarkedLines().back(), 1499);
  EXPECT_EQ(Past(viewer).SelText(), u"\u00AE-113") << "what was selected stays so";
}

} // namespace
} // namespace portico::test
