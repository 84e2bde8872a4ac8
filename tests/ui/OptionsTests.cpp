#include "ui/frmTVSCPIOptions.h"

#include "UiFixture.h"
#include "configuration/CConfigurationClient.h"

namespace portico::test {
namespace {

using memory::CheckBox;
using memory::ComboBox;
using memory::TabStrip;
using memory::TextBox;

const std::vector<std::pair<String, String>> Stored = {
    {u"SCPIProtocolOPCPacing", u"Off"},
    {u"SCPIProtocolIntervalPacing", u"On"},
    {u"SCPIProtocolPacingInterval", u"250"},
    {u"SCPIProtocolAutoReadAfterQuery", u"On"},
    {u"SCPIProtocolAutoErrorChecking", u"Off"},
    {u"SCPIProtocolErrorCheckingCommand", u":ERR?"},
    {u"SCPIProtocolTerminationCharacter", u"CRLF"},
    {u"OtherProtocolIntervalPacing", u"On"},
    {u"OtherProtocolPacingInterval", u"20"},
    {u"OtherProtocolTerminationCharacter", u"LFCR"},
};

class OptionsTest : public UiFixture {
protected:
  OptionsTest() {
    gObjectFactory->Add(MakeCreator(CtorConfigOptions));
    for (const auto& [item, value] : Stored) Configuration->Items[item] = value;
    Configuration->Items[u"ProtocolName"] = u"SCPI";
  }

  /// The dialog while the user does that; then the user cancels, if it is still there.
  void Show(const std::function<void(memory::Form&)>& act) {
    Platform.Screen->OnShowModal(u"frmTVSCPIOptions", [&](memory::Form& form) {
      act(form);
      if (form.IsShown()) Press(form, u"cmdCancel");
    });
    Create<ICommand>(u"ConfigOptions")->Execute();
  }
  void With(StringView item, const String& value) { Configuration->Items[String(item)] = value; }

  static bool IsChecked(memory::Form& form, StringView box) { return Find<CheckBox>(form, box).Value() == Checked; }
  static void Click(memory::Form& form, StringView box) {
    EXPECT_TRUE(Find<CheckBox>(form, box).Press()) << ToUtf8(box);
  }
  static std::string TextOf(memory::Form& form, StringView box) { return ToUtf8(Find<TextBox>(form, box).Text()); }
  static double LeftOf(memory::Form& form, StringView page) { return Find<IPage>(form, page).Left(); }

