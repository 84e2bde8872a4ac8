#include "terminal/ListedAnswers.h"

namespace portico::test {

void ListedAnswers::Attach(DriverDouble& driver) {
  driver.OnWrite = [this](const std::string& text) {
    if (const auto answer = Listed.find(text); answer != Listed.end()) m_unread.push_back(answer->second);
    return 0;
  };
  driver.OnRead = [this] { return Read(); };
}

DriverDouble::Reading ListedAnswers::Read() {
  if (m_unread.empty()) return {NothingToRead, {}};
  DriverDouble::Reading reading{0, m_unread.front() + '\0'};
  m_unread.pop_front();
  return reading;
}

} // namespace portico::test
