#include "configuration/ClientFixture.h"

namespace portico {
namespace {

using test::ClientTest;
using test::Trace;
using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::Not;
using ::testing::StartsWith;

TEST_F(ClientTest, RestoresFreshItemsThenPersistedOnesThenAppliesTheProtocol) {
  Client = New<CConfigurationClient>();
  EXPECT_EQ(Events, (Trace{"InstrumentOpened=False",
                           "OpenfromTree=False",
                           "InstrumentName=",
                           "LogFileName=",
                           "Logging=On",
                           "RunningMode=Off",
                           "Load Tolvane Portico/Configuration/ProtocolName or SCPI",
                           "ProtocolName=SCPI",
                           "Load Tolvane Portico/Configuration/SCPIProtocolOPCPacing or On",
                           "SCPIProtocolOPCPacing=On",
                           "Load Tolvane Portico/Configuration/SCPIProtocolIntervalPacing or Off",
                           "SCPIProtocolIntervalPacing=Off",
                           "Load Tolvane Portico/Configuration/SCPIProtocolPacingInterval or 1000",
                           "SCPIProtocolPacingInterval=1000",
                           "Load Tolvane Portico/Configuration/SCPIProtocolAutoReadAfterQuery or On",
                           "SCPIProtocolAutoReadAfterQuery=On",
                           "Load Tolvane Portico/Configuration/SCPIProtocolAutoErrorChecking or On",
                           "SCPIProtocolAutoErrorChecking=On",
                           "Load Tolvane Portico/Configuration/SCPIProtocolErrorCheckingCommand or :SYST:ERR?",
                           "SCPIProtocolErrorCheckingCommand=:SYST:ERR?",
                           "Load Tolvane Portico/Configuration/SCPIProtocolTerminationCharacter or Auto",
                           "SCPIProtocolTerminationCharacter=Auto",
                           "Load Tolvane Portico/Configuration/OtherProtocolIntervalPacing or Off",
                           "OtherProtocolIntervalPacing=Off",
                           "Load Tolvane Portico/Configuration/OtherProtocolPacingInterval or 1000",
                           "OtherProtocolPacingInterval=1000",
                           "Load Tolvane Portico/Configuration/OtherProtocolTerminationCharacter or LF",
                           "OtherProtocolTerminationCharacter=LF",
                           "get ProtocolName",
                           "get SCPIProtocolAutoErrorChecking",
                           "AutoErrorCheckingMode=On",
                           "get SCPIProtocolAutoReadAfterQuery",
                           "AutoReadAfterQueryMode=On",
                           "get SCPIProtocolOPCPacing",
                           "OPCPacing=On",
                           "get SCPIProtocolIntervalPacing",
                           "IntervalPacing=Off",
                           "get SCPIProtocolPacingInterval",
                           "PacingInterval=1000",
                           "get SCPIProtocolErrorCheckingCommand",
                           "ErrorCheckingCommand=:SYST:ERR?",
                           "get SCPIProtocolTerminationCharacter",
                           "TERMCHAR=Auto"}));
}

TEST_F(ClientTest, WindowHearsNothingOfTheRestoring) {
  Client = New<CConfigurationClient>();
  EXPECT_THAT(Events, Not(Contains(StartsWith("UpdateUI"))));
}

TEST_F(ClientTest, PersistsTheOptionsInOrderAndNothingElse) {
  Start();
  Server->ItemValue(u"Logging", u"Off");
  Events.clear();
  Client = nullptr;
  Trace expected;
  for (const auto* pair : {"ProtocolName=SCPI", "SCPIProtocolOPCPacing=On", "SCPIProtocolIntervalPacing=Off",
                           "SCPIProtocolPacingInterval=1000", "SCPIProtocolAutoReadAfterQuery=On",
                           "SCPIProtocolAutoErrorChecking=On", "SCPIProtocolErrorCheckingCommand=:SYST:ERR?",
                           "SCPIProtocolTerminationCharacter=Auto", "OtherProtocolIntervalPacing=Off",
                           "OtherProtocolPacingInterval=1000", "OtherProtocolTerminationCharacter=LF"}) {
    const std::string text = pair;
    expected.push_back("get " + text.substr(0, text.find('=')));
    expected.push_back("Save Tolvane Portico/Configuration/" + text);
  }
  EXPECT_THAT(Events, ElementsAreArray(expected));
}

TEST_F(ClientTest, SavesOnlyAtTheEnd) {
  Start();
  Client->ItemValue(u"SCPIProtocolPacingInterval", u"50");
  EXPECT_THAT(Events, Not(Contains(StartsWith("Save"))));
  Client = nullptr;
  EXPECT_EQ(Saved(u"SCPIProtocolPacingInterval"), u"50");
}

TEST_F(ClientTest, NextRunFindsTheOptionsAndFreshItems) {
  Start();
  Client->ItemValue(u"SCPIProtocolOPCPacing", u"Off");
  Client->ItemValue(u"InstrumentName", u"DMM");
  Client->ItemValue(u"InstrumentOpened", u"True");
  Client->ItemValue(u"OpenfromTree", u"True");
  Client->ItemValue(u"LogFileName", u"a.log");
  Client->ItemValue(u"Logging", u"Off");
  Client->ItemValue(u"RunningMode", u"Run");
  Client = nullptr;
  Start();
  EXPECT_EQ(Item(u"SCPIProtocolOPCPacing"), u"Off");
  EXPECT_EQ(Item(u"OPCPacing"), u"Off");
  EXPECT_EQ(Item(u"InstrumentName"), u"");
  EXPECT_EQ(Item(u"InstrumentOpened"), u"False");
  EXPECT_EQ(Item(u"OpenfromTree"), u"False");
  EXPECT_EQ(Item(u"LogFileName"), u"");
  EXPECT_EQ(Item(u"Logging"), u"On");
  EXPECT_EQ(Item(u"RunningMode"), u"Off");
}

TEST_F(ClientTest, EmptyStoreGivesTheWorkingItemsTheirDefaults) {
  Start();
  EXPECT_EQ(Item(u"AutoErrorCheckingMode"), u"On");
  EXPECT_EQ(Item(u"AutoReadAfterQueryMode"), u"On");
  EXPECT_EQ(Item(u"OPCPacing"), u"On");
  EXPECT_EQ(Item(u"IntervalPacing"), u"Off");
  EXPECT_EQ(Item(u"PacingInterval"), u"1000");
  EXPECT_EQ(Item(u"ErrorCheckingCommand"), u":SYST:ERR?");
  EXPECT_EQ(Item(u"TERMCHAR"), u"Auto");
}

TEST_F(ClientTest, OptionSavedAsEmptyTextStaysEmpty) {
  Save(u"SCPIProtocolErrorCheckingCommand", u"");
  Start();
  EXPECT_EQ(Item(u"ErrorCheckingCommand"), u"");
}

TEST_F(ClientTest, ProtocolNameOtherIsAppliedInOrderAndRedrawsAll) {
  Start();
  Client->ItemValue(u"ProtocolName", u"Other");
  EXPECT_EQ(Events,
            (Trace{"ProtocolName=Other", "get ProtocolName", "AutoErrorCheckingMode=Off", "AutoReadAfterQueryMode=Off",
                   "OPCPacing=Off", "get OtherProtocolIntervalPacing", "IntervalPacing=Off",
                   "get OtherProtocolPacingInterval", "PacingInterval=1000",
                   "ErrorCheckingCommand=", "get OtherProtocolTerminationCharacter", "TERMCHAR=LF", "UpdateUI ="}));
}

TEST_F(ClientTest, ProtocolSCPITakesEachItemFromItsOption) {
  Start();
  Client->ItemValue(u"SCPIProtocolAutoErrorChecking", u"a");
  Client->ItemValue(u"SCPIProtocolAutoReadAfterQuery", u"b");
  Client->ItemValue(u"SCPIProtocolOPCPacing", u"c");
  Client->ItemValue(u"SCPIProtocolIntervalPacing", u"d");
  Client->ItemValue(u"SCPIProtocolPacingInterval", u"e");
  Client->ItemValue(u"SCPIProtocolErrorCheckingCommand", u"f");
  Client->ItemValue(u"SCPIProtocolTerminationCharacter", u"g");
  Client->ItemValue(u"ProtocolName", u"SCPI");
  String values;
  for (const auto* name : {u"AutoErrorCheckingMode", u"AutoReadAfterQueryMode", u"OPCPacing", u"IntervalPacing",
                           u"PacingInterval", u"ErrorCheckingCommand", u"TERMCHAR"}) {
    values += Item(name);
  }
  EXPECT_EQ(values, u"abcdefg");
}

TEST_F(ClientTest, ProtocolOtherTakesThreeItemsFromItsOptions) {
  Start();
  Client->ItemValue(u"OtherProtocolIntervalPacing", u"x");
  Client->ItemValue(u"OtherProtocolPacingInterval", u"y");
  Client->ItemValue(u"OtherProtocolTerminationCharacter", u"z");
  Client->ItemValue(u"ProtocolName", u"Other");
  EXPECT_EQ(Item(u"IntervalPacing") + Item(u"PacingInterval") + Item(u"TERMCHAR"), u"xyz");
}

TEST_F(ClientTest, OtherItemRedrawsWithNameAndValue) {
  Start();
  Client->ItemValue(u"Logging", u"Off");
  EXPECT_EQ(Events, (Trace{"Logging=Off", "UpdateUI Logging=Off"}));
}

TEST_F(ClientTest, ProtocolNameIsComparedExactlyWhileKeysIgnoreCase) {
  Start();
  Client->ItemValue(u"PROTOCOLNAME", u"Other");
  EXPECT_EQ(Events, (Trace{"PROTOCOLNAME=Other", "UpdateUI PROTOCOLNAME=Other"}));
  EXPECT_EQ(Item(u"ProtocolName"), u"Other");
  EXPECT_EQ(Item(u"TERMCHAR"), u"Auto");
}

TEST_F(ClientTest, OptionAloneDoesNotChangeTheWorkingItem) {
  Start();
  Client->ItemValue(u"SCPIProtocolPacingInterval", u"50");
  EXPECT_EQ(Item(u"PacingInterval"), u"1000");
  Client->ItemValue(u"ProtocolName", u"SCPI");
  EXPECT_EQ(Item(u"PacingInterval"), u"50");
}

TEST_F(ClientTest, ReadOnlyForwards) {
  Start();
  EXPECT_EQ(Client->ItemValue(u"logging"), u"On");
  EXPECT_EQ(Events, (Trace{"get logging"}));
}

TEST_F(ClientTest, ServerTellsTheWindowNothing) {
  Start();
  Server->ItemValue(u"Logging", u"Off");
  EXPECT_THAT(Events, Not(Contains(StartsWith("UpdateUI"))));
}

TEST_F(ClientTest, ItemOfItsOwnIsMadeAtTheFirstWrite) {
  Start();
  for (const auto* name : {u"CurrentInstruction", u"CopyToFileName", u"PasteFromFileName"}) {
    EXPECT_EQ(test::Raised([&] { Client->ItemValue(name); }).Number, test::Hex(0x80041461));
    Client->ItemValue(name, u"text");
    EXPECT_EQ(Client->ItemValue(name), u"text");
  }
}

TEST_F(ClientTest, ProtocolReadsAsItsCode) {
  Start();
  EXPECT_EQ(Client->Protocol(), 0);
  Client->ItemValue(u"ProtocolName", u"Other");
  EXPECT_EQ(Client->Protocol(), 1);
}

TEST_F(ClientTest, ProtocolIsWrittenByItsCodeAndApplied) {
  Start();
  Client->Protocol(1);
  EXPECT_EQ(Item(u"ProtocolName"), u"Other");
  EXPECT_EQ(Item(u"TERMCHAR"), u"LF");
  EXPECT_THAT(Events, Not(Contains(StartsWith("UpdateUI"))));
  Client->Protocol(0);
  EXPECT_EQ(Item(u"ProtocolName"), u"SCPI");
  EXPECT_EQ(Item(u"TERMCHAR"), u"Auto");
}

} // namespace
} // namespace portico
