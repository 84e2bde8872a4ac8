#include "ui/commands/PrintCommands.h"

#include "ui/UiFixture.h"

namespace portico::test {
namespace {

class TextDouble final : public IPrintable, public Writer {
public:
  using Writer::Writer;
  StringView ClassName() const override { return u"TextDouble"; }
  void SelPrint(const Ref<IDeviceContext>& hDC) override {
    Note("SelPrint");
    Context = hDC;
  }
  Ref<IDeviceContext> Context;
};

class PrintCommandsTest : public UiFixture {
protected:
  PrintCommandsTest() {
    gPrinter = std::make_shared<PrinterDouble>(Deeds);
    for (const CreatorRow* row : {&CtorPrint, &CtorPrintSetup}) gObjectFactory->Add(MakeCreator(*row));
    Dialog->Context = New<DeviceContextDouble>();
  }

  void Print() { Create<ICommand>(u"Print", modGlobals::VarArray(Dialog, Text))->Execute(); }
  void SelectInHistory() {
    MainForm->txtPast()->Text(u"*IDN?");
    MainForm->txtPast()->SelLength(2);
  }

  Ref<TextDouble> Text = New<TextDouble>(Deeds);
};

TEST_F(PrintCommandsTest, PrintsAnEmptyTextAndThenTheTarget) {
  Print();
  EXPECT_EQ(Deeds, (Journal{"ShowPrinter 'Print Setup' flags 268 CancelError", "Print ''", "SelPrint"}));
  EXPECT_TRUE(IsSameObject(Text->Context, Dialog->Context));
}

TEST_F(PrintCommandsTest, FlagsAreThose) {
  EXPECT_EQ(PrintNoSelection + PrintReturnsContext + PrintNoPageNumbers, 4 + 256 + 8);
  EXPECT_EQ(PrintSelectionPreset + PrintReturnsContext + PrintNoPageNumbers, 1 + 256 + 8);
  EXPECT_EQ(PrintSetupForm, 64);
}

TEST_F(PrintCommandsTest, SelectionInTheMainWindowsHistoryPresetsTheSelectionForAnotherText) {
  SelectInHistory();
  Print();
  EXPECT_EQ(Deeds[0], "ShowPrinter 'Print Setup' flags 265 CancelError");
}

TEST_F(PrintCommandsTest, SelectionInTheCommandWindowDoesNot) {
  MainForm->txtFuture()->Text(u"*IDN?");
  MainForm->txtFuture()->SelLength(2);
  Print();
  EXPECT_EQ(Deeds[0], "ShowPrinter 'Print Setup' flags 268 CancelError");
}

TEST_F(PrintCommandsTest, CancelledDialogIsItsFailureAndNothingIsPrinted) {
  Dialog->Context = {};
  const auto error = Raised([this] { Print(); });
  EXPECT_EQ(error.Number, 32755);
  ExpectTrail(error, {u"CPrint.ICommand_Execute"});
  EXPECT_EQ(Deeds, Journal{"ShowPrinter 'Print Setup' flags 268 CancelError"});
}

TEST_F(PrintCommandsTest, TargetIsNotTestedBeforeItIsNeeded) {
  const auto command = Create<ICommand>(u"Print", modGlobals::VarArray(Dialog, Ref<IObject>()));
  const auto error = Raised([&] { command->Execute(); });
  EXPECT_EQ(error.Number, 91);
  EXPECT_EQ(Deeds.back(), "Print ''");
}

TEST_F(PrintCommandsTest, BothNeedADialog) {
  auto error = Raised([this] { CPrint().Initialize({}, Text); });
  ExpectError(error, 5, u"Command dialog control cannot be nothing.");
  ExpectTrail(error, {u"CPrint.Initialize()"});
  error = Raised([] { CPrintSetup().Initialize({}); });
  ExpectError(error, 5, u"Command dialog control cannot be nothing.");
  ExpectTrail(error, {u"CPrintSetup.Initialize()"});
}

TEST_F(PrintCommandsTest, SetupShowsTheSetupFormAndCancellingIsNoError) {
  Dialog->Context = {};
  Create<ICommand>(u"PrintSetup", modGlobals::VarArray(Dialog))->Execute();
  EXPECT_EQ(Deeds, Journal{"ShowPrinter 'Print Setup' flags 64"});
}

TEST_F(PrintCommandsTest, SetupPassesTheDialogsFailureOn) {
  Dialog->OnCall = [](const std::string&) { HuntERR::Check(false, 17, u"no printer"); };
  const auto error = Raised([this] { Create<ICommand>(u"PrintSetup", modGlobals::VarArray(Dialog))->Execute(); });
  ExpectError(error, 17, u"no printer");
  ExpectTrail(error, {u"CPrintSetup.ICommand_Execute"});
}

TEST_F(PrintCommandsTest, NoneCanBeExecutedBeforeInitialize) {
  auto error = Raised([] { CPrint().Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CPrint.ICommand_Execute"});
  error = Raised([] { CPrintSetup().Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CPrintSetup.ICommand_Execute"});
}

} // namespace
} // namespace portico::test
