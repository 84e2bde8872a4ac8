#include "framework/objects/Creator.h"
#include "support/Labels.h"
#include "support/fixtures/FrameworkTest.h"
#include "ui/commands/AnswerCommands.h"
#include "ui/commands/CompletionCommands.h"
#include "ui/commands/DataCommands.h"
#include "ui/commands/DeviceCommands.h"
#include "ui/commands/EditCommands.h"
#include "ui/commands/ErrorCommands.h"
#include "ui/commands/InstrumentCommands.h"
#include "ui/commands/MergeCommands.h"
#include "ui/commands/NoteCommands.h"
#include "ui/commands/PictureCommands.h"
#include "ui/commands/PlotCommands.h"
#include "ui/commands/PrintCommands.h"
#include "ui/commands/ReadingCommands.h"
#include "ui/commands/RecallCommands.h"
#include "ui/commands/RepeatCommand.h"
#include "ui/commands/TimingCommand.h"
#include "ui/dialogs/frmTVSCPIOptions.h"

namespace portico::test {
namespace {

class CreatorRowsTest : public FrameworkTest {
protected:
  static void Expect(const CreatorRow& row, StringView name, StringView specification, std::size_t count,
                     StringView failure = {}) {
    EXPECT_EQ(ToUtf8(row.Name), ToUtf8(name));
    EXPECT_EQ(ToUtf8(row.Specification), ToUtf8(specification));
    EXPECT_EQ(row.ParamCount, count) << ToUtf8(name);
    EXPECT_EQ(row.FailureNumber, failure.empty() ? 0 : 31004) << ToUtf8(name);
    EXPECT_EQ(ToUtf8(row.FailureText), ToUtf8(failure));
    EXPECT_FALSE(row.Singleton);
  }
};

TEST_F(CreatorRowsTest, EditCommands) {
  Expect(CtorCut, u"CtorCut", u"Cut", 0, u"Cannot create a cut command.");
  Expect(CtorCopy, u"CtorCopy", u"Copy", 0, u"Cannot create a copy command.");
  Expect(CtorPaste, u"CtorPaste", u"Paste", 0, u"Cannot create a paste command.");
  Expect(CtorCopyTo, u"CtorCopyTo", u"Copyto", 0, u"Cannot create a paste from command.");
  Expect(CtorPasteFrom, u"CtorPasteFrom", u"Pastefrom", 0, u"Cannot create a paste from command.");
  Expect(CtorClearHistory, u"CtorClearHistory", u"ClearHistory", 0, u"Cannot create a clearHistory command.");
}

TEST_F(CreatorRowsTest, MergeAndPrintCommands) {
  Expect(CtorMerge, u"CtorMerge", u"MergeDataContainer", 2, u"Cannot create a merge command.");
  Expect(CtorMergeFrom, u"CtorMergeFrom", u"MergeDataContainerFromFile", 3, u"Cannot create a merge from command.");
  Expect(CtorPrint, u"CtorPrint", u"Print", 2, u"Cannot create a Print command.");
  Expect(CtorPrintSetup, u"CtorPrintSetup", u"PrintSetup", 1, u"Cannot create a PrintSetup command.");
}

TEST_F(CreatorRowsTest, InstrumentCommandsAndOptions) {
  Expect(CtorOpenInstrument, u"CtorOpenInstrument", u"OpenInstrument", 0);
  Expect(CtorCloseInstrument, u"CtorCloseInstrument", u"CloseInstrument", 0);
  Expect(CtorReadInstrumentData, u"CtorReadInstrumentData", u"ReadInstrumentData", 0);
  Expect(CtorQueryStatus, u"CtorQueryStatus", u"QueryStatus", 0);
  Expect(CtorWaitOPC, u"CtorWaitOPC", u"WaitforOPC", 0);
  Expect(CtorConfigOptions, u"CtorConfigOptions", u"ConfigOptions", 0);
}

TEST_F(CreatorRowsTest, ReadingCommands) {
  Expect(CtorFind, u"CtorFind", u"Find", 0);
  Expect(CtorFindNext, u"CtorFindNext", u"FindNext", 0);
  Expect(CtorFindPrevious, u"CtorFindPrevious", u"FindPrevious", 0);
  Expect(CtorZoomIn, u"CtorZoomIn", u"ZoomIn", 0);
  Expect(CtorZoomOut, u"CtorZoomOut", u"ZoomOut", 0);
  Expect(CtorActualSize, u"CtorActualSize", u"ActualSize", 0);
}

TEST_F(CreatorRowsTest, DataCommands) { Expect(CtorStopAtErrors, u"CtorStopAtErrors", u"StopAtErrors", 0); }

TEST_F(CreatorRowsTest, DeviceCommands) {
  Expect(CtorSetTimeout, u"CtorSetTimeout", u"SetTimeout", 0);
  Expect(CtorClearDevice, u"CtorClearDevice", u"ClearDevice", 0);
  Expect(CtorGoToLocal, u"CtorGoToLocal", u"GoToLocal", 0);
}

TEST_F(CreatorRowsTest, ErrorCommands) {
  Expect(CtorNextError, u"CtorNextError", u"NextError", 2);
  Expect(CtorPreviousError, u"CtorPreviousError", u"PreviousError", 2);
  Expect(CtorListErrors, u"CtorListErrors", u"ListErrors", 2);
}

TEST_F(CreatorRowsTest, NoteCommands) {
  Expect(CtorSessionMarks, u"CtorSessionMarks", u"SessionMarks", 1);
  Expect(CtorTimeStamps, u"CtorTimeStamps", u"TimeStamps", 1);
}

TEST_F(CreatorRowsTest, PictureCommands) { Expect(CtorShowPicture, u"CtorShowPicture", u"ShowPicture", 2); }

TEST_F(CreatorRowsTest, RecallCommands) {
  Expect(CtorEarlierLine, u"CtorEarlierLine", u"EarlierLine", 0);
  Expect(CtorLaterLine, u"CtorLaterLine", u"LaterLine", 0);
  Expect(CtorSearchSentLines, u"CtorSearchSentLines", u"SearchSentLines", 0);
  Expect(CtorPutBackLastRun, u"CtorPutBackLastRun", u"PutBackLastRun", 0);
  Expect(CtorKeepSentLines, u"CtorKeepSentLines", u"KeepSentLines", 0);
  Expect(CtorForgetSentLines, u"CtorForgetSentLines", u"ForgetSentLines", 0);
  Expect(CtorComplete, u"CtorComplete", u"Complete", 1);
  Expect(CtorAskForCommands, u"CtorAskForCommands", u"AskForCommands", 0);
}

TEST_F(CreatorRowsTest, RepeatCommand) { Expect(CtorRepeat, u"CtorRepeat", u"Repeat", 1); }
TEST_F(CreatorRowsTest, PlotCommands) { Expect(CtorShowPlot, u"CtorShowPlot", u"ShowPlot", 2); }

TEST_F(CreatorRowsTest, TimingCommand) { Expect(CtorShowTimes, u"CtorShowTimes", u"ShowTimes", 0); }
TEST_F(CreatorRowsTest, AnswerCommands) {
  Expect(CtorSaveAnswer, u"CtorSaveAnswer", u"SaveAnswer", 1);
  Expect(CtorFetchAnswer, u"CtorFetchAnswer", u"FetchAnswer", 0);
}

TEST_F(CreatorRowsTest, EachMakesItsProduct) {
  const auto product = [](const CreatorRow& row) { return ToUtf8(MakeCreator(row)->Create({})->ClassName()); };
  EXPECT_EQ(product(CtorCut), "CCut");
  EXPECT_EQ(product(CtorCopy), "CCopy");
  EXPECT_EQ(product(CtorPaste), "CPaste");
  EXPECT_EQ(product(CtorCopyTo), "CCopyTo");
  EXPECT_EQ(product(CtorPasteFrom), "CPasteFrom");
  EXPECT_EQ(product(CtorClearHistory), "CClearHistory");
  EXPECT_EQ(product(CtorOpenInstrument), "COpenInstrument");
  EXPECT_EQ(product(CtorCloseInstrument), "CCloseInstrument");
  EXPECT_EQ(product(CtorReadInstrumentData), "CReadInstrumentData");
  EXPECT_EQ(product(CtorQueryStatus), "CQueryStatus");
  EXPECT_EQ(product(CtorWaitOPC), "CWaitOPC");
  EXPECT_EQ(product(CtorConfigOptions), "CConfigOptions");
}

TEST_F(CreatorRowsTest, CountIsTested) {
  auto error = Raised([] { MakeCreator(CtorConfigOptions)->Create(modGlobals::VarArray(1)); });
  ExpectError(error, 450, u"Expected 0 parameters.");
  ExpectTrail(error, {u"CtorConfigOptions.ICreator_Create(Params)"});
  error = Raised([] { MakeCreator(CtorPrint)->Create({}); });
  ExpectError(error, 450, u"Expected 2 parameters.");
  error = Raised([] { MakeCreator(CtorPrintSetup)->Create({}); });
  ExpectError(error, 450, u"Expected 1 parameter.");
  error = Raised([] { MakeCreator(CtorMergeFrom)->Create({}); });
  ExpectError(error, 450, u"Expected 3 parameter.");
}

TEST_F(CreatorRowsTest, OptionsCreatorKnowsItsSpecification) {
  const auto creator = MakeCreator(CtorConfigOptions);
  EXPECT_EQ(creator->Specification().ToString(), u"ConfigOptions");
  EXPECT_TRUE(creator->IsMatch(u"ConfigOptions"));
  EXPECT_FALSE(creator->IsMatch(u"configoptions"));
  const auto error = Raised([&] { creator->IsMatch(Params{}); });
  ExpectTrail(error, {u"CtorConfigOptions.ICreator_IsMatch(Specification)"});
}

} // namespace
} // namespace portico::test
