#pragma once

#include <cstdint>
#include <deque>
#include <string>

namespace portico::test {

/// An instrument whose reactions follow from the texts that it is sent, some of them awkward. Texts are bytes of its
/// code page.
class SampleInstrument {
public:
  struct Answer {
    std::int32_t Status = 0;
    std::string Bytes = {};
  };

  static constexpr std::int32_t ConnectionLost = -21;
  static constexpr std::int32_t NothingToRead = -7;

  /// Takes a text without its carriage return and answers with the driver's status.
  std::int32_t Write(const std::string& text);
  /// The oldest answer that nobody has read.
  Answer Read();
  /// What the driver says about a status.
  static std::string Message(std::int32_t status) { return "failure " + std::to_string(status); }

private:
  void AnswerAwkwardly(const std::string& text);

  std::deque<Answer> m_unread;
  int m_errors = 0;
};

} // namespace portico::test
