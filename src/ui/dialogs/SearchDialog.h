#pragma once

#include "ui/dialogs/DialogForm.h"
#include "views/recall/LineSearch.h"

#include <deque>
#include <memory>
#include <optional>

namespace portico {

/// Searches the lines that were sent, as the user types, for one to be chosen. The arrow keys move through what is
/// found while the text has the focus.
class SearchDialog final : public DialogForm {
public:
  SearchDialog();
  StringView ClassName() const override { return u"SearchDialog"; }

  void Form_Initialize() override;
  /// To be set before the dialog is shown; the oldest first. They must not change while it is.
  void Lines(const std::deque<String>& newValue) { m_search = std::make_shared<LineSearch>(newValue); }
  /// The position of the line; none if the user has cancelled.
  std::optional<std::size_t> Chosen() const { return m_chosen; }

private:
  void Form_Load() override;
  void Find();
  void Move(std::int32_t rows);
  void Choose();

  std::shared_ptr<LineSearch> m_search;
  std::optional<std::size_t> m_chosen;
};

} // namespace portico
