#include "ui/commands/InstrumentCommands.h"

#include "framework/shared/modAppGlobals.h"
#include "platform/IInstrumentList.h"
#include "ui/UiFixture.h"
#include "ui/dialogs/KnownInstruments.h"

namespace portico::test {
namespace {

class InstrumentCommandsTest : public UiFixture {
protected:
  InstrumentCommandsTest() {
    for (const CreatorRow* row :
         {&CtorOpenInstrument, &CtorCloseInstrument, &CtorReadInstrumentData, &CtorQueryStatus, &CtorWaitOPC}) {
      gObjectFactory->Add(MakeCreator(*row));
    }
    Processor->OnCall = [this](const std::string& line) {
      if (line.find("COMM.Open") == 0) Server->Items[u"InstrumentOpened"] = Opens ? u"True" : u"False";
    };
    MainForm->Form().Show();
    MainForm->txtPast()->SetFocus();
    MainForm->txtFuture()->GotFocus().Connect([this] { Deeds.push_back("txtFuture has the focus"); });
  }

  static void Run(StringView command) { Create<ICommand>(command)->Execute(); }

  /// The user types a name into the dialog, and presses OK.
  void Choose(const String& name) {
    Platform.Screen->OnShowModal(u"frmInstrumentDialog", [name](memory::Form& form) {
      Find<memory::ComboBox>(form, u"txtInstrument").Type(name);
      Press(form, u"OKButton");
    });
  }

  bool Opens = true;
};

TEST_F(InstrumentCommandsTest, OpenSendsTheNameAndThenTheTermination) {
  Choose(u"GPIB0::7::INSTR");
  Run(u"OpenInstrument");
  EXPECT_EQ(Deeds, (Journal{"COMM.Open ChannelName='GPIB0::7::INSTR'", "InstrumentName=GPIB0::7::INSTR",
                            "COMM.SetAttribute Name='TERMCHAR' Value='LF'", "txtFuture has the focus"}));
}

TEST_F(InstrumentCommandsTest, OpenTellsTheWindowNothing) {
  Choose(u"one");
  Run(u"OpenInstrument");
  EXPECT_EQ(Calls, List{}); // the client's
}

TEST_F(InstrumentCommandsTest, TerminationIsReadAfterTheOpening) {
  Processor->OnCall = [this](const std::string& line) {
    if (line.find("COMM.Open") != 0) return;
    Server->Items[u"InstrumentOpened"] = u"True";
    Server->Items[u"TERMCHAR"] = u"CRLF";
  };
  Choose(u"one");
  Run(u"OpenInstrument");
  EXPECT_EQ(Deeds[2], "COMM.SetAttribute Name='TERMCHAR' Value='CRLF'");
}

TEST_F(InstrumentCommandsTest, FailedOpenKeepsTheNameAndRaisesNothing) {
  Opens = false;
  Choose(u"one");
  Run(u"OpenInstrument");
  EXPECT_EQ(Deeds, (Journal{"COMM.Open ChannelName='one'", "InstrumentName=one"}));
  EXPECT_EQ(Server->ItemValue(u"InstrumentOpened"), u"False");
}

TEST_F(InstrumentCommandsTest, CancelAndAnEmptyOKLeaveTheConfigurationUntouchedAndNoReportAppears) {
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [](memory::Form& form) {
    Find<memory::ComboBox>(form, u"txtInstrument").Type(u"one");
    Press(form, u"CancelButton");
  });
  Choose(u"   ");
  Run(u"OpenInstrument");
  Run(u"OpenInstrument");
  EXPECT_EQ(Deeds, Journal{});
  EXPECT_EQ(Calls, List{});
  EXPECT_EQ(Server->ItemValue(u"InstrumentName"), u"");
}

TEST_F(InstrumentCommandsTest, CloseBoxCancels) {
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [](memory::Form& form) {
    Find<memory::ComboBox>(form, u"txtInstrument").Type(u"one");
    EXPECT_TRUE(form.PressCloseBox());
  });
  Run(u"OpenInstrument");
  EXPECT_EQ(Deeds, Journal{});
}

