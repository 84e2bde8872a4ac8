#include "ui/dialogs/frmInstrumentDialog.h"

#include "platform/IDialogControls.h"
#include "platform/IInstrumentList.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/DialogDesigns.h"

namespace portico {
namespace {

constexpr std::int32_t SearchInterval = 200; // milliseconds

std::vector<String> Entries(const IComboBox& list) {
  std::vector<String> entries;
  for (std::int32_t i = 0; i < list.ListCount(); ++i) entries.push_back(list.List(i));
  return entries;
}

} // namespace

frmInstrumentDialog::frmInstrumentDialog() : DialogForm(InstrumentDialogDesign) {}

void frmInstrumentDialog::Form_Initialize() {
  auto& list = Control<IComboBox>(u"txtInstrument");
  On(list.Change(), u"frmInstrumentDialog.txtInstrument_Change", [this, &list] { m_instrumentName = list.Text(); });
  On(Control<ICommandButton>(u"OKButton").Click(), u"frmInstrumentDialog.OKButton_Click", [this] { OKButton_Click(); });
  On(Control<ICommandButton>(u"CancelButton").Click(), u"frmInstrumentDialog.CancelButton_Click",
     [this] { CancelButton_Click(); });
  On(Control<ICommandButton>(u"cmdHelp").Click(), u"frmInstrumentDialog.cmdHelp_Click",
     [this] { ShowHelp(Form().Name()); });
  // The field holds what was typed: the close box must not open that.
  On(Form().Events().QueryUnload, u"frmInstrumentDialog.Form_QueryUnload", [this] { CancelButton_Click(); });
  On(Form().Events().Unload, u"frmInstrumentDialog.Form_Unload", [this] { EndSearch(); });
}

void frmInstrumentDialog::Form_Load() try {
  InitializeInstrumentList();
  Filed(u"frmInstrumentDialog.BeginSearch", [this] { BeginSearch(); });
} catch (...) {
  PassOn(u"frmInstrumentDialog.Form_Load");
}

void frmInstrumentDialog::InitializeInstrumentList() try {
  if (!gInstrumentList) return; // a machine without the service has no list
  auto& list = Control<IComboBox>(u"txtInstrument");
  for (const String& name : NamesThatOpen(*gInstrumentList)) list.AddItem(name);
  if (list.ListCount() > 0) list.ListIndex(0);
} catch (...) {
  PassOn(u"frmInstrumentDialog.InitializeInstrumentList");
}

void frmInstrumentDialog::BeginSearch() {
  if (!gInstrumentSearch) return;
  m_tmrSearch = Wired(gEventLoop).MakeTimer();
  On(m_tmrSearch->Timer(), u"frmInstrumentDialog.tmrSearch_Timer", [this] { AppendFound(); });
  m_tmrSearch->Interval(SearchInterval);
  m_search = gInstrumentSearch;
  m_search->Start(Entries(Control<IComboBox>(u"txtInstrument")));
  m_tmrSearch->Enabled(true);
}

void frmInstrumentDialog::EndSearch() noexcept {
  m_tmrSearch.reset();
  if (m_search) m_search->Stop();
  m_search.reset();
}

void frmInstrumentDialog::AppendFound() {
  m_tmrSearch->Enabled(false); // for good if this fails
  auto& list = Control<IComboBox>(u"txtInstrument");
  for (const FoundInstrument& found : m_search->Take()) list.AddItem(found.Name);
  m_tmrSearch->Enabled(true);
}

void frmInstrumentDialog::OKButton_Click() {
  m_instrumentName = Trim(Control<IComboBox>(u"txtInstrument").Text());
  Unload();
}

void frmInstrumentDialog::CancelButton_Click() {
  m_instrumentName.clear();
  Unload();
}

} // namespace portico
