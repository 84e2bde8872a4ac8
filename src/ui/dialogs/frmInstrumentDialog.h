#pragma once

#include "platform/IEventLoop.h"
#include "platform/IInstrumentSearch.h"
#include "ui/dialogs/DialogForm.h"

#include <memory>

namespace portico {

/// Asks which instrument to open: one of those that are known, one that is found while the dialog is shown, or a name
/// that is typed. The name is not checked.
class frmInstrumentDialog final : public DialogForm {
public:
  frmInstrumentDialog();
  ~frmInstrumentDialog() override { EndSearch(); }
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

  void BeginSearch();
  void EndSearch() noexcept;
  /// Appends what has been found to the list; text and selection stay as they are.
  void AppendFound();

  std::shared_ptr<IInstrumentSearch> m_search; // while it is on
  std::unique_ptr<ITimer> m_tmrSearch;
  String m_instrumentName;
};

} // namespace portico
