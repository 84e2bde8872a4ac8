#include "views/recall/TakenLines.h"

#include <utility>

namespace portico {
namespace {

/// Nothing in it is mixed.
bool IsComplete(const SelectionFormat& look) {
  return look.SelAlignment && look.SelBullet && look.SelHangingIndent && look.SelIndent && look.SelRightIndent &&
         look.SelBold && look.SelCharOffset && look.SelColor && look.SelFontName && look.SelFontSize &&
         look.SelItalic && look.SelStrikeThru && look.SelUnderline;
}

} // namespace

TakenLines::Run::Run(Ref<TakenLines> taken) : m_taken(std::move(taken)) {
  if (m_taken && m_taken->m_runs++ == 0) m_taken->m_pieces.clear();
}

TakenLines::Run::~Run() {
  if (m_taken) --m_taken->m_runs;
}

void TakenLines::Take(const ITextSelection& selection, StringView text, const SelectionFormat& look) {
  if (text.empty()) return;
  if (!IsComplete(look)) {
    m_pieces.push_back({.Text = selection.SelRTF(), .Look = {}});
  } else if (!m_pieces.empty() && m_pieces.back().Look == look) {
    m_pieces.back().Text += text;
  } else {
    m_pieces.push_back({.Text = String(text), .Look = look});
  }
}

void TakenLines::PutBack(IRichTextControl& box) {
  box.AsUser([&] {
    box.SelStart(0);
    for (const Piece& piece : m_pieces) {
      if (!piece.Look) {
        box.SelRTF(piece.Text);
        continue;
      }
      const std::int32_t start = box.SelStart();
      box.SelText(piece.Text);
      const std::int32_t end = box.SelStart();
      box.SelStart(start);
      box.SelLength(end - start);
      box.SelFormat(*piece.Look);
      box.SelStart(end);
    }
    box.SelStart(0);
  });
  m_pieces.clear();
}

const CreatorRow CtorTakenLines = {
    .Name = u"CtorTakenLines",
    .Specification = Class::TakenLines,
    .ParamCount = Class::TakenLines.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<TakenLines>(); },
    .Singleton = true,
};

} // namespace portico
