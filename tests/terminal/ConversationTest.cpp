#include "terminal/Conversation.h"

#include "HandMadeReport.h"
#include "support/FrameworkTest.h"

#include <map>
#include <sstream>

namespace portico::terminal {
namespace {

using test::FailureReport;
using test::ReadReport;
using test::Report;
using test::WriteReport;

class ItemTable final : public IConfiguration {
public:
  StringView ClassName() const override { return u"ItemTable"; }
  String ItemValue(StringView Name) override { return m_items.at(String(Name)); }
  void ItemValue(StringView Name, StringView Value) override { m_items[String(Name)] = Value; }

private:
  std::map<String, String> m_items;
};

class ConversationTest : public test::FrameworkTest {
protected:
  ConversationTest() { gConfiguration = New<ItemTable>(); }

  static void Type(const String& line) { gConfiguration->ItemValue(u"CurrentInstruction", line); }

  /// What the report adds to the output.
  std::string Shown(const Ref<IObject>& report) {
    out.str({});
    conversation->Update(report);
    return out.str();
  }

  std::ostringstream out;
  Ref<Conversation> conversation = New<Conversation>(out);
};

TEST_F(ConversationTest, TypedInstructionIsMarked) {
  Type(u"*IDN?");
  EXPECT_EQ(Shown(WriteReport(u"*IDN?")), "> *IDN?\n");
}

TEST_F(ConversationTest, CaseOfTheTypedLineDoesNotCount) {
  Type(u"*idn?");
  EXPECT_EQ(Shown(WriteReport(u"*IDN?")), "> *IDN?\n");
}

TEST_F(ConversationTest, InstructionThatTheTypedLineBeginsWithIsTyped) {
  Type(u"*OPC?;*IDN?");
  EXPECT_EQ(Shown(WriteReport(u"*OPC?")), "> *OPC?\n");
}

TEST_F(ConversationTest, InstructionThatTheTypedLineOnlyHoldsIsAutomatic) {
  Type(u"*CLS;*OPC?");
  EXPECT_EQ(Shown(WriteReport(u"*OPC?")), "* *OPC?\n");
}

TEST_F(ConversationTest, InstructionLongerThanTheTypedLineIsAutomatic) {
  Type(u":SYST");
  EXPECT_EQ(Shown(WriteReport(u":SYST:ERR?")), "* :SYST:ERR?\n");
}

TEST_F(ConversationTest, InstructionBeforeAnythingIsTypedIsAutomatic) {
  Type(u"");
  EXPECT_EQ(Shown(WriteReport(u"*OPC?")), "* *OPC?\n");
}

TEST_F(ConversationTest, FailedWriteShowsAsItsInstruction) {
  Type(u"*CLS");
  const auto failed = Report({.Command = u"CWriteCmd",
                              .Data = u"The connection was lost.",
                              .ErrorCode = -1151013,
                              .ErrorMessage = u"The connection was lost.",
                              .Instruction = u"*CLS"});
  EXPECT_EQ(Shown(failed), "> *CLS\n");
}

TEST_F(ConversationTest, WriteOfNothingIsNotShown) {
  Type(u"*CLS");
  EXPECT_EQ(Shown(WriteReport(u"")), "");
}

TEST_F(ConversationTest, ResponseIsMarked) { EXPECT_EQ(Shown(ReadReport(u"+1.0")), "< +1.0\n"); }

TEST_F(ConversationTest, EachLineOfAResponseIsMarked) {
  EXPECT_EQ(Shown(ReadReport(u"one\r\ntwo\nthree")), "< one\n< two\n< three\n");
}

TEST_F(ConversationTest, BlankLineWithinAResponseIsShown) {
  EXPECT_EQ(Shown(ReadReport(u"one\r\n\r\ntwo")), "< one\n< \n< two\n");
}

TEST_F(ConversationTest, LineEndBehindAResponseMakesNoFurtherLine) {
  EXPECT_EQ(Shown(ReadReport(u"one\r\n")), "< one\n");
}

TEST_F(ConversationTest, BareLineFeedBehindAResponseIsShownAsABlankLine) {
  EXPECT_EQ(Shown(ReadReport(u"one\n")), "< one\n< \n");
}

TEST_F(ConversationTest, ResponseWithoutTextIsNotShown) { EXPECT_EQ(Shown(ReadReport(u"")), ""); }

TEST_F(ConversationTest, ResponseOfALineEndAloneIsNotShown) { EXPECT_EQ(Shown(ReadReport(u"\r\n")), ""); }

TEST_F(ConversationTest, FailedReadShowsTheDriversText) {
  EXPECT_EQ(Shown(FailureReport(u"CReadCmd", -1151016, u"Timeout expired before the answer was complete.")),
            "< Timeout expired before the answer was complete.\n");
}

TEST_F(ConversationTest, ConfigurationIsOfAnotherKind) {
  EXPECT_EQ(Shown(Report({.Command = u"CSetConfigCmd", .Data = u"<Parameters/>"})), "! <Parameters/>\n");
  EXPECT_EQ(Shown(Report({.Command = u"CGetConfigCmd", .Data = u"<Parameters>\r\n</Parameters>\r\n"})),
            "! <Parameters>\n! </Parameters>\n");
}

TEST_F(ConversationTest, OpenShowsItsFailureOnly) {
  EXPECT_EQ(Shown(Report({.Command = u"COpenCmd"})), "");
  EXPECT_EQ(Shown(FailureReport(u"COpenCmd", -1151008, u"The host is not known.")), "! The host is not known.\n");
}

TEST_F(ConversationTest, OtherReportsAreNotShown) {
  for (const String command : {u"CCloseCmd", u"CSetAttribCmd", u"CGetAttribCmd", u"CIntervalPacingCmd"}) {
    EXPECT_EQ(Shown(Report({.Command = command, .Data = u"text", .Instruction = u"text"})), "") << ToUtf8(command);
  }
}

TEST_F(ConversationTest, EndOfAnInstructionIsNotShown) {
  const auto complete = Report(
      {.Command = u"SCPIInstructionProcessor", .ErrorCode = static_cast<std::int32_t>(0x80041454), .ErrorMessage = {}});
  EXPECT_EQ(Shown(complete), "");
}

TEST_F(ConversationTest, TextIsWrittenAsUtf8) {
  EXPECT_EQ(Shown(ReadReport(u"5 \u00B5V, 3 \u20AC")), "< 5 \xC2\xB5V, 3 \xE2\x82\xAC\n");
}

TEST_F(ConversationTest, RemarksAndBlankLinesAreMarked) {
  conversation->Remark(u"REM a remark");
  conversation->Remark(u"");
  EXPECT_EQ(out.str(), "# REM a remark\n# \n");
}

/// Remembers what stood there at each flush.
class FlushRecorder final : public std::stringbuf {
public:
  std::vector<std::string> Flushed;

private:
  int sync() override {
    Flushed.push_back(str());
    return 0;
  }
};

TEST_F(ConversationTest, EachLineIsFlushedByItself) {
  FlushRecorder recorder;
  std::ostream stream(&recorder);
  New<Conversation>(stream)->Update(ReadReport(u"one\ntwo"));
  EXPECT_EQ(recorder.Flushed, (std::vector<std::string>{"< one\n", "< one\n< two\n"}));
}

} // namespace
} // namespace portico::terminal