TEST_F(InstrumentCommandsTest, OpenfromTreeTakesTheNameWithoutADialog) {
  Server->Items[u"OpenfromTree"] = u"True";
  Server->Items[u"InstrumentName"] = u" one ";
  Run(u"OpenInstrument");
  EXPECT_EQ(Deeds[0], "COMM.Open ChannelName=' one '");
  EXPECT_EQ(Deeds[1], "InstrumentName= one ");
}

TEST_F(InstrumentCommandsTest, OpenfromTreeWithAnEmptyInstrumentNameDoesNothingAndShowsNoDialog) {
  Server->Items[u"OpenfromTree"] = u"True";
  Run(u"OpenInstrument"); // a dialog would be unexpected
  EXPECT_EQ(Deeds, Journal{});
}

TEST_F(InstrumentCommandsTest, FailedOpenFromTheCommandLineIsTakenFromThereAgain) {
  Opens = false;
  Server->Items[u"OpenfromTree"] = u"True";
  Server->Items[u"InstrumentName"] = u"one";
  Run(u"OpenInstrument");
  EXPECT_EQ(Server->ItemValue(u"OpenfromTree"), u"True");
}

TEST_F(InstrumentCommandsTest, DialogThatCannotBeMadeRaises17) {
  gForms.reset();
  const auto error = Raised([] { Run(u"OpenInstrument"); });
  gForms = Platform.Screen;
  ExpectError(error, 17, u"Failed to create instrument dialog box.");
  ExpectTrail(error, {u"COpenInstrument.ICommand_Execute"});
}

TEST_F(InstrumentCommandsTest, FailureOfTheListReachesTheCallerAndTheDialogDoesNotAppear) {
  class Failing final : public IInstrumentList {
    std::unique_ptr<IInstrumentTree> OpenTree(std::int32_t) override {
      HuntERR::Check(false, 51, u"no list");
      return {};
    }
  };
  gInstrumentList = std::make_shared<Failing>();
  const auto error = Raised([] { Run(u"OpenInstrument"); });
  ExpectError(error, 51, u"no list");
  ExpectTrail(error, {u"frmInstrumentDialog.InitializeInstrumentList", u"frmInstrumentDialog.Form_Load",
                      u"COpenInstrument.ICommand_Execute"});
  EXPECT_FALSE(Platform.Screen->Find(u"frmInstrumentDialog"));
  EXPECT_EQ(Filed(), List{});
}

TEST_F(InstrumentCommandsTest, OpenedInstrumentIsRemembered) {
  Choose(u"one");
  Run(u"OpenInstrument");
  EXPECT_EQ(KnownInstruments().OpenTree(7)->SelectBranch(0)->ItemName(), u"Visa->one");
}

TEST_F(InstrumentCommandsTest, FailedOneIsNotRemembered) {
  Opens = false;
  Choose(u"one");
  Run(u"OpenInstrument");
  EXPECT_EQ(KnownInstruments().OpenTree(7)->SelectBranch(0)->ItemName(), u"VInstr->SIM::dmm::INSTR");
}

TEST_F(InstrumentCommandsTest, MemoryThatFailsDoesNotFailTheOpening) {
  gSettingsStore.reset();
  Choose(u"one");
  Run(u"OpenInstrument");
  EXPECT_EQ(Deeds.back(), "txtFuture has the focus");
}

TEST_F(InstrumentCommandsTest, DialogIsGoneAfterTheCommand) {
  Choose(u"one");
  Run(u"OpenInstrument");
  EXPECT_FALSE(Platform.Screen->Find(u"frmInstrumentDialog"));
}

TEST_F(InstrumentCommandsTest, DialogRunsUnderTheHourglass) {
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [this](memory::Form& form) {
    EXPECT_EQ(MainForm->MousePointer(), 11);
    Press(form, u"CancelButton");
  });
  modAppGlobals::EventHandler(u"OpenInstrument", {});
  EXPECT_EQ(MainForm->MousePointer(), 0);
}

