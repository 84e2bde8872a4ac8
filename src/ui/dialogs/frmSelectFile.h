#pragma once

#include "platform/ICommonDialog.h"

namespace portico {

/// Which dialog is shown. The one for opening serves for new files as well: it does not insist that the file exists.
inline constexpr std::int32_t SelectToOpen = 1;

/// Sets of filters. The contract has two more, 2 and 6, and a dialog for saving; nothing in the program asks for them.
inline constexpr std::int32_t CopyToFilters = 1;
inline constexpr std::int32_t PasteFromFilters = 3;
inline constexpr std::int32_t ViewLogFilters = 4;
inline constexpr std::int32_t NewLogFilters = 5;

/// The one place from which file dialogs are shown. Made for each question.
class frmSelectFile final : public IObject {
public:
  /// Null without `gCommonDialog`.
  static Ref<frmSelectFile> Make();

  explicit frmSelectFile(const Ref<ICommonDialog>& dialog) : m_dialog(dialog) {}
  StringView ClassName() const override { return u"frmSelectFile"; }

  /// The file that the user chooses, and empty if the user cancels. `DialogMode` 1 shows the dialog for opening, any
  /// other that for saving. Sets of filters count from 1 to 6; any other keeps them all. An empty title keeps the
  /// dialog's own.
  String SelectedFileName(std::int32_t DialogMode, const String& Title, const std::int32_t& FilterSet);

private:
  void Form_Load();

  Ref<ICommonDialog> m_dialog;
  FileDialogSettings m_dlg;
  String m_selectedFileName;
  bool m_loaded = false;
};

} // namespace portico
