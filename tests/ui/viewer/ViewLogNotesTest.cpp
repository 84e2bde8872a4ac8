#include "ui/viewer/ViewLogFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

/// Viewers of logs that are written here as a file, with the notes beside their text.
class ViewLogNotesTest : public ViewLogFixture {
protected:
  void Log(const std::string& sessions) {
    Write("run.log",
          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SCPICommLog>\n<Header ApplicationName=\"Tolvane Portico\" "
          "ApplicationVersion=\"1.0.5\"/>\n" +
              sessions + "</SCPICommLog>\n");
  }
  static std::string Session(const std::string& opened, const std::string& closed, const std::string& entities) {
    const std::string end = closed.empty() ? "" : " SessionCloseTimeStamp=\"" + closed + "-5:00\"";
    return "<Session SessionOpenTimeStamp=\"" + opened + "-5:00\"" + end + ">\n" + entities + "</Session>\n";
  }
  static std::string Entity(const std::string& kind, const std::string& stamp, const std::string& text) {
    return "<" + kind + " DataType=\"" + kind + "\" Timestamp=\"" + stamp + "-5:00\" DataFormat=\"String\"><![CDATA[" +
           text + "]]>&#13;<![CDATA[\n]]></" + kind + ">\n";
  }
  /// Two sessions, between which one has stayed empty.
  void LogTwo() {
    Log(Session("2026-11-22T08:00:00.000000000", "2026-11-22T08:00:09.000000000",
                Entity("Instruction", "2026-11-22T08:00:01.000000000", "*IDN?") +
                    Entity("Response", "2026-11-22T08:00:01.000000001", "one") +
                    Entity("Instruction", "2026-11-22T08:00:02.000000000", "*RST")) +
        Session("2026-11-22T09:00:00.000000000", "2026-11-22T09:00:01.000000000", "") +
        Session("2026-11-23T10:00:00.000000000", "",
                Entity("Instruction", "2026-11-23T10:00:05.000000000", "*CLS") +
                    Entity("Response", "no stamp", "two")));
  }
  static std::vector<std::string> Notes(const Ref<memory::Form>& viewer, std::int32_t lines) {
    std::vector<std::string> told;
    for (std::int32_t line = 0; line < lines; ++line) {
      const LineNote note = Past(viewer).Notes()->NoteOf(line);
      std::string row = note.Begins ? "=" : "";
      for (const String& column : note.Columns) row += "|" + ToUtf8(column);
      told.push_back(row);
    }
    return told;
  }
  static std::vector<std::string> Told(const Ref<memory::Form>& viewer, std::int32_t lines) {
    std::vector<std::string> told;
    for (std::int32_t line = 0; line < lines; ++line) told.push_back(ToUtf8(Past(viewer).Notes()->NoteOf(line).Told));
    return told;
  }
  static std::vector<std::string> Widest(const Ref<memory::Form>& viewer) {
    std::vector<std::string> texts;
    for (const String& text : Past(viewer).Notes()->Widest()) texts.push_back(ToUtf8(text));
    return texts;
  }
  static void ShowAll(const Ref<memory::Form>& viewer) {
    EXPECT_TRUE(Menu(viewer, u"mnuSessionMarks").Choose());
    EXPECT_TRUE(Menu(viewer, u"mnuTimeStamps").Choose());
  }
};

TEST_F(ViewLogNotesTest, ShowsNothingUnlessItIsTurnedOn) {
  LogTwo();
  const auto viewer = View("run.log");
  EXPECT_FALSE(Menu(viewer, u"mnuSessionMarks").Checked());
  EXPECT_FALSE(Menu(viewer, u"mnuTimeStamps").Checked());
  EXPECT_THAT(Widest(viewer), ElementsAre());
  EXPECT_THAT(Notes(viewer, 2), ElementsAre("", ""));
  EXPECT_THAT(Told(viewer, 2), ElementsAre("", ""));
}

TEST_F(ViewLogNotesTest, SessionMarksShowWhereEachSessionBegins) {
  LogTwo();
  const auto viewer = View("run.log");
  EXPECT_TRUE(Menu(viewer, u"mnuSessionMarks").Choose());
  EXPECT_TRUE(Menu(viewer, u"mnuSessionMarks").Checked());
  EXPECT_FALSE(Menu(viewer, u"mnuTimeStamps").Checked());
  EXPECT_THAT(Widest(viewer), ElementsAre("Session 3"));
  EXPECT_THAT(Notes(viewer, 6), ElementsAre("=|Session 1", "|", "|", "=|Session 3", "|", ""));
  const std::string first = "Session 1, opened 2026-11-22 08:00:00, closed 2026-11-22 08:00:09";
  const std::string last = "Session 3, opened 2026-11-23 10:00:00";
  EXPECT_THAT(Told(viewer, 6), ElementsAre(first, first, first, last, last, ""));
}

TEST_F(ViewLogNotesTest, TimeStampsShowTheSecondOfEachLine) {
  LogTwo();
  const auto viewer = View("run.log");
  EXPECT_TRUE(Menu(viewer, u"mnuTimeStamps").Choose());
  EXPECT_THAT(Widest(viewer), ElementsAre("0000-00-00 00:00:00"));
  EXPECT_THAT(Notes(viewer, 6), ElementsAre("|2026-11-22 08:00:01", "|2026-11-22 08:00:01", "|2026-11-22 08:00:02",
                                            "|2026-11-23 10:00:05", "|", ""));
  EXPECT_THAT(Told(viewer, 1), ElementsAre("2026-11-22 08:00:01"));
}

