#include "views/faults/FaultMarks.h"

#include "framework/errors/ErrorNumbers.h"
#include "memory/forms/RichTextControl.h"
#include "support/doubles/ConfigurationDouble.h"
#include "support/doubles/HandMadeReport.h"
#include "support/fixtures/WindowPlatform.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr ControlDesign FaultsParts[] = {{.Kind = ControlKind::RichTextBox, .Name = u"text", .Caption = u""}};
constexpr FormDesign FaultsWindow = {.Name = u"frmMain", .Caption = u"", .Controls = FaultsParts};

constexpr StringView Undefined = u"-113,\"Undefined header\"";
constexpr StringView Silence = u"The instrument sent no answer within 5000 ms.";

/// Each report is shown as a line of its own before the marks hear of it, as in the window.
class FaultMarksTest : public WindowTest {
protected:
  FaultMarksTest() {
    gConfiguration = New<ConfigurationDouble>(m_journal);
    gConfiguration->ItemValue(Item::AutoErrorCheckingMode, u"On");
    gConfiguration->ItemValue(Item::AutoReadAfterQueryMode, u"On");
    gConfiguration->ItemValue(Item::ErrorCheckingCommand, u":SYST:ERR?");
  }
  ~FaultMarksTest() override { gConfiguration = {}; }

  void Run(const String& line) { gConfiguration->ItemValue(Item::CurrentInstruction, line); }
  void Write(const String& text) { Show(text, WriteReport(text)); }
  void Read(StringView text) { Show(text, ReadReport(String(text))); }
  void Fail(const String& command, StringView text) { Show(text, FailureReport(command, -1151016, String(text))); }
  void FailToWrite(const String& text, const String& message) {
    Show(text, Report({.Command = u"CWriteCmd", .ErrorCode = -1151016, .ErrorMessage = message, .Instruction = text}));
  }
  void End() { m_faults->Update(Report({.Command = u"CReport", .ErrorCode = ErrorNumber::InstructionComplete})); }
  /// A line with its error query.
  void Ask(const String& line, StringView answer, StringView error) {
    Run(line);
    Write(line);
    Read(answer);
    Write(u":SYST:ERR?");
    Read(error);
    End();
  }

  /// "LINE INSTRUCTION -> ANSWER" of each mark.
  std::vector<std::string> Found() const {
    std::vector<std::string> found;
    for (const FoundError& error : m_marks->All()) {
      found.push_back(std::to_string(error.Line) + " " + ToUtf8(error.Instruction) + " -> " + ToUtf8(error.Answer));
    }
    return found;
  }

  void Show(StringView line, const Ref<IObject>& report) {
    m_text->SelStart(m_text->TextLength());
    m_text->SelText(String(line) + u"\r\n");
    m_faults->Update(report);
  }

private:
  Journal m_journal;
  Ref<IForm> m_form = gForms->Load(FaultsWindow);
  Ref<memory::RichTextControl> m_text = ShareControl<memory::RichTextControl>(m_form, u"text");
  Ref<ErrorMarks> m_marks = New<ErrorMarks>(m_text);
  Ref<FaultMarks> m_faults = New<FaultMarks>(m_marks);
};

TEST_F(FaultMarksTest, AnErrorAnswerIsMarkedWithTheLineThatWasRun) {
  Ask(u"*IDN?", u"x", u"0,\"No error\"");
  Ask(u"NONSENSE?", u"y", Undefined);
  EXPECT_THAT(Found(), ElementsAre("7 NONSENSE? -> -113,\"Undefined header\""));
}

TEST_F(FaultMarksTest, AnAnswerToTheUserThatLooksLikeAnErrorIsNone) {
  Ask(u"MEAS?", u"-113", u"+0,\"No error\"");
  EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(FaultMarksTest, AnotherQueryThatComesLastIsNoErrorQuery) {
  Run(u"");
  Write(u"*STB?");
  Read(u"-5");
  End();
  EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(FaultMarksTest, TheErrorQueryIsKnownInWhateverCaseItIsSent) {
  Run(u"X");
  Write(u"X");
  Write(u" :syst:err? ");
  Read(Undefined);
  End();
  EXPECT_THAT(Found(), ElementsAre("2 X -> -113,\"Undefined header\""));
}

TEST_F(FaultMarksTest, WithoutErrorCheckingNoAnswerIsAnError) {
  gConfiguration->ItemValue(Item::AutoErrorCheckingMode, u"Off");
  Ask(u"X", u"1", Undefined);
  EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(FaultMarksTest, WhatTheDriverSaysIsMarkedAtOnce) {
  Run(u"*TST?");
  Write(u"*TST?");
  Fail(u"CReadCmd", Silence);
  EXPECT_THAT(Found(), ElementsAre("1 *TST? -> The instrument sent no answer within 5000 ms."));
  End();
  EXPECT_EQ(Found().size(), 1U);
}

TEST_F(FaultMarksTest, AReadBehindAWriteThatFailedIsNoFaultOfItsOwn) {
  Run(u"*TST?");
  FailToWrite(u"*TST?", u"The connection was lost.");
  Fail(u"CReadCmd", Silence);
  EXPECT_THAT(Found(), ElementsAre("0 *TST? -> The connection was lost."));
}

TEST_F(FaultMarksTest, AnInstructionOfTheProgramKeepsTheUsersLine) {
  Ask(u"A", u"1", u"0,\"No error\"");
  Run(u" ");
  Write(u"*OPC?");
  Fail(u"CReadCmd", Silence);
  EXPECT_THAT(Found(), ElementsAre("5 A -> The instrument sent no answer within 5000 ms."));
}

TEST_F(FaultMarksTest, AnOpenedInstrumentBeginsWithoutALine) {
  Ask(u"A", u"1", u"0,\"No error\"");
  Run(u"");
  Fail(u"COpenCmd", u"The connection could not be made.");
  EXPECT_THAT(Found(), ElementsAre("4  -> The connection could not be made."));
}

TEST_F(FaultMarksTest, WhatIsNotShownIsNotMarked) {
  Ask(u"A", u"1", u"0,\"No error\"");
  Fail(u"CSetAttribCmd", u"The driver cannot do that.");
  EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(FaultMarksTest, TheNextInstructionIsJudgedForItself) {
  Ask(u"A", u"1", Undefined);
  Show(u"On", Report({.Command = u"CGetConfigCmd", .Data = u"On"})); // which asks the instrument nothing
  End();
  Run(u"B");
  Write(u"B");
  End();
  EXPECT_EQ(Found().size(), 1U);
}

} // namespace
} // namespace portico::test
