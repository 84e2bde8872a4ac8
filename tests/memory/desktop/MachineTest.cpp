#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/Quit.h"
#include "memory/desktop/CommonDialog.h"
#include "memory/desktop/InstrumentList.h"
#include "memory/desktop/Registry.h"
#include "support/ErrorReports.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace portico::memory {
namespace {

using test::Raised;

PrinterDialogSettings Printing(std::int32_t flags) { return {{}, flags}; }
using ::testing::ElementsAre;

class CommonDialogTest : public ::testing::Test {
protected:
  ~CommonDialogTest() override { HuntERR::Reset(); }

  CommonDialog Dialog;
  FileDialogSettings File{.FileName = u"proposed.log",
                          .DialogTitle = u"Open a log file",
                          .Filter = u"Log (*.log)|*.log",
                          .FilterIndex = 2,
                          .DefaultExt = u".log",
                          .Flags = 32772};
};

TEST_F(CommonDialogTest, AcceptedFileDialogAnswersWithTheNameChosen) {
  Dialog.Accept(u"/logs/a.txt");
  Dialog.ShowOpen(File);
  EXPECT_EQ(File.FileName, u"/logs/a.txt");
}

TEST_F(CommonDialogTest, EmptyNameStandsForTheProposedOne) {
  Dialog.Accept({});
  Dialog.ShowSave(File);
  EXPECT_EQ(File.FileName, u"proposed.log");
}

TEST_F(CommonDialogTest, NameWithoutAnExtensionGetsTheDefault) {
  for (const auto& [chosen, expected] : std::vector<std::pair<String, String>>{{u"a", u"a.log"},
                                                                               {u"a.txt", u"a.txt"},
                                                                               {u"/v1.2/a", u"/v1.2/a.log"},
                                                                               {u"C:\\v1.2\\a", u"C:\\v1.2\\a.log"}}) {
    Dialog.Accept(chosen);
    Dialog.ShowOpen(File);
    EXPECT_EQ(File.FileName, expected);
  }
}

TEST_F(CommonDialogTest, WritesDownWhatItIsShownWith) {
  Dialog.Accept(u"b");
  Dialog.Cancel();
  Dialog.ShowOpen(File);
  Dialog.ShowSave(File);
  ASSERT_EQ(Dialog.Files().size(), 2U);
  const CommonDialog::FileCall& first = Dialog.Files()[0];
  EXPECT_EQ(first.Dialog, CommonDialog::Kind::Open);
  EXPECT_EQ(first.Settings.FileName, u"proposed.log");
  EXPECT_EQ(first.Settings.DialogTitle, u"Open a log file");
  EXPECT_EQ(first.Settings.Filter, u"Log (*.log)|*.log");
  EXPECT_EQ(first.Settings.FilterIndex, 2);
  EXPECT_EQ(first.Settings.DefaultExt, u".log");
  EXPECT_EQ(first.Settings.Flags, 32772);
  EXPECT_FALSE(first.Settings.CancelError);
  EXPECT_EQ(Dialog.Files()[1].Dialog, CommonDialog::Kind::Save);
  EXPECT_EQ(Dialog.Files()[1].Settings.FileName, u"b.log");
}

TEST_F(CommonDialogTest, CancelledDialogLeavesTheNameAndRaisesIfItShall) {
  Dialog.Cancel();
  Dialog.ShowOpen(File);
  EXPECT_EQ(File.FileName, u"proposed.log");
  File.CancelError = true;
  Dialog.Cancel();
  EXPECT_EQ(Raised([&] { Dialog.ShowOpen(File); }).Number, ErrorNumber::DialogCancelled);
  EXPECT_EQ(File.FileName, u"proposed.log");
}

TEST_F(CommonDialogTest, PrintDialogAnswersWithAContextIfItIsAskedForOne) {
  Dialog.AcceptPrint(true);
  Dialog.AcceptPrint();
  Dialog.AcceptPrint();
  const auto selection = Dialog.ShowPrinter(Printing(PrintReturnsContext + PrintSelectionPreset));
  const auto all = Dialog.ShowPrinter({.DialogTitle = u"Print Setup", .Flags = PrintReturnsContext});
  EXPECT_FALSE(Dialog.ShowPrinter(Printing(PrintSetupForm)));
  EXPECT_TRUE(Cast<DeviceContext>(selection)->IsForSelection());
  EXPECT_FALSE(Cast<DeviceContext>(all)->IsForSelection());
  ASSERT_EQ(Dialog.Contexts().size(), 2U);
  EXPECT_TRUE(IsSameObject(Dialog.Contexts()[1], all));
  ASSERT_EQ(Dialog.Printers().size(), 3U);
  EXPECT_EQ(Dialog.Printers()[1].DialogTitle, u"Print Setup");
  EXPECT_EQ(Dialog.Printers()[2].Flags, PrintSetupForm);
}

TEST_F(CommonDialogTest, CancelledPrintDialogHasNoContext) {
  Dialog.Cancel();
  EXPECT_FALSE(Dialog.ShowPrinter(Printing(PrintReturnsContext)));
  Dialog.Cancel();
  EXPECT_EQ(Raised([&] { Dialog.ShowPrinter({{}, 0, true}); }).Number, ErrorNumber::DialogCancelled);
}

TEST_F(CommonDialogTest, HelpIsWrittenDown) {
  Dialog.ShowHelp({.HelpCommand = HelpMacro, .HelpKey = u"AL(`a',1)", .HelpFile = u"TVPort.hlp"});
  ASSERT_EQ(Dialog.Helps().size(), 1U);
  EXPECT_EQ(Dialog.Helps()[0].HelpCommand, 258);
  EXPECT_EQ(Dialog.Helps()[0].HelpKey, u"AL(`a',1)");
  EXPECT_EQ(Dialog.Helps()[0].HelpFile, u"TVPort.hlp");
}

TEST_F(CommonDialogTest, WhatIsNotExpectedIsALogicError) {
  using Kind = CommonDialog::Kind;
  EXPECT_THROW(Dialog.ShowOpen(File), std::logic_error);
  EXPECT_THROW(Dialog.ShowPrinter({}), std::logic_error);
  Dialog.AcceptPrint();
  EXPECT_THROW(Dialog.ShowSave(File), std::logic_error); // answered like the other kind
  Dialog.Accept(u"a");
  EXPECT_THROW(Dialog.ShowPrinter({}), std::logic_error);
  Dialog.AcceptPrint(true);
  EXPECT_THROW(Dialog.ShowPrinter(Printing(PrintNoSelection)), std::logic_error);
  Dialog.Accept({});
  File.FileName.clear();
  EXPECT_THROW(Dialog.ShowOpen(File), std::logic_error); // no name at all
  EXPECT_THAT(Dialog.Unexpected(),
              ElementsAre(Kind::Open, Kind::Printer, Kind::Save, Kind::Printer, Kind::Printer, Kind::Open));
  EXPECT_EQ(Dialog.AnswersLeft(), 0U);
}

TEST_F(CommonDialogTest, EveryDialogThrowsQuit) {
  CommonDialog dialog([] { return true; });
  dialog.Cancel();
  EXPECT_THROW(dialog.ShowOpen(File), Quit);
  EXPECT_THROW(dialog.ShowSave(File), Quit);
  EXPECT_THROW(dialog.ShowPrinter({}), Quit);
  EXPECT_THROW(dialog.ShowHelp({}), Quit);
  EXPECT_EQ(dialog.AnswersLeft(), 1U);
}

class InstrumentListTest : public ::testing::Test {
protected:
  ~InstrumentListTest() override { HuntERR::Reset(); }

