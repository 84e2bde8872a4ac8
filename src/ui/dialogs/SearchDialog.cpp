#include "ui/dialogs/SearchDialog.h"

#include "platform/IDialogControls.h"
#include "platform/IListView.h"
#include "ui/dialogs/DialogDesigns.h"

#include <algorithm>

namespace portico {
namespace {

class FoundRows final : public IListRows {
public:
  explicit FoundRows(const std::shared_ptr<LineSearch>& search) : m_search(search) {}

  std::int32_t Count() const override { return static_cast<std::int32_t>(m_search->Found().size()); }
  String Cell(std::int32_t row, std::int32_t /*column*/) const override {
    return m_search->Line(static_cast<std::size_t>(row));
  }

private:
  std::shared_ptr<LineSearch> m_search;
};

} // namespace

SearchDialog::SearchDialog() : DialogForm(SearchDesign) {}

void SearchDialog::Form_Initialize() {
  auto& list = Control<IListView>(u"lstLines");
  list.Columns({{.Heading = u"Line", .Characters = 72}});
  On(list.Choose(), u"SearchDialog.lstLines_Choose", [this] { Choose(); });
  On(Control<ITextBox>(u"txtText").Change(), u"SearchDialog.txtText_Change", [this] { Find(); });
  On(Form().Events().KeyDown, u"SearchDialog.Form_KeyDown", [this](std::int32_t code, std::int32_t shift) {
    const IControl* active = gForms->ActiveControl();
    if (shift != 0 || active == nullptr || active->Name() != u"txtText") return;
    if (code == UpKey) Move(-1);
    if (code == DownKey) Move(1);
  });
  On(Control<ICommandButton>(u"cmdOK").Click(), u"SearchDialog.cmdOK_Click", [this] { Choose(); });
  On(Control<ICommandButton>(u"cmdCancel").Click(), u"SearchDialog.cmdCancel_Click", [this] { Unload(); });
}

void SearchDialog::Form_Load() {
  Control<IListView>(u"lstLines").Rows(std::make_shared<FoundRows>(m_search));
  Move(0);
}

void SearchDialog::Find() {
  m_search->Find(Control<ITextBox>(u"txtText").Text());
  auto& list = Control<IListView>(u"lstLines");
  list.Refresh();
  if (list.ListCount() > 0) list.ListIndex(0);
}

void SearchDialog::Move(std::int32_t rows) {
  auto& list = Control<IListView>(u"lstLines");
  const std::int32_t count = list.ListCount();
  if (count > 0) list.ListIndex(std::clamp(list.ListIndex() + rows, 0, count - 1));
}

void SearchDialog::Choose() {
  const std::int32_t row = Control<IListView>(u"lstLines").ListIndex();
  if (row < 0) return;
  m_chosen = m_search->Found()[static_cast<std::size_t>(row)];
  Unload();
}

} // namespace portico
