#include "ui/commands/EditCommands.h"

#include "document/log/CXMLDataStore.h"
#include "support/Files.h"
#include "ui/UiFixture.h"

#include <fstream>
#include <iterator>

namespace portico::test {
namespace {

class EditCommandsTest : public UiFixture {
protected:
  EditCommandsTest() {
    gXMLParserAvailable = true;
    for (const CreatorRow* row :
         {&CtorCut, &CtorCopy, &CtorPaste, &CtorCopyTo, &CtorPasteFrom, &CtorClearHistory, &CtorXMLDataStore}) {
      gObjectFactory->Add(MakeCreator(*row));
    }
  }

  static void Run(StringView command) { Create<ICommand>(command)->Execute(); }
  std::string Bytes() const { return ReadFile(Path); }
  /// A log with one entity; its bytes.
  std::string MakeLog() const {
    {
      const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(Path.u16string(), true));
      store->OpenSession();
      store->AppendDataEntityToStore(Entity(u"*RST", u"Instruction"));
    }
    return Bytes();
  }
  String Question() const { return u"Do you want to erase " + Path.u16string() + u"?"; }

  const TemporaryFolder Folder;
  const std::filesystem::path Path = Folder.Path() / "a.log";
};

TEST_F(EditCommandsTest, ClipboardCommandsSendTheirKeys) {
  for (StringView command : {u"Cut", u"Copy", u"Paste"}) Run(command);
  EXPECT_EQ(Platform.Keyboard->Sent(), (std::vector<String>{u"^X", u"^C", u"^V"}));
}

TEST_F(EditCommandsTest, KeyReachesTheControlWithTheFocusAfterExecuteHasReturned) {
  MainForm->Form().Show();
  const auto box = MainForm->txtFuture();
  box->SetFocus();
  box->Text(u"*IDN?");
  box->SelStart(0);
  box->SelLength(4);
  Run(u"Cut");
  EXPECT_EQ(box->Text(), u"*IDN?");
  Platform.Keyboard->Deliver();
  EXPECT_EQ(box->Text(), u"?");
}

TEST_F(EditCommandsTest, CopytoWithTheDialogCancelledIsNoErrorAndNoFile) {
  Run(u"Copyto");
  EXPECT_EQ(Deeds, Journal{"ShowOpen 'Copy to file...'"});
  EXPECT_EQ(Calls, List{});
}

TEST_F(EditCommandsTest, CopytoWithANewNameLeavesALogHeaderAndFails) {
  Dialog->FileName = Path.u16string();
  const auto error = Raised([] { Run(u"Copyto"); });
  ExpectError(error, 17, u"Operation is not implemented yet.");
  ExpectTrail(error, {u"CCopyTo.ICommand_Execute"});
  EXPECT_NE(Bytes().find("<SCPICommLog>\n<Header"), std::string::npos) << Bytes();
  EXPECT_EQ(Bytes().find("<Session"), std::string::npos);
  EXPECT_EQ(Calls, List{"CopyToFileName=" + Path.string()}); // by the client
}

TEST_F(EditCommandsTest, CopytoOnAnExistingLogKeepsTheFileWithYesAndNoAlike) {
  const std::string log = MakeLog();
  Dialog->FileName = Path.u16string();
  for (const MessageBoxAnswer answer : {MessageBoxAnswer::Yes, MessageBoxAnswer::No}) {
    Platform.MessageBox->Answer(answer);
    ExpectError(Raised([] { Run(u"Copyto"); }), 17, u"Operation is not implemented yet.");
    EXPECT_EQ(Bytes(), log);
    HuntERR::Reset();
  }
  const memory::MessageBox::Call question = {Question(), u"Tolvane Portico", MessageBoxButtons::YesNo};
  EXPECT_EQ(Platform.MessageBox->Calls(), (std::vector{question, question}));
}

TEST_F(EditCommandsTest, CopytoOnAFileThatIsNoLogFails) {
  std::ofstream(Path) << "*IDN?\n";
  Dialog->FileName = Path.u16string();
  Platform.MessageBox->Answer(MessageBoxAnswer::Yes);
  const auto error = Raised([] { Run(u"Copyto"); });
  EXPECT_EQ(error.Number, 31037);
  const auto calls = CallStack(error);
  ASSERT_GE(calls.size(), 2U);
  EXPECT_EQ(calls[calls.size() - 2], u"CCopyTo.OpenCopyToFile()");
  EXPECT_EQ(calls.back(), u"CCopyTo.ICommand_Execute()");
  EXPECT_EQ(Bytes(), "*IDN?\n");
  EXPECT_EQ(Calls, List{});
}

TEST_F(EditCommandsTest, CopytoOffersTheFirstSetOfFilters) {
  Run(u"Copyto");
  EXPECT_EQ(Dialog->Shown.Filter,
            u"Log (*.log)|*.log|Command (*.cmd)|*.cmd|Rich Text (*.rtf)|*.rtf|Text (*.txt)|*.txt");
}

TEST_F(EditCommandsTest, PastefromOffersTheThirdSetOfFilters) {
  Run(u"Pastefrom");
  EXPECT_EQ(Deeds, Journal{"ShowOpen 'Paste from file...'"});
  EXPECT_EQ(Dialog->Shown.Filter, u"Log (*.log)|*.log|Command (*.cmd)|*.cmd|Text (*.txt)|*.txt|All (*.*)|*.*");
  EXPECT_EQ(Calls, List{});
}

TEST_F(EditCommandsTest, PastefromOnANameThatDoesNotExistRaises53) {
  Dialog->FileName = Path.u16string();
  const auto error = Raised([] { Run(u"Pastefrom"); });
  ExpectError(error, 53, u"Paste-from file does not exist.");
  ExpectTrail(error, {u"CPasteFrom.OpenPasteFromFile", u"CPasteFrom.ICommand_Execute"});
  EXPECT_FALSE(std::filesystem::exists(Path));
  EXPECT_EQ(Calls, List{});
}

TEST_F(EditCommandsTest, PastefromOnALogTakesItsNameAndFails) {
  const std::string log = MakeLog();
  Dialog->FileName = Path.u16string();
  const auto error = Raised([] { Run(u"Pastefrom"); });
  ExpectError(error, 17, u"Operation is not implemented yet.");
  ExpectTrail(error, {u"CPasteFrom.ICommand_Execute"});
  EXPECT_EQ(Calls, List{"PasteFromFileName=" + Path.string()});
  EXPECT_EQ(Bytes(), log);
}

TEST_F(EditCommandsTest, WithoutADialogThereIsNoQuestion) {
  gCommonDialog = {};
  auto error = Raised([] { Run(u"Copyto"); });
  ExpectError(error, 31004, u"Cannot create a select-file dialog.");
  ExpectTrail(error, {u"CCopyTo.OpenCopyToFile", u"CCopyTo.ICommand_Execute"});
  error = Raised([] { Run(u"Pastefrom"); });
  ExpectError(error, 31004, u"Cannot create a select-file dialog.");
}

TEST_F(EditCommandsTest, WithoutAStoreBothTellOfAReader) {
  gObjectFactory->Substitue(New<CreatorOfOne>(u"DataStore", Ref<IObject>()));
  Dialog->FileName = Path.u16string();
  auto error = Raised([] { Run(u"Copyto"); });
  ExpectError(error, 31004, u"Cannot create a paste-from file reader.");
  ExpectTrail(error, {u"CCopyTo.OpenCopyToFile", u"CCopyTo.ICommand_Execute"});
  std::ofstream(Path) << "x";
  error = Raised([] { Run(u"Pastefrom"); });
  ExpectError(error, 31004, u"Cannot create a paste-from file reader.");
  ExpectTrail(error, {u"CPasteFrom.OpenPasteFromFile", u"CPasteFrom.ICommand_Execute"});
  EXPECT_EQ(Calls, List{});
}

TEST_F(EditCommandsTest, ClearHistoryRefusesAtOnce) {
  const auto error = Raised([] { Run(u"ClearHistory"); });
  ExpectError(error, 17, u"Operation is not implemented yet.");
  ExpectTrail(error, {u"CClearHistory.ICommand_Execute"});
}

TEST_F(EditCommandsTest, NoneCanBeExecutedBeforeInitialize) {
  ExpectGuard<CCut>(u"CCut.ICommand_Execute");
  ExpectGuard<CCopy>(u"CCopy.ICommand_Execute");
  ExpectGuard<CPaste>(u"CPaste.ICommand_Execute");
  ExpectGuard<CCopyTo>(u"CCopyTo.ICommand_Execute");
  ExpectGuard<CPasteFrom>(u"CPasteFrom.ICommand_Execute");
  ExpectGuard<CClearHistory>(u"CClearHistory.ICommand_Execute");
  EXPECT_TRUE(Platform.Keyboard->Sent().empty());
}

TEST_F(EditCommandsTest, WithoutAKeyboardClipboardCommandsFail) {
  gKeyboard.reset();
  const auto expect = [](StringView command, StringView label) {
    const auto error = Raised([&] { Run(command); });
    EXPECT_EQ(error.Number, 91);
    ExpectTrail(error, {label});
    HuntERR::Reset();
  };
  expect(u"Cut", u"CCut.ICommand_Execute");
  expect(u"Copy", u"CCopy.ICommand_Execute");
  expect(u"Paste", u"CPaste.ICommand_Execute");
}

TEST_F(EditCommandsTest, EndOfTheProgramAtTheQuestionPassesWithoutATrace) {
  MakeLog();
  Dialog->FileName = Path.u16string();
  HuntERR::Reset();
  Platform.Loop->RequestQuit();
  EXPECT_THROW(Run(u"Copyto"), Quit);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
  EXPECT_EQ(Calls, List{});
}

} // namespace
} // namespace portico::test
