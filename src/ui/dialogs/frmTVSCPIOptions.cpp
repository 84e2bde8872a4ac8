#include "ui/dialogs/frmTVSCPIOptions.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/IConfiguration.h"
#include "platform/IDialogControls.h"
#include "platform/Termination.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/UserCommands.h"
#include "ui/dialogs/DialogDesigns.h"

#include <array>

namespace portico {
namespace {

constexpr std::int32_t PageOnScreen = 120;
constexpr std::int32_t PageOffScreen = -20000;

constexpr std::array<StringView, 2> Pages = {u"picOptions(0)", u"picOptions(1)"};

struct Option {
  StringView Control;
  AnyItemKey Key;
};

// In the order in which they are read, written and reached by the Tab key.
constexpr std::array Options1 = {
    Option{u"chkSCPIOPC", Item::SCPIProtocolOPCPacing},
    Option{u"chkSCPITimed", Item::SCPIProtocolIntervalPacing},
    Option{u"txtSCPIInterval", Item::SCPIProtocolPacingInterval},
    Option{u"chkSCPIAutoRead", Item::SCPIProtocolAutoReadAfterQuery},
    Option{u"chkSCPIGetStatus", Item::SCPIProtocolAutoErrorChecking},
    Option{u"txtErrQueryCmd", Item::SCPIProtocolErrorCheckingCommand},
    Option{u"cboSCPITermChar", Item::SCPIProtocolTerminationCharacter},
};
constexpr std::array Options2 = {
    Option{u"chkOtherTimed", Item::OtherProtocolIntervalPacing},
    Option{u"txtOtherInterval", Item::OtherProtocolPacingInterval},
    Option{u"cboOtherTermChar", Item::OtherProtocolTerminationCharacter},
};
constexpr std::array<std::span<const Option>, 2> OptionsOfPage = {Options1, Options2};
constexpr std::array<StringView, 3> Buttons = {u"cmdOK", u"cmdCancel", u"cmdHelp"};

void Set(ICheckBox& box, const String& state) {
  HuntERR::Check(state == ItemText::On || state == ItemText::Off, ErrorNumber::InvalidArgument,
                 [&] { return state + u" is not a valid state for a check box."; });
  box.Value(state == ItemText::On ? Checked : Unchecked);
}

String StateOf(const ICheckBox& box) {
  const std::int32_t value = box.Value();
  HuntERR::Check(value == Checked || value == Unchecked, ErrorNumber::InvalidArgument,
                 u"A check box must be checked or unchecked.");
  return String(value == Checked ? ItemText::On : ItemText::Off);
}

void Set(IComboBox& list, const String& termination) {
  for (std::size_t i = 0; i < Terminations.size(); ++i) {
    if (Terminations[i].Name == termination) list.ListIndex(static_cast<std::int32_t>(i));
  }
}

String TerminationOf(const IComboBox& list) {
  const std::int32_t index = list.ListIndex();
  return index < 0 ? String() : String(Terminations.at(static_cast<std::size_t>(index)).Name);
}

} // namespace

frmTVSCPIOptions::frmTVSCPIOptions() : DialogForm(OptionsDesign) {}

void frmTVSCPIOptions::Form_Initialize() {
  FillControls();
  ConnectCheckBoxes();
  On(Control<ITabStrip>(u"tbsOptions").Click(), u"frmTVSCPIOptions.tbsOptions_Click", [this] { tbsOptions_Click(); });
  On(Control<ICommandButton>(u"cmdOK").Click(), u"frmTVSCPIOptions.cmdOK_Click", [this] { cmdOK_Click(); });
  On(Control<ICommandButton>(u"cmdCancel").Click(), u"frmTVSCPIOptions.cmdCancel_Click", [this] { Unload(); });
  On(Control<ICommandButton>(u"cmdHelp").Click(), u"frmTVSCPIOptions.cmdHelp_Click", [this] { cmdHelp_Click(); });
  On(Form().Events().KeyDown, u"frmTVSCPIOptions.Form_KeyDown(KeyCode,Shift)",
     [this](std::int32_t keyCode, std::int32_t shift) { Form_KeyDown(keyCode, shift); });
}

void frmTVSCPIOptions::FillControls() {
  auto& tabs = Control<ITabStrip>(u"tbsOptions");
  tabs.AddTab(u"SCPI", u"Set Options for SCPI Communication Protocol");
  tabs.AddTab(u"Other", u"Set Options for Other Communication Protocol");
  tabs.TabIndex(0);
  for (StringView name : {u"cboSCPITermChar", u"cboOtherTermChar"}) {
    auto& list = Control<IComboBox>(name);
    for (const NamedTermination& item : Terminations) {
      list.AddItem(item.Value == Termination::Auto ? u"Auto " : String(item.Name));
    }
  }
  Control<IPage>(Pages[1]).Left(PageOffScreen);                  // also when the options cannot be loaded
  EnableBeside(u"chkSCPITimed", u"lblUnit", u"txtSCPIInterval"); // their boxes need not change when they are loaded
  EnableBeside(u"chkOtherTimed", u"lblOtherUnit", u"txtOtherInterval");
}

void frmTVSCPIOptions::ConnectCheckBoxes() {
  const auto on = [this](StringView box, StringView label, auto act) {
    On(Control<ICheckBox>(box).Click(), label, act);
  };
  on(u"chkSCPITimed", u"frmTVSCPIOptions.chkSCPITimed_Click",
     [this] { EnableBeside(u"chkSCPITimed", u"lblUnit", u"txtSCPIInterval"); });
  on(u"chkOtherTimed", u"frmTVSCPIOptions.chkOtherTimed_Click",
     [this] { EnableBeside(u"chkOtherTimed", u"lblOtherUnit", u"txtOtherInterval"); });
  on(u"chkSCPIOPC", u"frmTVSCPIOptions.chkSCPIOPC_Click", [this] { CheckAutoReadWith(u"chkSCPIOPC"); });
  on(u"chkSCPIGetStatus", u"frmTVSCPIOptions.chkSCPIGetStatus_Click",
     [this] { CheckAutoReadWith(u"chkSCPIGetStatus"); });
  on(u"chkSCPIAutoRead", u"frmTVSCPIOptions.chkSCPIAutoRead_Click", [this] { chkSCPIAutoRead_Click(); });
}

void frmTVSCPIOptions::EnableBeside(StringView checkBox, StringView unit, StringView interval) {
  const bool enabled = IsChecked(checkBox);
  Control<IControl>(unit).Enabled(enabled);
  Control<IControl>(interval).Enabled(enabled);
}

void frmTVSCPIOptions::CheckAutoReadWith(StringView checkBox) {
  if (IsChecked(checkBox)) Control<ICheckBox>(u"chkSCPIAutoRead").Value(Checked);
}

void frmTVSCPIOptions::chkSCPIAutoRead_Click() {
  CheckAutoReadWith(u"chkSCPIOPC");
  CheckAutoReadWith(u"chkSCPIGetStatus");
}

bool frmTVSCPIOptions::IsChecked(StringView checkBox) const { return Control<ICheckBox>(checkBox).Value() == Checked; }

void frmTVSCPIOptions::Form_Load() {
  Filed(u"frmTVSCPIOptions.Form_Load", [this] {
    LoadOptions();
    const bool isOther = gConfiguration->ItemValue(Item::ProtocolName) == ItemText::Other;
    Control<ITabStrip>(u"tbsOptions").SelectedItem(isOther ? 2 : 1);
    Filed(u"frmTVSCPIOptions.tbsOptions_Click", [this] { tbsOptions_Click(); });
  });
}

void frmTVSCPIOptions::LoadOptions() {
  for (const auto options : OptionsOfPage) {
    for (const Option& option : options) {
      const String value = gConfiguration->ItemValue(option.Key.Name);
      switch (option.Key.Type) {
      case ItemType::Switch:
        Set(Control<ICheckBox>(option.Control), value);
        break;
      case ItemType::Termination:
        Set(Control<IComboBox>(option.Control), value);
        break;
      default:
        Control<ITextBox>(option.Control).Text(value);
      }
    }
  }
}

void frmTVSCPIOptions::SaveOptions() {
  const auto valueOf = [this](const Option& option) {
    switch (option.Key.Type) {
    case ItemType::Switch:
      return StateOf(Control<ICheckBox>(option.Control));
    case ItemType::Termination:
      return TerminationOf(Control<IComboBox>(option.Control));
    default:
      return Control<ITextBox>(option.Control).Text();
    }
  };
  for (const auto options : OptionsOfPage) {
    for (const Option& option : options) gConfiguration->ItemValue(option.Key.Name, valueOf(option));
  }
  // This is what brings the options into effect.
  gConfiguration->ItemValue(Item::ProtocolName, gConfiguration->ItemValue(Item::ProtocolName));
}

void frmTVSCPIOptions::tbsOptions_Click() {
  auto& tabs = Control<ITabStrip>(u"tbsOptions");
  const std::int32_t selected = tabs.SelectedItem() - 1;
  for (std::int32_t i = 0; i < static_cast<std::int32_t>(tabs.Tabs().size()); ++i) {
    Control<IPage>(Pages.at(static_cast<std::size_t>(i))).Left(i == selected ? PageOnScreen : PageOffScreen);
    ChangeTabState(i, i == selected);
  }
}

void frmTVSCPIOptions::ChangeTabState(std::int32_t i, bool State) try {
  if (!State || i < 0 || i >= static_cast<std::int32_t>(OptionsOfPage.size())) return;
  const auto page = static_cast<std::size_t>(i);
  std::int32_t place = 0;
  for (const Option& option : OptionsOfPage[page]) Control<ITabOrder>(option.Control).TabIndex(++place);
  for (StringView button : Buttons) Control<ITabOrder>(button).TabIndex(++place);
  for (const Option& option : OptionsOfPage[page]) Control<ITabOrder>(option.Control).TabStop(true);
  for (const Option& option : OptionsOfPage[1 - page]) Control<ITabOrder>(option.Control).TabStop(false);
} catch (...) {
  PassOn(u"frmTVSCPIOptions.ChangeTabState(i,State)", {i, State});
}

void frmTVSCPIOptions::Form_KeyDown(std::int32_t KeyCode, std::int32_t Shift) {
  if (KeyCode != TabKey || Shift != CtrlState) return;
  auto& tabs = Control<ITabStrip>(u"tbsOptions");
  const auto count = static_cast<std::int32_t>(tabs.Tabs().size());
  tabs.SelectedItem(tabs.SelectedItem() == count ? 1 : tabs.SelectedItem() + 1);
}

void frmTVSCPIOptions::cmdOK_Click() {
  SaveOptions();
  Unload();
}

void frmTVSCPIOptions::cmdHelp_Click() {
  auto& tabs = Control<ITabStrip>(u"tbsOptions");
  // The strip's own place in the Tab key's order, not the page that is open.
  const ITab* tab = tabs.Tabs().at(static_cast<std::size_t>(tabs.TabIndex()));
  ShowHelp(String(Form().Name()) + u"." + tab->Caption());
}

void CConfigOptions::Act() {
  const auto dialog = MakeDialog<frmTVSCPIOptions>(u"Failed to create option dialog box.");
  dialog->ShowModal(&gMainFormParts->Form());
}

const CreatorRow CtorConfigOptions = {
    .Name = u"CtorConfigOptions",
    .Specification = Class::ConfigOptions,
    .ParamCount = Class::ConfigOptions.ParamCount,
    .Make = MakePlainCommand<CConfigOptions>,
};

} // namespace portico
