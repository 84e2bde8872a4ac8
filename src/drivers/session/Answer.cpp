#include "drivers/session/Answer.h"

#include <algorithm>

namespace portico::drivers {

std::size_t Answer::Take(std::string_view bytes) {
  const std::size_t taken = m_reader.Feed(bytes);
  Store(bytes.substr(0, taken - std::min(taken, m_reader.TerminatorLength())));
  m_length += taken;
  return taken;
}

std::int32_t Answer::Finish() {
  // A terminator's first byte that came before the rest was stored as data: the zero byte replaces it.
  const std::size_t delivered = std::min(Length(), m_buffer.size() - 1);
  m_buffer[delivered] = '\0';
  return static_cast<std::int32_t>(delivered + 1);
}

void Answer::Erase() {
  std::fill_n(m_buffer.data(), m_stored, '\0');
  m_stored = 0;
}

Answer Answer::In(std::span<char> buffer, std::string_view stored) const {
  Answer moved(m_reader, buffer.first(std::min(buffer.size(), stored.size() + 1)));
  moved.Store(stored);
  moved.m_length = m_length;
  return moved;
}

void Answer::Store(std::string_view bytes) {
  const std::size_t count = std::min(bytes.size(), m_buffer.size() - 1 - m_stored);
  std::copy_n(bytes.data(), count, m_buffer.data() + m_stored);
  m_stored += count;
}

} // namespace portico::drivers