  std::vector<String> Walk() {
    std::vector<String> names;
    const auto tree = List.OpenTree(InstrumentTreeKind);
    const auto item = tree->SelectBranch(InstrumentBranch);
    for (item->First(); !item->IsDone(); item->Next()) names.push_back(item->ItemName());
    return names;
  }

  InstrumentList List{{u"Visa->A", u"VInstr->B"}};
};

TEST_F(InstrumentListTest, IsWalkedFromTheFirstToTheLast) {
  EXPECT_THAT(Walk(), ElementsAre(u"Visa->A", u"VInstr->B"));
  EXPECT_THAT(List.Calls(), ElementsAre("OpenTree 7", "SelectBranch 0", "First", "IsDone", "ItemName", "Next", "IsDone",
                                        "ItemName", "Next", "IsDone"));
  List.Items({});
  EXPECT_THAT(Walk(), ElementsAre());
}

TEST_F(InstrumentListTest, WalkHasNoItemBeforeItsFirstAndBehindItsLast) {
  const auto item = List.OpenTree(InstrumentTreeKind)->SelectBranch(InstrumentBranch);
  EXPECT_TRUE(item->IsDone());
  EXPECT_EQ(Raised([&] { item->ItemName(); }).Number, ErrorNumber::BadSubscript);
  item->First();
  EXPECT_EQ(item->ItemName(), u"Visa->A");
}

TEST_F(InstrumentListTest, FailsWhereItIsTold) {
  using Step = InstrumentList::Step;
  for (const Step step : {Step::OpenTree, Step::SelectBranch, Step::First, Step::IsDone, Step::Next, Step::ItemName}) {
    InstrumentList fresh({u"Visa->A"});
    std::swap(List, fresh);
    List.FailAt(step, 17);
    EXPECT_EQ(Raised([&] { Walk(); }).Number, 17);
  }
}

constexpr std::int32_t Root = HKEY_LOCAL_MACHINE;

class RegistryTest : public ::testing::Test {
protected:
  RegistryTest() { Machine.Put(Root, u"SOFTWARE\\Driver", u"Version", "1.2"); }

