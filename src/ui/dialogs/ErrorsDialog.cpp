#include "ui/dialogs/ErrorsDialog.h"

#include "platform/IDialogControls.h"
#include "platform/IListView.h"
#include "ui/dialogs/DialogDesigns.h"

#include <memory>

namespace portico {
namespace {

class ErrorRows final : public IListRows {
public:
  explicit ErrorRows(const Ref<ErrorMarks>& errors) : m_errors(errors) {}

  std::int32_t Count() const override { return static_cast<std::int32_t>(m_errors->All().size()); }
  String Cell(std::int32_t row, std::int32_t column) const override {
    const FoundError& error = m_errors->All()[static_cast<std::size_t>(row)];
    if (column == 0) return ToText(std::int64_t{error.Line} + 1);
    return column == 1 ? error.Instruction : error.Answer;
  }

private:
  Ref<ErrorMarks> m_errors;
};

} // namespace

ErrorsDialog::ErrorsDialog() : DialogForm(ErrorsDesign) {}

void ErrorsDialog::Form_Initialize() {
  auto& list = Control<IListView>(u"lstErrors");
  list.Columns({{.Heading = u"Line", .Characters = 9, .IsNumber = true},
                {.Heading = u"Instruction", .Characters = 34},
                {.Heading = u"Answer", .Characters = 52}});
  On(list.Choose(), u"ErrorsDialog.lstErrors_Choose", [this] { Choose(); });
  On(Control<ICommandButton>(u"OKButton").Click(), u"ErrorsDialog.OKButton_Click", [this] { Choose(); });
  On(Control<ICommandButton>(u"CancelButton").Click(), u"ErrorsDialog.CancelButton_Click", [this] { Hide(); });
}

void ErrorsDialog::Form_Load() {
  auto& list = Control<IListView>(u"lstErrors");
  list.Rows(std::make_shared<ErrorRows>(m_errors));
  if (list.ListCount() > 0) list.ListIndex(static_cast<std::int32_t>(m_errors->Nearest()));
}

void ErrorsDialog::Choose() {
  const std::int32_t index = Control<IListView>(u"lstErrors").ListIndex();
  if (index >= 0) m_chosen = static_cast<std::size_t>(index);
  Hide();
}

} // namespace portico
