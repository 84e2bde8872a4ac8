#include "framework/errors/HuntERR.h"

#include "support/ErrorReports.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"

#include <type_traits>

namespace portico {
namespace {

using test::CallStack;
using test::FirstDescription;
using test::Hex;
using test::Raised;

class HuntERRTest : public test::FrameworkTest {
protected:
  /// Leaves an error current, as unwinding does before the tail runs.
  static void MakeCurrent(std::int32_t number, StringView description = u"No beam.") {
    Raised([&] { HuntERR::Raise(number, u"Tester", description, u"help.hlp", 77); });
  }
};

TEST_F(HuntERRTest, CheckDoesNothingWhileTheConditionHolds) {
  EXPECT_NO_THROW(HuntERR::Check(true, 5, u"Handler cannot be nothing."));
  EXPECT_EQ(HuntERR::Err().Number, 0);
}

TEST_F(HuntERRTest, CheckRaisesNumberMessageAndItsOwnSource) {
  const ErrorRecord error = Raised([] { HuntERR::Check(false, 5, u"Handler cannot be nothing."); });
  EXPECT_EQ(error.Number, 5);
  EXPECT_EQ(error.Source, u"HuntERR.Check");
  EXPECT_EQ(error.Description.Text(), u"Handler cannot be nothing.");
  EXPECT_EQ(error.HelpFile, u"");
  EXPECT_EQ(error.HelpContext, 0);
  EXPECT_EQ(error.LastDllError, 0U);
  EXPECT_EQ(error.Erl, 0);
  EXPECT_EQ(HuntERR::Err().Number, 5);
}

TEST_F(HuntERRTest, CheckPassesHelpFileAndContext) {
  const ErrorRecord error = Raised([] { HuntERR::Check(false, 5, u"x", {}, u"TVPort.hlp", 12); });
  EXPECT_EQ(error.HelpFile, u"TVPort.hlp");
  EXPECT_EQ(error.HelpContext, 12);
}

TEST_F(HuntERRTest, CheckReplacesDoubleBarsByLineBreaks) {
  const ErrorRecord error = Raised([] { HuntERR::Check(false, 5, u"One.||Two.|Three.||"); });
  EXPECT_EQ(error.Description.Text(), u"One.\r\nTwo.|Three.\r\n");
}

TEST_F(HuntERRTest, CheckReplacesPlaceholdersByTextForms) {
  const ErrorRecord error = Raised([] { HuntERR::Check(false, 5, u"%2 is not %1, but %2.", Params{u"On", 7}); });
  EXPECT_EQ(error.Description.Text(), u"7 is not 'On', but 7.");
}

TEST_F(HuntERRTest, CheckTellsTheTenthPlaceholderFromTheFirst) {
  const Params values = {1, 2, 3, 4, 5, 6, 7, 8, 9, u"ten"};
  EXPECT_EQ(Raised([&] { HuntERR::Check(false, 5, u"%10 %1 %11", values); }).Description.Text(), u"'ten' 1 11");
}

TEST_F(HuntERRTest, CheckWithoutValuesLeavesPlaceholdersAlone) {
  EXPECT_EQ(Raised([] { HuntERR::Check(false, 5, u"%1 of %2"); }).Description.Text(), u"%1 of %2");
}

TEST_F(HuntERRTest, AMessageBeginningWithANumberSignStandsAsItIs) {
  EXPECT_EQ(Raised([] { HuntERR::Check(false, 5, u"#1020"); }).Description.Text(), u"#1020");
}

TEST_F(HuntERRTest, ACostlyMessageIsComposedOnFailureOnly) {
  int composed = 0;
  const auto compose = [&] {
    ++composed;
    return String(u"composed");
  };
  HuntERR::Check(true, 5, compose);
  EXPECT_EQ(composed, 0);
  EXPECT_EQ(Raised([&] { HuntERR::Check(false, 5, compose); }).Description.Text(), u"composed");
  EXPECT_EQ(composed, 1);
}

TEST_F(HuntERRTest, CheckWithNumber0CollectsForTheNextReport) {
  HuntERR::Check(false, 0, u"First remark.");
  HuntERR::Check(true, 0, u"Not this one.");
  HuntERR::Check(false, 0, u"Second||remark.");
  MakeCurrent(17);
  const String report = HuntERR::ErrorIn(u"C.M()", {}, 0x2A);
  const String dashes(100 - String(u"  Call Stack: C.M() ").size(), u'-');
  EXPECT_EQ(report.substr(report.find(u"  Call Stack")),
            u"  Call Stack: C.M() " + dashes + u"\r\nFirst remark.\r\nSecond\r\nremark.\r\n");
}

TEST_F(HuntERRTest, CollectedTextStandsInOneReportOnly) {
  HuntERR::Check(false, 0, u"First remark.");
  MakeCurrent(17);
  HuntERR::ErrorIn(u"C.M()", {}, 0x2A);
  MakeCurrent(17);
  EXPECT_EQ(HuntERR::ErrorIn(u"C.M()", {}, 0x2A).Text().find(u"First remark."), String::npos);
}

TEST_F(HuntERRTest, TheTailPassesTheErrorOnWithTheReportAsDescription) {
  MakeCurrent(17);
  const ErrorRecord passed = Raised([] { HuntERR::ErrorIn(u"C.M(A)", {}, 0x23); });
  EXPECT_EQ(passed.Number, 17);
  EXPECT_EQ(passed.Source, u"HuntERR.ErrorIn");
  EXPECT_EQ(passed.HelpFile, u"help.hlp");
  EXPECT_EQ(passed.HelpContext, 77);
  EXPECT_EQ(FirstDescription(passed), u"No beam.");
  EXPECT_EQ(CallStack(passed), (std::vector<String>{u"C.M(A)"}));
}

TEST_F(HuntERRTest, TheTailOfATopLevelHandlerStopsTheErrorAndReturnsTheReport) {
  MakeCurrent(17);
  const String report = HuntERR::ErrorIn(u"C.M(A)", {}, 0x2A);
  EXPECT_EQ(CallStack(report), (std::vector<String>{u"C.M(A)"}));
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(HuntERR::ErrSource(), u"HuntERR.ErrorIn");
  EXPECT_EQ(HuntERR::ErrDescription(), report);
  EXPECT_EQ(HuntERR::ErrReport(), report);
  EXPECT_EQ(HuntERR::Err().Number, 17);
  EXPECT_EQ(HuntERR::Err().Description.Text(), report);
}

TEST_F(HuntERRTest, ErrDescriptionAfterATopLevelTailShowsTimeMethodNumberAndCallStack) {
  MakeCurrent(17);
  HuntERR::ErrorIn(u"frmMain.mnuRun_Click()", {}, 0x2A);
  const String shown = HuntERR::ErrDescription();
  for (const StringView piece :
       {u"No beam. \r\n", u"  Time='02/09/04 08:05:03'", u"  Method: frmMain.mnuRun_Click \r\n", u"  Number: 17 = ",
        u"  Call Stack: frmMain.mnuRun_Click() --"}) {
    EXPECT_NE(shown.find(piece), String::npos) << ToUtf8(piece);
  }
}

TEST_F(HuntERRTest, TheSecondTailAddsOneStackLineAndNoSecondHeader) {
  MakeCurrent(17);
  const String first = Raised([] { HuntERR::ErrorIn(u"Inner.Do()", {}, 0x23); }).Description;
  const String second = Raised([] { HuntERR::ErrorIn(u"Outer.Do()", {}, 0x23); }).Description;
  EXPECT_EQ(second.substr(0, first.size()), first);
  EXPECT_EQ(CallStack(second), (std::vector<String>{u"Inner.Do()", u"Outer.Do()"}));
  EXPECT_EQ(second.find(u"  Time='"), second.rfind(u"  Time='"));
}

TEST_F(HuntERRTest, TheBitsForTransactionsAndWebRequestsHaveNoEffect) {
  MakeCurrent(17);
  const String plain = HuntERR::ErrorIn(u"C.M()", {}, 0x02);
  MakeCurrent(17);
  EXPECT_EQ(HuntERR::ErrorIn(u"C.M()", {}, 0x02 | 0x04 | 0x08 | 0x20).Text(), plain);
}

TEST_F(HuntERRTest, WithoutTheReportBitDescriptionAndSourceStay) {
  MakeCurrent(17);
  EXPECT_EQ(HuntERR::ErrorIn(u"C.M()", {}, 0x00).Text(), u"");
  EXPECT_EQ(HuntERR::ErrSource(), u"Tester");
  const ErrorRecord passed = Raised([] { HuntERR::ErrorIn(u"C.M()", {}, 0x01); });
  EXPECT_EQ(passed.Source, u"Tester");
  EXPECT_EQ(passed.Description.Text(), u"No beam.");
}

TEST_F(HuntERRTest, ATailWithoutAnErrorTellsThatInformationWasLost) {
  const ErrorRecord lost = Raised([] { HuntERR::ErrorIn(u"C.M()", {}, 0x23); });
  EXPECT_EQ(lost.Number, Hex(0x8004144E));
  EXPECT_EQ(FirstDescription(lost),
            u"ErrorIn: Error information was lost. To fix: call ErrPreserve before doing anything in error handler.");
  EXPECT_NE(lost.Description.Text().find(u"ERRMAP_APP_FIRST + 0 = ERR_GENERAL\r\n"), String::npos);
}

TEST_F(HuntERRTest, ErrPreserveKeepsTheFirstErrorUntilATailEnds) {
  MakeCurrent(17);
  HuntERR::ErrPreserve();
  MakeCurrent(53, u"Another.");
  HuntERR::ErrPreserve();
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(FirstDescription(HuntERR::ErrorIn(u"C.M()", {}, 0x2A).Text()), u"No beam.");
  MakeCurrent(53, u"Another.");
  EXPECT_EQ(FirstDescription(HuntERR::ErrorIn(u"C.M()", {}, 0x2A).Text()), u"Another.");
}

TEST_F(HuntERRTest, ErrPreserveWithoutAnErrorHoldsNothing) {
  HuntERR::ErrPreserve();
  MakeCurrent(53);
  HuntERR::ErrPreserve();
  EXPECT_EQ(HuntERR::ErrNumber(), 53);
}

TEST_F(HuntERRTest, ErrRestoreWritesTheSavedFieldsBack) {
  MakeCurrent(17);
  HuntERR::ErrPreserve();
  MakeCurrent(53, u"Another.");
  HuntERR::ErrRestore();
  EXPECT_EQ(HuntERR::Err().Number, 17);
  EXPECT_EQ(HuntERR::Err().Source, u"Tester");
  EXPECT_EQ(HuntERR::Err().Description.Text(), u"No beam.");
  EXPECT_EQ(HuntERR::Err().HelpFile, u"help.hlp");
  EXPECT_EQ(HuntERR::Err().HelpContext, 77);
}

TEST_F(HuntERRTest, SavedFieldsTellTheErrorBeforeAnyTail) {
  MakeCurrent(17);
  HuntERR::ErrPreserve();
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(HuntERR::ErrSource(), u"Tester");
  EXPECT_EQ(HuntERR::ErrDescription(), u"No beam.");
}

TEST_F(HuntERRTest, TheExpectedNumbersHaveTwoExactEnds) {
  const auto isExpected = [](std::uint32_t number) {
    MakeCurrent(Hex(number));
    HuntERR::ErrorIn(u"C.M()", {}, 0x2A);
    return HuntERR::IsExpectedError();
  };
  EXPECT_FALSE(isExpected(0x80041064));
  EXPECT_TRUE(isExpected(0x80041065));
  EXPECT_TRUE(isExpected(0x80041100));
  EXPECT_TRUE(isExpected(0x8004144D));
  EXPECT_FALSE(isExpected(0x8004144E));
  EXPECT_FALSE(isExpected(5));
}

TEST_F(HuntERRTest, AnExpectedErrorPassesAllTailsUnchanged) {
  MakeCurrent(Hex(0x80041100), u"The plain description.");
  const ErrorRecord passed = Raised([] { HuntERR::ErrorIn(u"Inner.Do()", {}, 0x23); });
  EXPECT_EQ(passed.Number, Hex(0x80041100));
  EXPECT_EQ(passed.Source, u"Tester");
  EXPECT_EQ(passed.Description.Text(), u"The plain description.");
  EXPECT_EQ(HuntERR::ErrorIn(u"Outer.Do()", {}, 0x2A).Text(), u"");
  EXPECT_EQ(HuntERR::ErrDescription(), u"The plain description.");
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(HuntERRTest, AnExpectedErrorEmptiesTheReportOfTheOneBefore) {
  MakeCurrent(17);
  HuntERR::ErrorIn(u"C.M()", {}, 0x2A);
  MakeCurrent(Hex(0x80041100));
  HuntERR::ErrorIn(u"C.M()", {}, 0x2A);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(HuntERRTest, TheReportStaysUntilTheNextErrorOverwritesIt) {
  MakeCurrent(17);
  const String first = HuntERR::ErrorIn(u"C.M()", {}, 0x2A);
  EXPECT_EQ(HuntERR::ErrReport(), first);
  MakeCurrent(53, u"Another.");
  EXPECT_EQ(HuntERR::ErrReport(), first);
  HuntERR::ErrorIn(u"C.M()", {}, 0x2A);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"Another.");
}

TEST_F(HuntERRTest, WithoutAReportErrReportIsTheDescriptionThatATailHasMade) {
  ErrorRecord record;
  record.Number = 17;
  record.Source = u"HuntERR.ErrorIn";
  record.Description = String(u"Report so far.\r\n");
  HuntERR::Load(Error(record));
  EXPECT_EQ(HuntERR::ErrReport(), u"Report so far.\r\n");
  record.Source = u"HuntERR.Check";
  HuntERR::Load(Error(record));
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(HuntERRTest, ResetForgetsEverything) {
  HuntERR::Check(false, 0, u"Remark.");
  MakeCurrent(17);
  HuntERR::ErrorIn(u"C.M()", {}, 0x2A);
  HuntERR::Reset();
  EXPECT_EQ(HuntERR::Err().Number, 0);
  EXPECT_EQ(HuntERR::ErrNumber(), 0);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(HuntERRTest, AnUncaughtErrorTellsItsDescriptionInUtf8) {
  const ErrorRecord record{17, u"s", String(u"5 \u00B5V"), {}, 0, 0, 0};
  EXPECT_STREQ(Error(record).what(), "5 \xC2\xB5V");
  EXPECT_STREQ(Error::WithHeldCopy(record).what(), "5 \xC2\xB5V");
}

TEST_F(HuntERRTest, AnErrorIsCopiedWithoutFail) { EXPECT_TRUE(std::is_nothrow_copy_constructible_v<Error>); }

TEST(LazyText, IsComposedOnceWhenACopyIsRead) {
  int composed = 0;
  const LazyText text([&composed] {
    ++composed;
    return String(u"composed");
  });
  const LazyText copy = text; // NOLINT(performance-unnecessary-copy-initialization): the copy is the point
  EXPECT_EQ(composed, 0);
  EXPECT_EQ(copy.Text(), u"composed");
  EXPECT_EQ(text.Text(), u"composed");
  EXPECT_EQ(composed, 1);
}

TEST(LazyText, OfNothingIsEmpty) { EXPECT_EQ(LazyText().Text(), u""); }

} // namespace
} // namespace portico
