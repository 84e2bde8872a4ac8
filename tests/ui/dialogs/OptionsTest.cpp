#include "ui/dialogs/OptionsFixture.h"

namespace portico::test {
namespace {

class OptionsTest : public OptionsFixture {};

TEST_F(OptionsTest, IsMadeUpOfThese) {
  Show([](memory::Form& form) {
    EXPECT_EQ(form.Caption(), u"Tolvane Portico Options");
    const auto expect = [&](StringView name, ControlKind kind, StringView caption) {
      EXPECT_EQ(Find<IControl>(form, name).Kind(), kind) << ToUtf8(name);
      EXPECT_EQ(ToUtf8(Find<IControl>(form, name).Caption()), ToUtf8(caption));
    };
    expect(u"fraSCPIPacing", ControlKind::Frame, u"Transmit Pacing Mode");
    expect(u"chkSCPIOPC", ControlKind::CheckBox, u"Wait for OPC");
    expect(u"chkSCPITimed", ControlKind::CheckBox, u"Timed Interval:");
    expect(u"lblUnit", ControlKind::Label, u"ms");
    expect(u"fraSCPITransmit", ControlKind::Frame, u"Transmit Options");
    expect(u"chkSCPIAutoRead", ControlKind::CheckBox, u"Automatically read after query");
    expect(u"chkSCPIGetStatus", ControlKind::CheckBox, u"Get instrument status after every command");
    expect(u"lblErrQueryCmd", ControlKind::Label, u"Command for get instrument status:");
    expect(u"lblSCPITermChar", ControlKind::Label, u"Termination character:");
    expect(u"fraOtherPacing", ControlKind::Frame, u"Transmit Pacing Mode");
    expect(u"chkOtherTimed", ControlKind::CheckBox, u"Timed Interval:");
    expect(u"lblOtherUnit", ControlKind::Label, u"ms");
    expect(u"fraOtherTransmit", ControlKind::Frame, u"Transmit Options");
    expect(u"lblOtherTermChar", ControlKind::Label, u"Termination character:");
    expect(u"cmdOK", ControlKind::CommandButton, u"&OK");
    expect(u"cmdCancel", ControlKind::CommandButton, u"Cancel");
    expect(u"cmdHelp", ControlKind::CommandButton, u"&Help");
  });
}

TEST_F(OptionsTest, TextsOfTheDesignStandUntilTheOptionsAreLoaded) {
  const auto dialog = MakeDialog<frmTVSCPIOptions>();
  const auto form = Platform.Screen->Find(u"frmTVSCPIOptions");
  EXPECT_EQ(TextOf(*form, u"txtSCPIInterval"), "100");
  EXPECT_EQ(TextOf(*form, u"txtErrQueryCmd"), ":SYST:ERR?");
  EXPECT_EQ(TextOf(*form, u"txtOtherInterval"), "");
  EXPECT_EQ(Find<ComboBox>(*form, u"cboSCPITermChar").ListIndex(), -1);
  EXPECT_EQ(Find<ComboBox>(*form, u"cboOtherTermChar").ListIndex(), -1);
}

TEST_F(OptionsTest, StandsInTheMiddleOfTheScreenAndBelongsToTheMainWindow) {
  Show([this](memory::Form& form) {
    EXPECT_TRUE(form.Design().IsCentred);
    EXPECT_EQ(form.Owner(), &MainForm->Form());
  });
}

TEST_F(OptionsTest, TabsAreThese) {
  Show([](memory::Form& form) {
    const auto tabs = Find<TabStrip>(form, u"tbsOptions").Tabs();
    ASSERT_EQ(tabs.size(), 2U);
    EXPECT_EQ(tabs[0]->Caption(), u"SCPI");
    EXPECT_EQ(tabs[0]->ToolTipText(), u"Set Options for SCPI Communication Protocol");
    EXPECT_EQ(tabs[1]->Caption(), u"Other");
    EXPECT_EQ(tabs[1]->ToolTipText(), u"Set Options for Other Communication Protocol");
  });
}

TEST_F(OptionsTest, TerminationsAreThese) {
  Show([](memory::Form& form) {
    for (StringView name : {u"cboSCPITermChar", u"cboOtherTermChar"}) {
      const auto& list = Find<ComboBox>(form, name);
      std::vector<String> items;
      for (std::int32_t i = 0; i < list.ListCount(); ++i) items.push_back(list.List(i));
      EXPECT_EQ(items, (std::vector<String>{u"Auto ", u"CR", u"LF", u"CRLF", u"LFCR"}));
    }
  });
}

TEST_F(OptionsTest, LoadsTheTenOptions) {
  Show([](memory::Form& form) {
    EXPECT_FALSE(IsChecked(form, u"chkSCPIOPC"));
    EXPECT_TRUE(IsChecked(form, u"chkSCPITimed"));
    EXPECT_EQ(TextOf(form, u"txtSCPIInterval"), "250");
    EXPECT_TRUE(IsChecked(form, u"chkSCPIAutoRead"));
    EXPECT_FALSE(IsChecked(form, u"chkSCPIGetStatus"));
    EXPECT_EQ(TextOf(form, u"txtErrQueryCmd"), ":ERR?");
    EXPECT_EQ(Find<ComboBox>(form, u"cboSCPITermChar").ListIndex(), 3);
    EXPECT_TRUE(IsChecked(form, u"chkOtherTimed"));
    EXPECT_EQ(TextOf(form, u"txtOtherInterval"), "20");
    EXPECT_EQ(Find<ComboBox>(form, u"cboOtherTermChar").ListIndex(), 4);
  });
}

TEST_F(OptionsTest, LoadingRunsTheClickHandlers) {
  With(u"SCPIProtocolOPCPacing", u"On");
  With(u"SCPIProtocolAutoReadAfterQuery", u"Off");
  Show([](memory::Form& form) { EXPECT_TRUE(IsChecked(form, u"chkSCPIAutoRead")); });
  With(u"SCPIProtocolOPCPacing", u"Off");
  With(u"SCPIProtocolAutoErrorChecking", u"On");
  Show([](memory::Form& form) { EXPECT_TRUE(IsChecked(form, u"chkSCPIAutoRead")); });
  With(u"SCPIProtocolAutoErrorChecking", u"Off");
  Show([](memory::Form& form) { EXPECT_FALSE(IsChecked(form, u"chkSCPIAutoRead")); });
}

TEST_F(OptionsTest, OpensOnThePageOfTheProtocol) {
  Show([](memory::Form& form) {
    EXPECT_EQ(Find<TabStrip>(form, u"tbsOptions").SelectedItem(), 1);
    EXPECT_EQ(LeftOf(form, u"picOptions(0)"), 120);
    EXPECT_EQ(LeftOf(form, u"picOptions(1)"), -20000);
  });
}

TEST_F(OptionsTest, WithProtocolNameOtherOpensOnTab2AndOKSavesTheUnseenTab1AsItWasLoaded) {
  With(u"ProtocolName", u"Other");
  Show([](memory::Form& form) {
    EXPECT_EQ(Find<TabStrip>(form, u"tbsOptions").SelectedItem(), 2);
    EXPECT_EQ(LeftOf(form, u"picOptions(0)"), -20000);
    EXPECT_EQ(LeftOf(form, u"picOptions(1)"), 120);
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Calls, Written({{u"ProtocolName", u"Other"}}));
}

TEST_F(OptionsTest, AnyOtherProtocolNameOpensOnTab1) {
  With(u"ProtocolName", u"other");
  Show([](memory::Form& form) { EXPECT_EQ(Find<TabStrip>(form, u"tbsOptions").SelectedItem(), 1); });
}

TEST_F(OptionsTest, ControlsKeepTheirValuesWhenTheTabChanges) {
  Show([](memory::Form& form) {
    Find<TextBox>(form, u"txtSCPIInterval").Type(u"7");
    auto& tabs = Find<TabStrip>(form, u"tbsOptions");
    tabs.Choose(2);
    EXPECT_EQ(LeftOf(form, u"picOptions(1)"), 120);
    tabs.Choose(1);
    EXPECT_EQ(TextOf(form, u"txtSCPIInterval"), "7");
  });
}

TEST_F(OptionsTest, TabOrderFollowsThePage) {
  const std::vector<StringView> first = {u"chkSCPIOPC",       u"chkSCPITimed",   u"txtSCPIInterval", u"chkSCPIAutoRead",
                                         u"chkSCPIGetStatus", u"txtErrQueryCmd", u"cboSCPITermChar"};
  const std::vector<StringView> second = {u"chkOtherTimed", u"txtOtherInterval", u"cboOtherTermChar"};
  const std::vector<StringView> buttons = {u"cmdOK", u"cmdCancel", u"cmdHelp"};
  Show([&](memory::Form& form) {
    const auto expect = [&](const std::vector<StringView>& page, const std::vector<StringView>& other) {
      std::int32_t place = 0;
      for (const auto& names : {page, buttons}) {
        for (StringView name : names) {
          EXPECT_EQ(Find<ITabOrder>(form, name).TabIndex(), ++place) << ToUtf8(name);
          EXPECT_TRUE(Find<ITabOrder>(form, name).TabStop()) << ToUtf8(name);
        }
      }
      for (StringView name : other) EXPECT_FALSE(Find<ITabOrder>(form, name).TabStop()) << ToUtf8(name);
    };
    EXPECT_EQ(Find<ITabOrder>(form, u"tbsOptions").TabIndex(), 0);
    expect(first, second);
    Find<TabStrip>(form, u"tbsOptions").Choose(2);
    expect(second, first);
    EXPECT_EQ(Find<ITabOrder>(form, u"tbsOptions").TabIndex(), 0);
  });
}

TEST_F(OptionsTest, TimedEnablesItsIntervalAndUnit) {
  Show([](memory::Form& form) {
    const auto expect = [&](bool enabled, StringView unit, StringView interval) {
      EXPECT_EQ(Find<IControl>(form, unit).Enabled(), enabled);
      EXPECT_EQ(Find<IControl>(form, interval).Enabled(), enabled);
    };
    expect(true, u"lblUnit", u"txtSCPIInterval");
    Click(form, u"chkSCPITimed");
    expect(false, u"lblUnit", u"txtSCPIInterval");
    expect(true, u"lblOtherUnit", u"txtOtherInterval");
    Click(form, u"chkSCPITimed");
    expect(true, u"lblUnit", u"txtSCPIInterval");
    Find<TabStrip>(form, u"tbsOptions").Choose(2);
    Click(form, u"chkOtherTimed");
    expect(false, u"lblOtherUnit", u"txtOtherInterval");
    expect(true, u"lblUnit", u"txtSCPIInterval");
  });
}

TEST_F(OptionsTest, UncheckingAutoReadWhileOPCOrStatusIsCheckedLeavesItChecked) {
  for (StringView box : {u"chkSCPIOPC", u"chkSCPIGetStatus"}) {
    Show([&](memory::Form& form) {
      Click(form, box);
      Click(form, u"chkSCPIAutoRead");
      EXPECT_TRUE(IsChecked(form, u"chkSCPIAutoRead"));
    });
  }
}

TEST_F(OptionsTest, UncheckingOPCLeavesAutoReadCheckedUntilItIsUncheckedByHand) {
  Show([](memory::Form& form) {
    Click(form, u"chkSCPIOPC");
    Click(form, u"chkSCPIOPC");
    EXPECT_TRUE(IsChecked(form, u"chkSCPIAutoRead"));
    Click(form, u"chkSCPIAutoRead");
    EXPECT_FALSE(IsChecked(form, u"chkSCPIAutoRead"));
  });
}

TEST_F(OptionsTest, CheckingOPCOrStatusChecksAutoRead) {
  With(u"SCPIProtocolAutoReadAfterQuery", u"Off");
  for (StringView box : {u"chkSCPIOPC", u"chkSCPIGetStatus"}) {
    Show([&](memory::Form& form) {
      EXPECT_FALSE(IsChecked(form, u"chkSCPIAutoRead"));
      Click(form, box);
      EXPECT_TRUE(IsChecked(form, u"chkSCPIAutoRead"));
    });
  }
}

TEST_F(OptionsTest, CtrlTabGoesToTheNextTabAndFromTheLastToTheFirst) {
  Show([](memory::Form& form) {
    auto& tabs = Find<TabStrip>(form, u"tbsOptions");
    form.PressKey(9, 2);
    EXPECT_EQ(tabs.SelectedItem(), 2);
    EXPECT_EQ(LeftOf(form, u"picOptions(1)"), 120);
    form.PressKey(9, 2);
    EXPECT_EQ(tabs.SelectedItem(), 1);
    EXPECT_EQ(LeftOf(form, u"picOptions(0)"), 120);
  });
}

TEST_F(OptionsTest, OtherKeysLeaveTheTab) {
  Show([](memory::Form& form) {
    for (const auto& [code, shift] : std::vector<std::pair<int, int>>{{9, 0}, {9, 1}, {9, 3}, {65, 2}}) {
      form.PressKey(code, shift);
      EXPECT_EQ(Find<TabStrip>(form, u"tbsOptions").SelectedItem(), 1);
    }
  });
}

TEST_F(OptionsTest, TopicOfHelpDoesNotFollowThePage) {
  Show([](memory::Form& form) {
    Press(form, u"cmdHelp");
    Find<TabStrip>(form, u"tbsOptions").Choose(2);
    Press(form, u"cmdHelp");
  });
  const std::string help = "ShowHelp 258 AL(`frmTVSCPIOptions.SCPI',1) TVPort.hlp";
  EXPECT_EQ(Deeds, (Journal{help, help}));
}

TEST_F(OptionsTest, TopicOfHelpIsTakenByThePlaceOfTheTabStrip) {
  Show([](memory::Form& form) {
    Find<ITabOrder>(form, u"tbsOptions").TabIndex(1);
    Press(form, u"cmdHelp");
  });
  EXPECT_EQ(Deeds, Journal{"ShowHelp 258 AL(`frmTVSCPIOptions.Other',1) TVPort.hlp"});
}

} // namespace
} // namespace portico::test
