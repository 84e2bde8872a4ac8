#include "views/AnswerAtCaret.h"

#include "numbers/Block.h"

#include <algorithm>

namespace portico {

AnswerAtCaret::AnswerAtCaret(const Ref<SCPIViewBase>& view, const Ref<IRichTextBox>& box)
    : m_view(view.Shared()),
      m_box(box),
      m_shown(view->Shown.Connect(
          [this](const Ref<IDataEntity>& entity, std::int32_t start, std::int32_t end) { Add(entity, start, end); })),
      m_changed(box->Change().Connect([this] { TextChanged(); })) {}

AnswerAtCaret::~AnswerAtCaret() {
  if (const auto view = m_view.lock()) view->Shown.Disconnect(m_shown);
  m_box->Change().Disconnect(m_changed);
}

void AnswerAtCaret::Add(const Ref<IDataEntity>& entity, std::int32_t start, std::int32_t end) {
  if (entity->DataType() == DataTypeName::Response) m_answers.push_back({start, end, entity});
}

void AnswerAtCaret::TextChanged() {
  const std::int32_t length = m_box->TextLength();
  while (!m_answers.empty() && m_answers.back().End > length) m_answers.pop_back();
}

const AnswerAtCaret::Answer* AnswerAtCaret::Place() const {
  const std::int32_t caret = m_box->SelStart();
  const auto behind = std::ranges::upper_bound(m_answers, caret, {}, &Answer::Start);
  if (behind == m_answers.begin()) return nullptr;
  const Answer& answer = *(behind - 1);
  const bool isAtTextsEnd = caret == answer.End && caret == m_box->TextLength();
  return caret < answer.End || isAtTextsEnd ? &answer : nullptr;
}

std::optional<String> AnswerAtCaret::Find() const {
  const Answer* answer = Place();
  if (answer == nullptr) return {};
  const String shown = answer->Entity->ReadText();
  return String(numbers::AnswerShownAs(shown));
}

} // namespace portico
