#include "views/faults/RunGuard.h"

#include "memory/SettingsStore.h"
#include "support/doubles/HandMadeReport.h"
#include "views/RunFixture.h"

namespace portico::test {
namespace {

constexpr StringView NoAnswer = u"The instrument sent no answer within 5000 ms.";

class RunGuardTest : public RunFixture {
protected:
  RunGuardTest() {
    gConfiguration->ItemValue(Item::AutoErrorCheckingMode, u"On");
    gConfiguration->ItemValue(Item::AutoReadAfterQueryMode, u"On");
    gConfiguration->ItemValue(Item::ErrorCheckingCommand, u":SYST:ERR?");
    gMainForm->Executing(true);
    gMainForm->StopRequested(false);
  }
  ~RunGuardTest() override { gSettingsStore.reset(); }

  static Ref<IObject> End() { return Report({.Command = u"CReport", .ErrorCode = ErrorNumber::InstructionComplete}); }
  /// A query with its error query.
  static void Ask(RunGuard& guard, const String& answer, const String& error) {
    guard.Update(WriteReport(u"*IDN?"));
    guard.Update(ReadReport(answer));
    guard.Update(WriteReport(u":SYST:ERR?"));
    guard.Update(ReadReport(error));
    guard.Update(End());
  }

  std::shared_ptr<memory::SettingsStore> Store = std::make_shared<memory::SettingsStore>();
  const bool IsWired = bool(gSettingsStore = Store);
};

TEST_F(RunGuardTest, StopsARunAtTheFirstErrorAnswer) {
  RunGuard guard;
  guard.IsOn(true);
  Ask(guard, u"-222", u"0,\"No error\"");
  EXPECT_FALSE(gMainForm->StopRequested()) << "an answer to the instruction itself is none to the error query";
  Ask(guard, u"0", u"-113,\"Undefined header\"");
  EXPECT_TRUE(gMainForm->StopRequested());
}

TEST_F(RunGuardTest, StopsARunAtTheFirstFailureOfTheDriver) {
  RunGuard guard;
  guard.IsOn(true);
  guard.Update(WriteReport(u"*IDN?"));
  guard.Update(FailureReport(u"CReadCmd", -1151016, String(NoAnswer)));
  EXPECT_FALSE(gMainForm->StopRequested()) << "the instruction goes on to its end";
  guard.Update(End());
  EXPECT_TRUE(gMainForm->StopRequested());
}

TEST_F(RunGuardTest, AnAnswerToTheUserStopsNothingWhereItComesLast) {
  RunGuard guard;
  guard.IsOn(true);
  guard.Update(WriteReport(u"*STB?"));
  guard.Update(ReadReport(u"5"));
  guard.Update(End());
  EXPECT_FALSE(gMainForm->StopRequested());
}

TEST_F(RunGuardTest, ForgetsWhatAnInstructionBeforeHasDone) {
  RunGuard guard;
  Ask(guard, u"1", u"-113,\"Undefined header\"");
  guard.IsOn(true);
  Ask(guard, u"1", u"0,\"No error\"");
  EXPECT_FALSE(gMainForm->StopRequested());
}

TEST_F(RunGuardTest, StopsNothingUnlessItIsOn) {
  RunGuard guard;
  EXPECT_FALSE(guard.IsOn());
  Ask(guard, u"1", u"-113,\"Undefined header\"");
  EXPECT_FALSE(gMainForm->StopRequested());
}

TEST_F(RunGuardTest, LeavesAStopOutsideOfRunsAlone) {
  RunGuard guard;
  guard.IsOn(true);
  gMainForm->Executing(false);
  Ask(guard, u"1", u"-113,\"Undefined header\"");
  EXPECT_FALSE(gMainForm->StopRequested());
}

TEST_F(RunGuardTest, LooksAtNoAnswerWithoutErrorChecking) {
  RunGuard guard;
  guard.IsOn(true);
  for (const auto* off : {&Item::AutoErrorCheckingMode, &Item::AutoReadAfterQueryMode}) {
    gConfiguration->ItemValue(Item::AutoErrorCheckingMode, u"On");
    gConfiguration->ItemValue(Item::AutoReadAfterQueryMode, u"On");
    gConfiguration->ItemValue(*off, u"Off");
    Ask(guard, u"1", u"-113,\"Undefined header\"");
    EXPECT_FALSE(gMainForm->StopRequested()) << ToUtf8(off->Name);
  }
}

TEST_F(RunGuardTest, IsKept) {
  RunGuard().IsOn(true);
  EXPECT_EQ(Store->GetSetting(u"Tolvane Portico", u"Data", u"StopAtErrors", u""), u"On");
  EXPECT_TRUE(RunGuard().IsOn());
  RunGuard().IsOn(false);
  EXPECT_EQ(Store->GetSetting(u"Tolvane Portico", u"Data", u"StopAtErrors", u""), u"Off");
  EXPECT_FALSE(RunGuard().IsOn());
}

} // namespace
} // namespace portico::test
