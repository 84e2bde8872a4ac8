#pragma once

#include "framework/text/text.h"

#include <functional>
#include <string>
#include <vector>

namespace portico::test {

using Journal = std::vector<std::string>;

/// Writes lines into a journal, behind a name if it has one. The journal must outlive it.
class Writer {
public:
  explicit Writer(Journal& journal, const std::string& name = {})
      : m_journal(journal), m_name(name.empty() ? name : name + ".") {}

  /// Called with each line; may raise.
  std::function<void(const std::string&)> OnCall;

protected:
  void Note(const std::string& line) const {
    m_journal.push_back(m_name + line);
    if (OnCall) OnCall(m_journal.back());
  }

private:
  Journal& m_journal;
  std::string m_name;
};

/// Line ends as they are written in source.
inline std::string Escaped(StringView text) {
  return ToUtf8(ReplaceAll(ReplaceAll(text, u"\r", u"\\r"), u"\n", u"\\n"));
}

/// The lines of a journal that change something.
inline Journal Writes(const Journal& journal) {
  Journal lines;
  for (const auto& line : journal) {
    if (line.find("get ") == std::string::npos) lines.push_back(line);
  }
  return lines;
}

} // namespace portico::test
