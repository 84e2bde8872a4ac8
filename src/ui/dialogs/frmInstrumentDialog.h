#pragma once

#include "ui/dialogs/DialogForm.h"

namespace portico {

/// Asks which instrument to open: one of those that are known, or a name that is typed. The name is not checked.
class frmInstrumentDialog final : public DialogForm {
public:
  frmInstrumentDialog();
  StringView ClassName() const override { return u"frmInstrumentDialog"; }

  void Form_Initialize() override;
  /// Empty if the user has cancelled, by whatever road.
  const String& InstrumentName() const { return m_instrumentName; }

private:
  /// A failure of the list of instruments passes out, and no dialog appears.
  void Form_Load() override;
  void InitializeInstrumentList();
  void OKButton_Click();
  void CancelButton_Click();

  String m_instrumentName;
};

} // namespace portico
