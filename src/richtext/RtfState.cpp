#include "richtext/RtfState.h"

#include <algorithm>
#include <utility>

namespace portico::richtext {

RtfDocument::RtfDocument(const Formatting& base) : m_base(base), m_state{base} {}

RtfState& RtfDocument::Change() {
  if (m_saved.empty() || m_saved.back().Depth < m_depth) m_saved.push_back({m_depth, m_state});
  return m_state;
}

void RtfDocument::CloseGroup() {
  const bool endsBullet = m_bullet && m_state.Destination == RtfDestination::Bullet;
  if (!m_saved.empty() && m_saved.back().Depth == m_depth) {
    m_state = std::move(m_saved.back().State);
    m_saved.pop_back();
  }
  --m_depth;
  // The group describes the bullet of the paragraph around it.
  if (endsBullet && m_state.Destination == RtfDestination::Text) {
    m_bullet = false;
    Change().Format.Paragraph.Bullet = true;
  }
}

void RtfDocument::AddRaw(StringView units) {
  switch (m_state.Destination) {
  case RtfDestination::Text:
    m_line.Text += units;
    m_line.Runs.Append(units.size(), m_state.Format.Character);
    break;
  case RtfDestination::FontTable:
    AddFontName(units);
    break;
  case RtfDestination::ColorTable:
    AddColors(units);
    break;
  case RtfDestination::Bullet:
  case RtfDestination::Nowhere:
    break;
  }
}

void RtfDocument::AddUnit(char16_t unit) {
  if (m_state.Destination == RtfDestination::FontTable) {
    AddToFontName(unit);
  } else if (m_state.Destination == RtfDestination::Text) {
    if (NewLine.find(unit) != StringView::npos) {
      EndLine();
    } else {
      AddRaw({&unit, 1});
    }
  }
}

void RtfDocument::EndLine() {
  if (m_state.Destination != RtfDestination::Text) return;
  m_line.Runs.Append(1, m_state.Format.Character);
  m_line.Paragraph = m_state.Format.Paragraph;
  m_text.push_back(std::exchange(m_line, {}));
}

FormattedText RtfDocument::Finish() {
  m_line.Runs.Append(1, m_state.Format.Character);
  m_line.Paragraph = m_state.Format.Paragraph;
  m_text.push_back(std::move(m_line));
  return std::move(m_text);
}

void RtfDocument::SelectFont(std::int32_t number) {
  if (m_state.Destination == RtfDestination::FontTable) {
    m_font = number;
    m_fontName.clear();
  } else if (const auto found = m_fonts.find(number); found != m_fonts.end()) {
    Change().Format.Character.FontName = found->second;
  }
}

// Every run holds its font's name, so that a name without end would cost out of proportion.
void RtfDocument::AddToFontName(char16_t unit) {
  if (m_fontName.size() < LongestFontName) m_fontName += unit;
}

void RtfDocument::AddFontName(StringView units) {
  for (const char16_t unit : units) {
    if (unit != u';') {
      AddToFontName(unit);
    } else if (!m_fontName.empty()) {
      m_fonts[m_font] = std::exchange(m_fontName, {});
    }
  }
}

void RtfDocument::SetColorPart(int shift, std::int32_t value) {
  const std::int32_t part = std::clamp(value, 0, 0xFF);
  m_color = (m_color & ~(0xFF << shift)) | (part << shift);
}

void RtfDocument::AddColors(StringView units) {
  const auto ends = static_cast<std::size_t>(std::count(units.begin(), units.end(), u';'));
  for (std::size_t i = 0; i < ends; ++i) m_colors.push_back(std::exchange(m_color, 0));
}

void RtfDocument::SelectColor(std::int32_t number) {
  const bool isKnown = number >= 0 && static_cast<std::size_t>(number) < m_colors.size();
  Change().Format.Character.Color = isKnown ? m_colors[static_cast<std::size_t>(number)] : 0;
}

} // namespace portico::richtext
