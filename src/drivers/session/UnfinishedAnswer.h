#pragma once

#include "drivers/session/Answer.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace portico::drivers {

/// What came of an answer before its read timed out: the next read reads it again, from the first byte. It takes no
/// more memory than that read's buffer had.
class UnfinishedAnswer {
public:
  /// Keeps what the answer's buffer holds.
  void Keep(const Answer& answer) {
    m_bytes.assign(answer.Stored());
    m_position = 0;
    m_cut.reset();
    if (answer.Length() > m_bytes.size()) m_cut = answer;
  }
  void Forget() {
    m_bytes = {};
    m_cut.reset();
    m_position = 0;
  }

  /// The answer that a read begins with: of one that did not fit there is only the part that did, and its end is looked
  /// for from where the read before had come to.
  Answer Start(const MessageReader& reader, std::span<char> buffer) {
    if (!m_cut) return {reader, buffer};
    const Answer resumed = m_cut->In(buffer, m_bytes);
    Forget();
    return resumed;
  }

  std::string_view Unread() const { return std::string_view(m_bytes).substr(m_position); }
  void Drop(std::size_t count) {
    m_position += count;
    if (m_position == m_bytes.size()) Forget();
  }

private:
  std::string m_bytes;
  std::size_t m_position = 0;
  /// The answer itself, if not all of it is kept.
  std::optional<Answer> m_cut;
};

} // namespace portico::drivers
