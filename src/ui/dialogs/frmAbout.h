#pragma once

#include "ui/dialogs/DialogForm.h"

namespace portico {

/// Shows the title, and the version of the installed instrument driver or else the program's own.
class frmAbout final : public DialogForm {
public:
  frmAbout();
  StringView ClassName() const override { return u"frmAbout"; }

  void Form_Initialize() override;

  /// Reads a value of the machine's registry as text: a text as it is, a number in decimal, any other kind as empty.
  /// False, and an empty text, if there is no such value or no registry.
  static bool GetKeyValue(std::int32_t KeyRoot, const String& KeyName, const String& SubKeyRef, String& KeyVal);

private:
  /// A failure is filed, and what is left stays empty.
  void Form_Load() override;
};

/// Shows the box until the user has closed it.
void ShowAbout(IForm* Owner);

} // namespace portico
