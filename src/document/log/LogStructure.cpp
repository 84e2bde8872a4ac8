#include "document/log/LogStructure.h"

#include "document/log/LogText.h"

namespace portico {
namespace {

// A carriage return is none: it can only have come from a character reference, which somebody meant.
constexpr std::string_view WhiteSpace = " \t\n";

bool IsWhite(std::string_view text) { return text.find_first_not_of(WhiteSpace) == std::string_view::npos; }

} // namespace

void LogStructure::StartElement(std::string_view name, const char* const* attributes, std::uint64_t end) {
  EndTextRun();
  const Place place = Here();
  if (m_depth++ == 0) {
    m_reading.IsLog = name == LogName::Root;
  } else if (place == Place::Root && name == LogName::Header) {
    TakeAttributes(attributes);
    const LogElement header = Element(name);
    m_inHeader = true;
    if (m_reading.Headers == 0) m_reading.ApplicationName = header.Attribute(LogName::ApplicationName).value_or("");
    m_visitor.Header(header);
  } else if (place == Place::Root && name == LogName::Session) {
    TakeAttributes(attributes);
    const LogElement session = Element(name);
    m_inSession = true;
    ++m_reading.Sessions;
    m_reading.LastOpenStamp = session.Attribute(LogName::OpenStamp).value_or("");
    KeepUpTo(end);
    m_visitor.SessionOpened(session);
  } else if (place == Place::Session) {
    TakeAttributes(attributes);
    m_name = name;
    m_text.clear();
    m_runStart = 0;
  }
}

void LogStructure::EndElement(std::uint64_t end) {
  EndTextRun();
  --m_depth;
  if (Here() == Place::Session) {
    KeepUpTo(end);
    LogElement entity = Element(m_name);
    entity.Text = m_text;
    m_visitor.Entity(entity);
  } else if (m_depth == 1) {
    const bool session = m_inSession;
    if (m_inHeader) ++m_reading.Headers; // only a whole one counts
    m_inHeader = false;
    m_inSession = false;
    KeepUpTo(end);
    if (session) m_visitor.SessionClosed();
  } else if (m_depth == 0) {
    m_rootEnded = true;
  }
}

void LogStructure::Characters(std::string_view text, std::uint64_t end) {
  const Place place = Here();
  if (place == Place::Entity) {
    m_text += text;
  } else if ((place == Place::Root || place == Place::Session) && !m_inCData && !IsWhite(text)) {
    KeepUpTo(end - (text.size() - 1 - text.find_last_not_of(WhiteSpace)));
  }
}

void LogStructure::StartCData() {
  EndTextRun();
  m_inCData = true;
}

void LogStructure::EndCData(std::uint64_t end) {
  m_inCData = false;
  m_runStart = m_text.size();
  const Place place = Here();
  if (place == Place::Root || place == Place::Session) KeepUpTo(end);
}

void LogStructure::Aside(std::uint64_t end) {
  EndTextRun();
  if (m_rootEnded) m_reading.HasEpilogue = true;
  const Place place = Here();
  if (place == Place::Root || place == Place::Session) KeepUpTo(end);
}

LogStructure::Place LogStructure::Here() const {
  if (m_depth == 1) return m_reading.IsLog ? Place::Root : Place::Elsewhere;
  if (!m_inSession) return Place::Elsewhere;
  return m_depth == 2 ? Place::Session : Place::Entity;
}

void LogStructure::KeepUpTo(std::uint64_t end) {
  m_reading.SoundEnd = end;
  m_reading.InSession = m_inSession;
}

void LogStructure::TakeAttributes(const char* const* attributes) {
  m_attributeCount = 0;
  for (; *attributes != nullptr; attributes += 2) {
    if (m_attributeCount == m_attributes.size()) m_attributes.emplace_back();
    LogAttribute& attribute = m_attributes[m_attributeCount++];
    attribute.Name = attributes[0];
    attribute.Value = attributes[1];
  }
}

LogElement LogStructure::Element(std::string_view name) const {
  return {name, std::span(m_attributes).first(m_attributeCount), {}};
}

void LogStructure::EndTextRun() {
  if (m_runStart < m_text.size() && IsWhite(std::string_view(m_text).substr(m_runStart))) m_text.resize(m_runStart);
  m_runStart = m_text.size();
}

} // namespace portico
