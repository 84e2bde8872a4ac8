#include "ui/viewer/LogNotes.h"

#include "document/log/LogStamps.h"
#include "document/log/LogText.h"
#include "framework/shared/Application.h"
#include "framework/shared/ConfigurationItems.h"
#include "platform/ISettingsStore.h"

#include <algorithm>

namespace portico {
namespace {

const String Section = u"Data";
const String SessionsKey = u"SessionMarks";
const String StampsKey = u"TimeStamps";

constexpr StringView StampForm = u"0000-00-00 00:00:00";

bool IsKept(const String& key) {
  return gSettingsStore->GetSetting(ApplicationTitle, Section, key, String(ItemText::Off)) == ItemText::On;
}

void Keep(const String& key, bool isOn) {
  gSettingsStore->SaveSetting(ApplicationTitle, Section, key, String(isOn ? ItemText::On : ItemText::Off));
}

String Numbered(std::size_t session) { return u"Session " + ToText(static_cast<std::int64_t>(session)); }

/// The rows from the `shown`th on that count that entity count its line from now on.
template <class Row>
void Place(std::vector<Row>& rows, std::size_t& shown, std::uint32_t entity, std::uint32_t line) {
  for (; shown < rows.size() && rows[shown].At <= entity; ++shown) rows[shown].At = line;
}

/// Of the rows that count lines, the last one that is not behind that line.
template <class Row>
const Row* RowOf(const std::vector<Row>& rows, std::size_t shown, std::uint32_t line) {
  const auto end = rows.begin() + static_cast<std::ptrdiff_t>(shown);
  const auto next = std::ranges::upper_bound(rows.begin(), end, line, {}, &Row::At);
  return next == rows.begin() ? nullptr : &next[-1];
}

} // namespace

LogNotes::LogNotes() : m_showsSessions(IsKept(SessionsKey)), m_showsStamps(IsKept(StampsKey)) {}

void LogNotes::ShowsSessions(bool newValue) {
  m_showsSessions = newValue;
  Keep(SessionsKey, newValue);
  Changed();
}

void LogNotes::ShowsStamps(bool newValue) {
  m_showsStamps = newValue;
  Keep(StampsKey, newValue);
  Changed();
}

void LogNotes::SessionRead(const LogElement& session) {
  m_sessions.push_back({m_entitiesRead, SecondOf(session, LogName::OpenStamp), SecondOf(session, LogName::CloseStamp)});
}

void LogNotes::EntityRead(const LogElement& entity) {
  const Second stamp = SecondOf(entity, LogName::Timestamp);
  if (m_stamps.empty() || m_stamps.back().Stamp != stamp) m_stamps.push_back({m_entitiesRead, stamp});
  ++m_entitiesRead;
}

void LogNotes::EntityShown(std::int32_t first, std::int32_t end) {
  Place(m_sessions, m_sessionsShown, m_entitiesShown, static_cast<std::uint32_t>(first));
  Place(m_stamps, m_stampsShown, m_entitiesShown, static_cast<std::uint32_t>(first));
  ++m_entitiesShown;
  m_end = end;
}

std::vector<String> LogNotes::Widest() const {
  std::vector<String> widest;
  if (m_showsSessions) widest.push_back(Numbered(m_sessions.size()));
  if (m_showsStamps) widest.emplace_back(StampForm);
  return widest;
}

LineNote LogNotes::NoteOf(std::int32_t line) const {
  LineNote note;
  if (line < 0 || line >= m_end) return note;
  const auto number = static_cast<std::uint32_t>(line);
  if (m_showsSessions) {
    const SessionRow* const session = RowOf(m_sessions, m_sessionsShown, number);
    note.Begins = session != nullptr && session->At == number;
    note.Columns.push_back(note.Begins ? Numbered(static_cast<std::size_t>(session - m_sessions.data()) + 1)
                                       : String());
    if (session != nullptr) note.Told = ToldOf(*session);
  }
  if (m_showsStamps) {
    const StampRow* const row = RowOf(m_stamps, m_stampsShown, number);
    note.Columns.push_back(row == nullptr ? String() : TextOf(row->Stamp));
    if (!note.Told.empty() && !note.Columns.back().empty()) note.Told += u"; ";
    note.Told += note.Columns.back();
  }
  return note;
}

String LogNotes::ToldOf(const SessionRow& session) const {
  String told = Numbered(static_cast<std::size_t>(&session - m_sessions.data()) + 1);
  if (session.Opened != 0) told += u", opened " + TextOf(session.Opened);
  if (session.Closed != 0) told += u", closed " + TextOf(session.Closed);
  return told;
}

LogNotes::Second LogNotes::SecondOf(const LogElement& element, std::string_view attribute) {
  const std::string_view stamp = element.Attribute(attribute).value_or("").substr(0, StampSecondForm.size());
  if (!HasStampForm(stamp, StampSecondForm)) return 0;
  Second second = 0;
  for (const char character : stamp) {
    if (character >= '0' && character <= '9') second = 10 * second + static_cast<Second>(character - '0');
  }
  return second;
}

String LogNotes::TextOf(Second second) {
  if (second == 0) return {};
  String text(StampForm);
  for (auto unit = text.rbegin(); unit != text.rend(); ++unit) {
    if (*unit != u'0') continue;
    *unit = static_cast<char16_t>(u'0' + second % 10);
    second /= 10;
  }
  return text;
}

} // namespace portico