TEST_F(InstrumentCommandsTest, EndOfTheProgramEndsTheDialogWithoutATrace) {
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [this](memory::Form& form) {
    Find<memory::ComboBox>(form, u"txtInstrument").Type(u"one");
    Platform.Loop->RequestQuit();
  });
  EXPECT_THROW(Run(u"OpenInstrument"), Quit);
  EXPECT_EQ(Deeds, Journal{});
  EXPECT_EQ(HuntERR::ErrReport(), u"");
  EXPECT_FALSE(Platform.Screen->Find(u"frmInstrumentDialog"));
}

TEST_F(InstrumentCommandsTest, CloseWithNothingOpenSendsTheCloseInstructionAndResetsTheThreeItems) {
  Run(u"CloseInstrument");
  EXPECT_EQ(Deeds, (Journal{"COMM.Close", "InstrumentName=", "InstrumentOpened=False", "OpenfromTree=False"}));
  EXPECT_EQ(Calls, List{});
}

TEST_F(InstrumentCommandsTest, ReadSendsARead) {
  Run(u"ReadInstrumentData");
  EXPECT_EQ(Deeds, Journal{"COMM.Read Data=''"});
}

TEST_F(InstrumentCommandsTest, QueryStatusWritesTheCommandOfTheClientAndReads) {
  Configuration->Items[u"ErrorCheckingCommand"] = u":SYST:ERR?";
  Run(u"QueryStatus");
  EXPECT_EQ(Deeds, (Journal{"COMM.Write Data=':SYST:ERR?'", "COMM.Read Data=''"}));
}

TEST_F(InstrumentCommandsTest, QueryStatusWithoutACommandFailsBeforeItReads) {
  Configuration->Items[u"ErrorCheckingCommand"] = u"";
  const auto error = Raised([] { Run(u"QueryStatus"); });
  ExpectError(error, Hex(0x80041451), u"An attribute name required for SetattributeValue command");
  ExpectTrail(error, {u"CQueryStatus.ICommand_Execute"});
  EXPECT_EQ(Deeds, Journal{});
}

TEST_F(InstrumentCommandsTest, WaitforOPCWritesTheQueryAndReads) {
  Run(u"WaitforOPC");
  EXPECT_EQ(Deeds, (Journal{"COMM.Write Data='*OPC?'", "COMM.Read Data=''"}));
}

TEST_F(InstrumentCommandsTest, ProcessorThatDeclinesFailsEachCommand) {
  Processor->Answer = 1;
  Configuration->Items[u"ErrorCheckingCommand"] = u":SYST:ERR?";
  Server->Items[u"OpenfromTree"] = u"True";
  Server->Items[u"InstrumentName"] = u"one";
  const auto expect = [](StringView command, StringView label) {
    const auto error = Raised([&] { Run(command); });
    ExpectError(error, 17, u"Instruction was not handled.");
    ExpectTrail(error, {label});
    HuntERR::Reset();
  };
  expect(u"OpenInstrument", u"COpenInstrument.ICommand_Execute");
  expect(u"CloseInstrument", u"CCloseInstrument.ICommand_Execute");
  expect(u"ReadInstrumentData", u"CReadInstrumentData.ICommand_Execute");
  expect(u"QueryStatus", u"CQueryStatus.ICommand_Execute");
  expect(u"WaitforOPC", u"CWaitOPC.ICommand_Execute");
  EXPECT_EQ(Writes(Deeds).size(), 5U); // one instruction each, and nothing behind it
}

TEST_F(InstrumentCommandsTest, NoneCanBeExecutedBeforeInitialize) {
  ExpectGuard<COpenInstrument>(u"COpenInstrument.ICommand_Execute");
  ExpectGuard<CCloseInstrument>(u"CCloseInstrument.ICommand_Execute");
  ExpectGuard<CReadInstrumentData>(u"CReadInstrumentData.ICommand_Execute");
  ExpectGuard<CQueryStatus>(u"CQueryStatus.ICommand_Execute");
  ExpectGuard<CWaitOPC>(u"CWaitOPC.ICommand_Execute");
  EXPECT_EQ(Deeds, Journal{});
}

TEST_F(InstrumentCommandsTest, MainWindowMustBeThere) {
  gMainFormParts = {};
  EXPECT_EQ(Raised([] { Run(u"OpenInstrument"); }).Number, 91);
}

} // namespace
} // namespace portico::test