TEST_F(ViewLogNotesTest, BothStandBesideEachOther) {
  LogTwo();
  const auto viewer = View("run.log");
  ShowAll(viewer);
  EXPECT_THAT(Widest(viewer), ElementsAre("Session 3", "0000-00-00 00:00:00"));
  EXPECT_THAT(Notes(viewer, 2), ElementsAre("=|Session 1|2026-11-22 08:00:01", "||2026-11-22 08:00:01"));
  EXPECT_EQ(Told(viewer, 4).back(), "Session 3, opened 2026-11-23 10:00:00; 2026-11-23 10:00:05");
}

TEST_F(ViewLogNotesTest, AnAnswerOfSeveralLinesHasItsStampOnEach) {
  Log(Session("2026-11-22T08:00:00.000000000", "",
              Entity("Instruction", "2026-11-22T08:00:01.000000000", "CAT?") +
                  Entity("Response", "2026-11-22T08:00:02.000000000", "one\\par two") +
                  Entity("Instruction", "2026-11-22T08:00:03.000000000", "*RST")));
  const auto viewer = View("run.log");
  ShowAll(viewer);
  ASSERT_EQ(Past(viewer).Text(), u"CAT?\r\n\u00AEone\r\ntwo\r\n*RST\r\n");
  EXPECT_THAT(Notes(viewer, 5), ElementsAre("=|Session 1|2026-11-22 08:00:01", "||2026-11-22 08:00:02",
                                            "||2026-11-22 08:00:02", "||2026-11-22 08:00:03", ""));
}

TEST_F(ViewLogNotesTest, TextLooksAndCopiesAreTheSameWithThem) {
  LogTwo();
  const auto plain = View("run.log");
  const String text = Past(plain).Text();
  const String looks = Past(plain).TextRTF();
  plain->Unload();
  const auto viewer = View("run.log");
  ShowAll(viewer);
  EXPECT_EQ(Past(viewer).Text(), text);
  EXPECT_EQ(Past(viewer).TextRTF(), looks);
  Select(Past(viewer), 0, Past(viewer).TextLength());
  EXPECT_EQ(Past(viewer).SelText(), text);
}

TEST_F(ViewLogNotesTest, AreKeptForTheNextViewer) {
  LogTwo();
  auto viewer = View("run.log");
  ShowAll(viewer);
  viewer->Unload();
  EXPECT_EQ(gSettingsStore->GetSetting(u"Tolvane Portico", u"Data", u"SessionMarks", {}), u"On");
  EXPECT_EQ(gSettingsStore->GetSetting(u"Tolvane Portico", u"Data", u"TimeStamps", {}), u"On");
  viewer = View("run.log");
  EXPECT_TRUE(Menu(viewer, u"mnuSessionMarks").Checked());
  EXPECT_TRUE(Menu(viewer, u"mnuTimeStamps").Checked());
  EXPECT_THAT(Notes(viewer, 1), ElementsAre("=|Session 1|2026-11-22 08:00:01"));
  ShowAll(viewer);
  EXPECT_FALSE(Menu(viewer, u"mnuSessionMarks").Checked());
  EXPECT_THAT(Widest(viewer), ElementsAre());
  EXPECT_EQ(gSettingsStore->GetSetting(u"Tolvane Portico", u"Data", u"TimeStamps", {}), u"Off");
}

TEST_F(ViewLogNotesTest, ComeWithThePortionsOfALongLog) {
  std::string sessions;
  for (int session = 0; session < 3; ++session) {
    std::string entities;
    for (int i = 0; i < 400; ++i) {
      const std::string number = std::to_string(1000 * (session + 1) + i);
      entities += Entity("Instruction", "2026-11-22T0" + std::to_string(session) + ":00:00.00000" + number, number);
    }
    sessions += Session("2026-11-22T0" + std::to_string(session) + ":00:00.000000000", "", entities);
  }
  Log(sessions);
  const auto viewer = View("run.log");
  ShowAll(viewer);
  EXPECT_THAT(Widest(viewer), ElementsAre("Session 3", "0000-00-00 00:00:00"));
  EXPECT_EQ(Past(viewer).Notes()->NoteOf(800).Begins, false) << "its line is still to come";
  while (viewer->Caption().ends_with(u" %)")) {
    Platform.Time.Advance(std::chrono::milliseconds(1));
    gEventLoop->DoEvents();
  }
  std::vector<std::int32_t> begins;
  for (std::int32_t line = 0; line < 1200; ++line) {
    if (Past(viewer).Notes()->NoteOf(line).Begins) begins.push_back(line);
  }
  EXPECT_THAT(begins, ElementsAre(0, 400, 800));
  EXPECT_EQ(Past(viewer).Notes()->NoteOf(799).Columns.back(), u"2026-11-22 01:00:00");
  EXPECT_EQ(Past(viewer).Notes()->NoteOf(1199).Columns.back(), u"2026-11-22 02:00:00");
}

} // namespace
} // namespace portico::test
