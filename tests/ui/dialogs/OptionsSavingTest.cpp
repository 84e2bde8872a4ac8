// What OK writes.

#include "configuration/CConfigurationClient.h"
#include "ui/dialogs/OptionsFixture.h"

#include <array>

namespace portico::test {
namespace {

class OptionsSavingTest : public OptionsFixture {};

/// Ten values as OK writes them. Between them no two check boxes, and no two of the others, look alike.
using Values = std::array<std::string, 10>;
const Values Tables[] = {
    {"SCPIProtocolOPCPacing=Off", "SCPIProtocolIntervalPacing=On", "SCPIProtocolPacingInterval=250",
     "SCPIProtocolAutoReadAfterQuery=On", "SCPIProtocolAutoErrorChecking=Off", "SCPIProtocolErrorCheckingCommand=:ERR?",
     "SCPIProtocolTerminationCharacter=CRLF", "OtherProtocolIntervalPacing=On", "OtherProtocolPacingInterval=20",
     "OtherProtocolTerminationCharacter=LFCR"},
    {"SCPIProtocolOPCPacing=On", "SCPIProtocolIntervalPacing=Off", "SCPIProtocolPacingInterval=1",
     "SCPIProtocolAutoReadAfterQuery=On", "SCPIProtocolAutoErrorChecking=Off",
     "SCPIProtocolErrorCheckingCommand=", "SCPIProtocolTerminationCharacter=Auto", "OtherProtocolIntervalPacing=On",
     "OtherProtocolPacingInterval=soon", "OtherProtocolTerminationCharacter=CR"},
    {"SCPIProtocolOPCPacing=Off", "SCPIProtocolIntervalPacing=Off",
     "SCPIProtocolPacingInterval=", "SCPIProtocolAutoReadAfterQuery=On", "SCPIProtocolAutoErrorChecking=On",
     "SCPIProtocolErrorCheckingCommand=SYST:ERR:ALL?", "SCPIProtocolTerminationCharacter=LF",
     "OtherProtocolIntervalPacing=Off", "OtherProtocolPacingInterval=65535", "OtherProtocolTerminationCharacter=CRLF"},
    {"SCPIProtocolOPCPacing=Off", "SCPIProtocolIntervalPacing=Off", "SCPIProtocolPacingInterval=0",
     "SCPIProtocolAutoReadAfterQuery=Off", "SCPIProtocolAutoErrorChecking=Off",
     "SCPIProtocolErrorCheckingCommand=*STB?", "SCPIProtocolTerminationCharacter=LFCR",
     "OtherProtocolIntervalPacing=Off", "OtherProtocolPacingInterval=-1", "OtherProtocolTerminationCharacter=Auto"},
};

class EachProtocolTest : public OptionsSavingTest, public ::testing::WithParamInterface<StringView> {};

TEST_P(EachProtocolTest, WhatIsLoadedIsWrittenWordForWord) {
  With(u"ProtocolName", String(GetParam()));
  for (const Values& values : Tables) {
    for (const std::string& line : values) {
      const auto equals = line.find('=');
      With(FromUtf8(line.substr(0, equals)).Text, FromUtf8(line.substr(equals + 1)).Text);
    }
    Calls.clear();
    Show([](memory::Form& form) { Press(form, u"cmdOK"); });
    List expected(values.begin(), values.end());
    expected.push_back("ProtocolName=" + ToUtf8(GetParam()));
    EXPECT_EQ(Calls, expected);
  }
}

INSTANTIATE_TEST_SUITE_P(OfTheTwo, EachProtocolTest, ::testing::Values(u"SCPI", u"Other"));

TEST_F(OptionsSavingTest, OKSavesBothPagesInOrderAndThenTheProtocolUnchanged) {
  Show([](memory::Form& form) {
    Find<TextBox>(form, u"txtErrQueryCmd").Type(u"");
    Press(form, u"cmdOK");
    EXPECT_FALSE(form.IsLoaded());
  });
  EXPECT_EQ(Calls, Written({{u"SCPIProtocolErrorCheckingCommand", u""}}));
}

TEST_F(OptionsSavingTest, WithTimedUncheckedTheIntervalCannotBeEditedButIsSavedAllTheSame) {
  With(u"SCPIProtocolIntervalPacing", u"Off");
  With(u"OtherProtocolIntervalPacing", u"Off");
  Show([](memory::Form& form) {
    EXPECT_FALSE(Find<TextBox>(form, u"txtSCPIInterval").Type(u"7"));
    EXPECT_FALSE(Find<IControl>(form, u"lblUnit").Enabled());
    EXPECT_FALSE(Find<IControl>(form, u"txtOtherInterval").Enabled());
    EXPECT_FALSE(Find<IControl>(form, u"lblOtherUnit").Enabled());
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Calls, Written({{u"SCPIProtocolIntervalPacing", u"Off"}, {u"OtherProtocolIntervalPacing", u"Off"}}));
}

TEST_F(OptionsSavingTest, IntervalsAreStoredAsTheyAreTyped) {
  for (const String typed : {u"abc", u"0", u"", u" 007 "}) {
    Show([&](memory::Form& form) {
      Find<TextBox>(form, u"txtSCPIInterval").Type(typed);
      Find<TabStrip>(form, u"tbsOptions").Choose(2);
      Find<TextBox>(form, u"txtOtherInterval").Type(typed);
      Press(form, u"cmdOK");
    });
    EXPECT_EQ(Configuration->Items[u"SCPIProtocolPacingInterval"], typed);
    EXPECT_EQ(Configuration->Items[u"OtherProtocolPacingInterval"], typed);
  }
}

TEST_F(OptionsSavingTest, UnknownTerminationSelectsNothingAndIsSavedEmpty) {
  With(u"SCPIProtocolTerminationCharacter", u"auto");
  Show([](memory::Form& form) {
    EXPECT_EQ(Find<ComboBox>(form, u"cboSCPITermChar").ListIndex(), -1);
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Configuration->Items[u"SCPIProtocolTerminationCharacter"], u"");
}

TEST_F(OptionsSavingTest, FirstTerminationIsStoredWithoutItsBlank) {
  Show([](memory::Form& form) {
    Find<ComboBox>(form, u"cboSCPITermChar").Choose(u"Auto ");
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Configuration->Items[u"SCPIProtocolTerminationCharacter"], u"Auto");
}

TEST_F(OptionsSavingTest, EachTerminationComesBackAsItWasStored) {
  for (StringView termination : {u"Auto", u"CR", u"LF", u"CRLF", u"LFCR"}) {
    With(u"OtherProtocolTerminationCharacter", String(termination));
    Calls.clear();
    Show([](memory::Form& form) { Press(form, u"cmdOK"); });
    EXPECT_EQ(Calls, Written({{u"OtherProtocolTerminationCharacter", String(termination)}}));
  }
}

TEST_F(OptionsSavingTest, CancelEscapeAndTheCloseBoxStoreNothing) {
  const std::vector<std::function<void(memory::Form&)>> ways = {
      [](memory::Form& form) { Press(form, u"cmdCancel"); },
      [](memory::Form& form) { form.PressKey(EscapeKey); },
      [](memory::Form& form) { form.PressCloseBox(); },
  };
  for (const auto& leave : ways) {
    Show([&](memory::Form& form) {
      Click(form, u"chkSCPIOPC");
      leave(form);
      EXPECT_FALSE(form.IsLoaded());
    });
  }
  EXPECT_EQ(Calls, List{});
}

TEST_F(OptionsSavingTest, SavingBringsTheOptionsIntoEffect) {
  gObjectFactory->Substitue(New<CreatorOfOne>(u"Configuration", Server));
  gConfiguration = New<CConfigurationClient>();
  EXPECT_EQ(Server->Items[u"PacingInterval"], u"1000");
  Show([](memory::Form& form) {
    Click(form, u"chkSCPITimed");
    Find<TextBox>(form, u"txtSCPIInterval").Type(u"abc");
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Server->Items[u"PacingInterval"], u"abc");
  EXPECT_EQ(Server->Items[u"IntervalPacing"], u"On");
}

} // namespace
} // namespace portico::test