  /// What OK writes for the values as they are loaded.
  List Saved() const {
    List lines;
    for (const auto& [item, value] : Stored) {
      lines.push_back(ToUtf8(item) + "=" + ToUtf8(Configuration->Items.at(item)));
    }
    lines.push_back("ProtocolName=" + ToUtf8(Configuration->Items.at(u"ProtocolName")));
    return lines;
  }
};

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

TEST_F(OptionsTest, UnknownTerminationSelectsNothingAndIsSavedEmpty) {
  With(u"SCPIProtocolTerminationCharacter", u"auto");
  Show([](memory::Form& form) {
    EXPECT_EQ(Find<ComboBox>(form, u"cboSCPITermChar").ListIndex(), -1);
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Configuration->Items[u"SCPIProtocolTerminationCharacter"], u"");
}

TEST_F(OptionsTest, FirstTerminationIsStoredWithoutItsBlank) {
  Show([](memory::Form& form) {
    Find<ComboBox>(form, u"cboSCPITermChar").Choose(u"Auto ");
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Configuration->Items[u"SCPIProtocolTerminationCharacter"], u"Auto");
}

TEST_F(OptionsTest, EachTerminationComesBackAsItWasStored) {
  for (StringView termination : {u"Auto", u"CR", u"LF", u"CRLF", u"LFCR"}) {
    With(u"OtherProtocolTerminationCharacter", String(termination));
    Show([](memory::Form& form) { Press(form, u"cmdOK"); });
    EXPECT_EQ(Configuration->Items[u"OtherProtocolTerminationCharacter"], termination);
  }
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
  EXPECT_EQ(Calls, Saved());
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

TEST_F(OptionsTest, WithTimedUncheckedTheIntervalCannotBeEditedButIsSavedAllTheSame) {
  With(u"SCPIProtocolIntervalPacing", u"Off");
  With(u"OtherProtocolIntervalPacing", u"Off");
  Show([](memory::Form& form) {
    EXPECT_FALSE(Find<TextBox>(form, u"txtSCPIInterval").Type(u"7"));
    EXPECT_FALSE(Find<IControl>(form, u"lblUnit").Enabled());
    EXPECT_FALSE(Find<IControl>(form, u"txtOtherInterval").Enabled());
    EXPECT_FALSE(Find<IControl>(form, u"lblOtherUnit").Enabled());
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Calls, Saved());
  EXPECT_EQ(Configuration->Items[u"SCPIProtocolPacingInterval"], u"250");
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

TEST_F(OptionsTest, OKSavesBothPagesInOrderAndThenTheProtocolUnchanged) {
  Show([](memory::Form& form) {
    Find<TextBox>(form, u"txtErrQueryCmd").Type(u"");
    Press(form, u"cmdOK");
    EXPECT_FALSE(form.IsLoaded());
  });
  EXPECT_EQ(Configuration->Items[u"SCPIProtocolErrorCheckingCommand"], u"");
  EXPECT_EQ(Calls, Saved());
  EXPECT_EQ(Calls.size(), 11U);
}

TEST_F(OptionsTest, LettersInTheIntervalAreStored) {
  Show([](memory::Form& form) {
    Find<TextBox>(form, u"txtSCPIInterval").Type(u"abc");
    Press(form, u"cmdOK");
  });
  EXPECT_EQ(Configuration->Items[u"SCPIProtocolPacingInterval"], u"abc");
}

TEST_F(OptionsTest, CancelEscapeAndTheCloseBoxStoreNothing) {
  const std::vector<std::function<void(memory::Form&)>> ways = {
      [](memory::Form& form) { Press(form, u"cmdCancel"); },
      [](memory::Form& form) { form.PressKey(memory::EscapeKey); },
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

TEST_F(OptionsTest, SavingBringsTheOptionsIntoEffect) {
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

TEST_F(OptionsTest, StateThatIsNeitherOnNorOffIsFiledAndTheDialogShows) {
  With(u"SCPIProtocolIntervalPacing", u"on");
  Show([](memory::Form& form) { EXPECT_TRUE(form.IsShown()); });
  EXPECT_EQ(Filed(), List{"on is not a valid state for a check box."});
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.Form_Load()"});
}

TEST_F(OptionsTest, GrayedCheckBoxIsFiledAndTheDialogStays) {
  Show([](memory::Form& form) {
    Find<CheckBox>(form, u"chkSCPITimed").Value(Grayed);
    Press(form, u"cmdOK");
    EXPECT_TRUE(form.IsShown());
  });
  EXPECT_EQ(Filed(), List{"A check box must be checked or unchecked."});
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.cmdOK_Click()"});
}

TEST_F(OptionsTest, HandlersFileTheirFailures) {
  Dialog->OnCall = [](const std::string&) { HuntERR::Check(false, 53, u"no help"); };
  Show([](memory::Form& form) { Press(form, u"cmdHelp"); });
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.cmdHelp_Click()"});
  Show([](memory::Form& form) {
    form.Events().Unload.Connect([] { HuntERR::Check(false, 5, u"unload"); });
    Press(form, u"cmdCancel");
  });
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.cmdCancel_Click()"});
}

TEST_F(OptionsTest, TabsFileTheirFailures) {
  Show([](memory::Form& form) {
    auto& tabs = Find<TabStrip>(form, u"tbsOptions");
    tabs.AddTab(u"third", u"");
    tabs.Choose(3); // it has no page
  });
  EXPECT_EQ(HuntERR::ErrNumber(), 9);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.tbsOptions_Click()"});
}

TEST_F(OptionsTest, KeysFileTheirFailures) {
  Show([](memory::Form& form) {
    Find<TabStrip>(form, u"tbsOptions").Click().Connect([] { HuntERR::Check(false, 5, u"tab"); });
    form.PressKey(9, 2);
  });
  EXPECT_EQ(Filed(), List{"tab"});
  const auto trail = FiledTrail();
  ASSERT_EQ(trail.size(), 1U);
  EXPECT_TRUE(Bears(trail[0], u"frmTVSCPIOptions.Form_KeyDown(KeyCode,Shift)"));
}

TEST_F(OptionsTest, DialogThatCannotBeMadeRaises17) {
  gForms.reset();
  const auto error = Raised([] { Create<ICommand>(u"ConfigOptions")->Execute(); });
  gForms = Platform.Screen;
  ExpectError(error, 17, u"Failed to create option dialog box.");
  ExpectTrail(error, {u"CConfigOptions.ICommand_Execute"});
}

TEST_F(OptionsTest, CannotBeExecutedBeforeInitialize) {
  const auto error = Raised([] { CConfigOptions().Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CConfigOptions.ICommand_Execute"});
}

TEST_F(OptionsTest, EndOfTheProgramEndsTheDialogWithoutATrace) {
  Platform.Screen->OnShowModal(u"frmTVSCPIOptions", [this](memory::Form&) { Platform.Loop->RequestQuit(); });
  EXPECT_THROW(Create<ICommand>(u"ConfigOptions")->Execute(), Quit);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
  EXPECT_EQ(Calls, List{});
  EXPECT_FALSE(Platform.Screen->Find(u"frmTVSCPIOptions"));
}

} // namespace
} // namespace portico::test
