#include "terminal/SampleInstrument.h"

namespace portico::test {
namespace {

bool Contains(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

/// Upper case is enough for the few headers that it knows.
bool BeginsWith(const std::string& text, const std::string& upper) {
  if (text.size() < upper.size()) return false;
  for (std::size_t i = 0; i < upper.size(); ++i) {
    const char c = text[i];
    if ((c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c) != upper[i]) return false;
  }
  return true;
}

unsigned HashOf(const std::string& text) {
  unsigned hash = 2166136261U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash ^ (hash >> 15U);
}

} // namespace

std::int32_t SampleInstrument::Write(const std::string& text) {
  if (Contains(text, "LOST")) return ConnectionLost;
  if (Contains(text, "FOO")) ++m_errors;
  if (BeginsWith(text, "*CLS")) m_unread.clear();
  if (BeginsWith(text, "*OPC?")) {
    m_unread.push_back({0, "1"});
  } else if (BeginsWith(text, ":SYST:ERR?")) {
    m_unread.push_back({0, m_errors > 0 ? "-113,\"Undefined header\"" : "0,\"No error\""});
    if (m_errors > 0) --m_errors;
  } else if (Contains(text, "?") && !Contains(text, "\"") && !Contains(text, "'")) {
    AnswerAwkwardly(text);
  }
  return 0;
}

void SampleInstrument::AnswerAwkwardly(const std::string& text) {
  static const Answer Answers[] = {
      {0, "+1.23450000E+00"},
      {0, "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0"},
      {0, ""},
      {0, "\r\n"},
      {0, "\n"},
      {0, "one\r\ntwo\r\n\r\nfour"},
      {0, "bare\nfeeds\n"},
      {0, "ended\r\n"},
      {0, "5 \xB5V, 3 \x80, \x81\x8D\x90, caf\xE9"},
      {0, "\xAE"
          "1"},
      {0, "\xA9*OPC?"},
      {0, "REM not a remark"},
      {0, "{1,{2,3}},4"},
      {0, "\"C:\\temp\\labdata.csv\""},
      {0, "\\\\host\\{x\\}\\'e9"},
      {0, "  blanks  "},
      {0, "\ttab\t"},
      {9, "lost with a warning"},
      {-8, "lost with an error"},
  };
  const unsigned kinds = std::size(Answers) + 3;
  const unsigned kind = HashOf(text) % kinds;
  if (kind < std::size(Answers)) {
    m_unread.push_back(Answers[kind]);
  } else if (kind == std::size(Answers)) {
    m_unread.push_back({0, std::string(3000, '7')});
  } else if (kind == std::size(Answers) + 1) {
    m_unread.push_back({0, "first"});
    m_unread.push_back({0, "second"});
  } // else it keeps silent
}

SampleInstrument::Answer SampleInstrument::Read() {
  if (m_unread.empty()) return {NothingToRead, {}};
  Answer answer = m_unread.front();
  m_unread.pop_front();
  return answer;
}

} // namespace portico::test
