#pragma once

#include "framework/objects/Creator.h"
#include "framework/shared/UserCommand.h"
#include "ui/dialogs/DialogForm.h"

namespace portico {

/// Edits the options of both protocols, which are stored when OK is pressed and not before. What is typed is not
/// checked. Which page is open does not choose the protocol.
class frmTVSCPIOptions final : public DialogForm {
public:
  frmTVSCPIOptions();
  StringView ClassName() const override { return u"frmTVSCPIOptions"; }

  void Form_Initialize() override;

private:
  /// A failure is filed, as those of the handlers are: an option of a check box that is neither "On" nor "Off" raises
  /// `InvalidArgument`.
  void Form_Load() override;
  void Form_KeyDown(std::int32_t KeyCode, std::int32_t Shift);
  void tbsOptions_Click();
  void ChangeTabState(std::int32_t i, bool State);
  void cmdOK_Click();
  void cmdHelp_Click();
  void chkSCPIAutoRead_Click();

  void FillControls();
  void ConnectCheckBoxes();
  /// What a check box and its neighbours do at its click.
  void EnableBeside(StringView checkBox, StringView unit, StringView interval);
  void CheckAutoReadWith(StringView checkBox);
  bool IsChecked(StringView checkBox) const;
  void LoadOptions();
  void SaveOptions();
};

/// Lets the user edit the options. A dialog that cannot be made raises `CannotCarryOut`.
class CConfigOptions final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CConfigOptions"; }

private:
  void Act() override;
};

/// "ConfigOptions".
extern const CreatorRow CtorConfigOptions;

} // namespace portico
