#include "views/recall/LineRecall.h"

namespace portico {
namespace {

void Empty(IRichTextBox& box, const CaretLine& line) {
  box.SelStart(line.Start);
  box.SelLength(line.Length());
  box.SelText({});
}

} // namespace

void LineRecall::Earlier(IRichTextControl& box, const std::deque<String>& lines) {
  const CaretLine line = CaretLineOf(box);
  const bool isShown = IsShown(line, lines);
  if (!isShown) Begin(box, line);
  for (std::size_t i = isShown ? m_index : lines.size(); i-- > 0;) {
    if (Fits(lines[i], line.Text)) return Show(box, line, lines, i);
  }
}

void LineRecall::Later(IRichTextControl& box, const std::deque<String>& lines) {
  const CaretLine line = CaretLineOf(box);
  if (!IsShown(line, lines)) return;
  for (std::size_t i = m_index + 1; i < lines.size(); ++i) {
    if (Fits(lines[i], line.Text)) return Show(box, line, lines, i);
  }
  Restore(box, line);
}

void LineRecall::Bring(IRichTextControl& box, const std::deque<String>& lines, std::size_t index) {
  const CaretLine line = CaretLineOf(box);
  if (!IsShown(line, lines)) Begin(box, line);
  Show(box, line, lines, index);
}

bool LineRecall::IsShown(const CaretLine& line, const std::deque<String>& lines) const {
  return !m_shown.empty() && line.Text == m_shown && line.Start == m_start &&
         line.Caret == line.Start + line.Length() && m_index < lines.size() && lines[m_index] == m_shown;
}

void LineRecall::Begin(IRichTextBox& box, const CaretLine& line) {
  m_shown.clear();
  m_typed = {.Head = String(TrimLeft(line.Head())), .Fragment = {}, .Caret = line.Caret - line.Start};
  if (line.Text.empty()) return;
  box.SelStart(line.Start);
  box.SelLength(line.Length());
  m_typed.Fragment = box.SelRTF();
  box.SelStart(line.Caret);
}

bool LineRecall::Fits(StringView sent, StringView shown) const {
  return sent != shown && EqualNoCase(sent.substr(0, m_typed.Head.size()), m_typed.Head);
}

void LineRecall::Show(IRichTextControl& box, const CaretLine& line, const std::deque<String>& lines,
                      std::size_t index) {
  m_start = line.Start;
  m_index = index;
  m_shown = lines[index];
  box.AsUser([&] {
    Empty(box, line);
    InsertPlain(box, m_shown);
  });
}

void LineRecall::Restore(IRichTextControl& box, const CaretLine& line) {
  m_shown.clear();
  box.AsUser([&] {
    Empty(box, line);
    if (!m_typed.Fragment.empty()) box.SelRTF(m_typed.Fragment);
    box.SelStart(m_start + m_typed.Caret);
  });
}

const CreatorRow CtorLineRecall = {
    .Name = u"CtorLineRecall",
    .Specification = Class::LineRecall,
    .ParamCount = Class::LineRecall.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<LineRecall>(); },
    .Singleton = true,
};

} // namespace portico
