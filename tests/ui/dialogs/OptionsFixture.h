#pragma once

#include "ui/UiFixture.h"
#include "ui/dialogs/frmTVSCPIOptions.h"

namespace portico::test {
using memory::CheckBox;
using memory::ComboBox;
using memory::TabStrip;
using memory::TextBox;

inline const std::vector<std::pair<String, String>> Stored = {
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

/// Options that are stored, and the dialog that edits them.
class OptionsFixture : public UiFixture {
protected:
  OptionsFixture() {
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

  /// What OK writes: what is stored, but for these, and the protocol.
  static List Written(const std::map<String, String>& others) {
    List lines;
    const auto add = [&](const String& item, const String& value) {
      const auto other = others.find(item);
      lines.push_back(ToUtf8(item) + "=" + ToUtf8(other == others.end() ? value : other->second));
    };
    for (const auto& [item, value] : Stored) add(item, value);
    add(u"ProtocolName", u"SCPI");
    return lines;
  }
};

} // namespace portico::test
