#pragma once

#include "platform/IRichTextControl.h"
#include "views/SCPIViewBase.h"

#include <memory>
#include <optional>
#include <vector>

namespace portico {

/// Knows where a view's answers stand in its box, whose text grows at its end until it is emptied, and tells the one
/// that the caret, or the start of the selection, is in. A driver's message in place of an answer counts as one.
class AnswerAtCaret final : public IObject {
public:
  /// Of what the view shows from now on. The view may go before this.
  AnswerAtCaret(const Ref<SCPIViewBase>& view, const Ref<IRichTextBox>& box);
  AnswerAtCaret(const AnswerAtCaret&) = delete;
  AnswerAtCaret& operator=(const AnswerAtCaret&) = delete;
  ~AnswerAtCaret() override;
  StringView ClassName() const override { return u"AnswerAtCaret"; }

  /// Also while the caret stands at the text's end, right behind the newest answer.
  bool IsThere() const { return Place() != nullptr; }
  /// The answer as it came, whatever the box shows of it: its characters are those that the code page has for its
  /// bytes, and the line end that ends it in the conversation is no part of it. Null if the caret is in none.
  std::optional<String> Find() const;

private:
  struct Answer {
    std::int32_t Start;
    std::int32_t End;
    Ref<IDataEntity> Entity;
  };

  const Answer* Place() const;
  void Add(const Ref<IDataEntity>& entity, std::int32_t start, std::int32_t end);
  void TextChanged();

  std::weak_ptr<SCPIViewBase> m_view;
  Ref<IRichTextBox> m_box;
  decltype(SCPIViewBase::Shown)::Connection m_shown;
  Event<>::Connection m_changed;
  std::vector<Answer> m_answers; // in the order of their places
};

} // namespace portico
