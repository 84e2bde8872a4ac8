#include "views/recall/SentLines.h"

#include "framework/shared/Application.h"
#include "framework/shared/ConfigurationItems.h"
#include "platform/ISettingsStore.h"

#include <algorithm>
#include <utility>

namespace portico {
namespace {

const String Section = u"Data";
const String Key = u"KeepSentLines";

} // namespace

SentLines::SentLines(LineLimits limits)
    : m_limits(limits),
      m_file(gSentLinesFile),
      m_timer(gEventLoop->MakeTimer()),
      m_isKept(gSettingsStore->GetSetting(ApplicationTitle, Section, Key, String(ItemText::On)) == ItemText::On) {
  m_timer->Interval(SaveMilliseconds);
  m_timer->Timer().Connect([this] { Save(); });
  if (!m_file) return;
  auto [lines, fault] = m_file->Read();
  for (const String& line : lines) Enlist(line); // two programs may have written the same one
  Note(std::move(fault));
}

SentLines::~SentLines() { Save(); }

void SentLines::Add(StringView line) {
  if (!Enlist(line) || !m_isKept || !m_file) return;
  m_unsaved = std::min(m_unsaved + 1, m_lines.size());
  if (!m_timer->Enabled()) m_timer->Enabled(true);
}

bool SentLines::Enlist(StringView line) {
  if (line.empty() || line.size() > LongestLine || (!m_lines.empty() && m_lines.back() == line)) return false;
  m_lines.emplace_back(line);
  m_bytes += line.size();
  while (m_lines.size() > m_limits.Lines || m_bytes > m_limits.Bytes) Drop();
  return true;
}

void SentLines::Drop() {
  m_bytes -= m_lines.front().size();
  m_lines.pop_front();
}

void SentLines::Save() {
  m_timer->Enabled(false);
  if (m_unsaved == 0) return;
  auto fault = m_file->Append({m_lines.end() - static_cast<std::ptrdiff_t>(m_unsaved), m_lines.end()});
  if (!fault) m_unsaved = 0; // or they are tried again, with the next line or at the end
  Note(std::move(fault));
}

void SentLines::Forget() {
  m_lines.clear();
  m_bytes = 0;
  m_unsaved = 0;
  if (m_file) Note(m_file->Clear());
}

void SentLines::IsKept(bool newValue) {
  Save();
  m_unsaved = 0;
  m_isKept = newValue;
  gSettingsStore->SaveSetting(ApplicationTitle, Section, Key, String(newValue ? ItemText::On : ItemText::Off));
}

void SentLines::Note(std::optional<String> fault) {
  if (fault == m_lastFault) return;
  m_lastFault = fault;
  if (!m_fault || !fault) m_fault = std::move(fault); // what came first is why the rest fails
}

std::optional<String> SentLines::TakeFault() { return std::exchange(m_fault, std::nullopt); }

const CreatorRow CtorSentLines = {
    .Name = u"CtorSentLines",
    .Specification = Class::SentLines,
    .ParamCount = Class::SentLines.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<SentLines>(); },
    .Singleton = true,
};

} // namespace portico
