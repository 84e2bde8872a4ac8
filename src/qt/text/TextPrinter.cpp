#include "qt/text/TextPrinter.h"

#include "qt/text/TextBlocks.h"
#include "qt/values/QtText.h"

#include <QTextDocument>

#include <utility>

namespace portico::qt {
namespace {

using richtext::FormattedLine;
using richtext::FormattedText;

// Longer paragraphs take the toolkit more than proportionally long to break into rows.
constexpr std::size_t LongestParagraph = 2000;

/// The pieces of a line that are paragraphs of their own on paper.
void AddPieces(FormattedLine line, FormattedText& pieces) {
  for (; line.Text.size() > LongestParagraph;) {
    FormattedLine rest{line.Text.substr(LongestParagraph), line.Runs.Cut(LongestParagraph), line.Paragraph};
    line.Text.resize(LongestParagraph);
    line.Runs.Append(1, line.Runs.All().back().Format);
    pieces.push_back(std::move(line));
    line = std::move(rest);
  }
  pieces.push_back(std::move(line));
}

} // namespace

void PrintText(const FormattedText& text, const richtext::CharacterFormat& standard, QPrinter& printer) {
  if (text.size() == 1 && text.front().Text.empty()) return;
  FormattedText pieces;
  for (const FormattedLine& line : text) AddPieces(line, pieces);
  if (pieces.back().Text.empty()) pieces.pop_back(); // what stands behind the last line end is no line on paper

  QTextDocument document;
  document.setUndoRedoEnabled(false);
  QFont font(ToQt(standard.FontName));
  font.setPointSizeF(standard.FontSize);
  document.setDefaultFont(font);
  TextBlocks blocks(document, standard);
  blocks.Write(0, 1, pieces.size(), [&](std::size_t i) -> const FormattedLine& { return pieces[i]; });
  document.print(&printer);
}

} // namespace portico::qt
