#include "support/Journal.h"

namespace portico::test {

Writer::Writer(Journal& journal, const std::string& name)
    : m_journal(journal), m_name(name.empty() ? name : name + ".") {}

Writer::~Writer() = default;

void Writer::Note(const std::string& line) const {
  m_journal.push_back(m_name + line);
  if (OnCall) OnCall(m_journal.back());
}

std::string Escaped(StringView text) { return ToUtf8(ReplaceAll(ReplaceAll(text, u"\r", u"\\r"), u"\n", u"\\n")); }

Journal Writes(const Journal& journal) {
  Journal lines;
  for (const auto& line : journal) {
    if (line.find("get ") == std::string::npos) lines.push_back(line);
  }
  return lines;
}

} // namespace portico::test
