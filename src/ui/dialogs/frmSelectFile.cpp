#include "ui/dialogs/frmSelectFile.h"

#include "framework/errors/HuntERR.h"

#include <array>

namespace portico {
namespace {

struct FilterRow {
  StringView Filter;
  StringView DefaultExt;
};

constexpr FilterRow AllFilters = {u"Log (*.log)|*.log|Command (*.cmd)|*.cmd|Rich Text (*.rtf)|*.rtf|Text "
                                  u"(*.txt)|*.txt|All (*.*)|*.*",
                                  u".log"};

/// By set, from 1.
constexpr std::array FilterSets = {
    FilterRow{u"Log (*.log)|*.log|Command (*.cmd)|*.cmd|Rich Text (*.rtf)|*.rtf|Text (*.txt)|*.txt", u".log"},
    FilterRow{u"Command (*.cmd)|*.cmd|Rich Text (*.rtf)|*.rtf|Text (*.txt)|*.txt|All (*.*)|*.*", u".cmd"},
    FilterRow{u"Log (*.log)|*.log|Command (*.cmd)|*.cmd|Text (*.txt)|*.txt|All (*.*)|*.*", u".log"},
    FilterRow{u"Log (*.log)|*.log|All (*.*)|*.*", u".log"},
    FilterRow{u"Log (*.log)|*.log", u".log"},
    FilterRow{u"Command (*.cmd)", u".cmd"}, // a name without a pattern
};

/// No read-only box (4), and no answer that is read-only (0x8000). The name need not be that of a file.
constexpr std::int32_t FileFlags = 0x8004;

void Apply(const FilterRow& row, FileDialogSettings& settings) {
  settings.Filter = row.Filter;
  settings.DefaultExt = row.DefaultExt;
}

} // namespace

Ref<frmSelectFile> frmSelectFile::Make() {
  if (!gCommonDialog) return {};
  return New<frmSelectFile>(gCommonDialog);
}

void frmSelectFile::Form_Load() try {
  m_dlg.FileName = m_selectedFileName;
  m_dlg.CancelError = false;
  Apply(AllFilters, m_dlg);
  m_dlg.FilterIndex = 1;
  m_dlg.Flags = FileFlags;
  m_loaded = true;
} catch (...) {
  PassOn(u"frmSelectFile.Form_Load");
}

String frmSelectFile::SelectedFileName(std::int32_t DialogMode, const String& Title, const std::int32_t& FilterSet) {
  if (!m_loaded) Form_Load();
  if (FilterSet >= 1 && FilterSet <= static_cast<std::int32_t>(FilterSets.size())) {
    Apply(FilterSets[static_cast<std::size_t>(FilterSet - 1)], m_dlg);
  }
  if (!Title.empty()) m_dlg.DialogTitle = Title;
  if (DialogMode == SelectToOpen) {
    m_dialog->ShowOpen(m_dlg);
  } else {
    m_dialog->ShowSave(m_dlg);
  }
  m_selectedFileName = m_dlg.FileName;
  return m_selectedFileName;
}

} // namespace portico
