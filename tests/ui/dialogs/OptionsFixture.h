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
  OptionsFixture();

  /// The dialog while the user does that; then the user cancels, if it is still there.
  void Show(const std::function<void(memory::Form&)>& act);
  void With(StringView item, const String& value);

  static bool IsChecked(memory::Form& form, StringView box);
  static void Click(memory::Form& form, StringView box);
  static std::string TextOf(memory::Form& form, StringView box);
  static double LeftOf(memory::Form& form, StringView page);

  /// What OK writes: what is stored, but for these, and the protocol.
  static List Written(const std::map<String, String>& others);
};

} // namespace portico::test