  std::int32_t Open(const String& name) { return Machine.RegOpenKeyExA(Root, name, 0x2003F, Key); }
  std::int32_t Query(const String& name) {
    Value.assign(8, '#');
    return Machine.RegQueryValueExA(Key, name, Type, Value, Size);
  }

  Registry Machine;
  std::int32_t Key = 0;
  std::int32_t Type = 0;
  std::int32_t Size = 8;
  std::string Value;
};

TEST_F(RegistryTest, TextComesWithItsZeroAndItsLength) {
  EXPECT_EQ(Open(u"software\\DRIVER"), 0);
  EXPECT_EQ(Query(u"version"), 0);
  EXPECT_EQ(Type, RegistryText);
  EXPECT_EQ(Size, 4);
  EXPECT_EQ(Value, std::string("1.2\0####", 8));
  EXPECT_EQ(Machine.KeysOpen(), 1U);
  EXPECT_EQ(Machine.RegCloseKey(Key), 0);
  EXPECT_EQ(Machine.KeysOpen(), 0U);
}

TEST_F(RegistryTest, NumberComesLowestByteFirst) {
  Machine.Put(Root, u"K", u"N", 0x01020384U);
  Machine.Put(Root, u"K", u"Raw", 3, "ab");
  Open(u"K");
  EXPECT_EQ(Query(u"N"), 0);
  EXPECT_EQ(Type, RegistryNumber);
  EXPECT_EQ(Size, 4);
  EXPECT_EQ(Value.substr(0, 4), "\x84\x03\x02\x01");
  EXPECT_EQ(Query(u"Raw"), 0);
  EXPECT_EQ(Type, 3);
  EXPECT_EQ(Size, 2);
}

TEST_F(RegistryTest, AnswersWhatIsWrong) {
  EXPECT_EQ(Open(u"none"), RegistryNotFound);
  EXPECT_EQ(Query(u"Version"), RegistryBadHandle);
  EXPECT_EQ(Machine.RegCloseKey(Key), RegistryBadHandle);
  Open(u"SOFTWARE\\Driver");
  EXPECT_EQ(Query(u"none"), RegistryNotFound);
  Size = 3;
  EXPECT_EQ(Query(u"Version"), RegistryMoreData);
  EXPECT_EQ(Size, 4);
  EXPECT_EQ(Value, "########");
}

TEST_F(RegistryTest, FailsWhereItIsTold) {
  Open(u"SOFTWARE\\Driver");
  Machine.FailQueries(5);
  EXPECT_EQ(Query(u"Version"), 5);
  Machine.FailOpening(6);
  EXPECT_EQ(Open(u"SOFTWARE\\Driver"), 6);
  EXPECT_EQ(Machine.KeysOpen(), 1U);
}

TEST_F(RegistryTest, WritesItsCallsDown) {
  Open(u"SOFTWARE\\Driver");
  Query(u"Version");
  Machine.RegCloseKey(Key);
  EXPECT_THAT(Machine.Calls(),
              ElementsAre("open -2147483646 SOFTWARE\\Driver access 131135", "query 1 Version size 8", "close 1"));
}

} // namespace
} // namespace portico::memory
