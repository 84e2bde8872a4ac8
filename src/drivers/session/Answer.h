#pragma once

#include "drivers/session/MessageReader.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace portico::drivers {

/// One answer while its bytes come in: where it ends, and its data in the caller's buffer. The buffer's last byte stays
/// free for the zero byte; what does not fit is only counted.
class Answer {
public:
  /// `buffer` is not empty and outlives the answer.
  Answer(const MessageReader& reader, std::span<char> buffer) : m_reader(reader), m_buffer(buffer) {}

  /// Takes what belongs to the answer, its terminator included, and answers how many bytes that are.
  std::size_t Take(std::string_view bytes);
  /// The transport says that the answer ends here.
  void End() { m_reader.End(); }
  bool Complete() const { return m_reader.Complete(); }
  /// Its terminator has ended it.
  bool Terminated() const { return m_reader.TerminatorLength() > 0; }

  /// Puts the zero byte behind the data of the complete answer, and answers how many bytes were delivered.
  std::int32_t Finish();
  /// In bytes, without the terminator of a complete answer; more than was delivered if it did not fit.
  std::size_t Length() const { return m_length - m_reader.TerminatorLength(); }
  bool FillsBuffer() const { return Length() + 1 >= m_buffer.size(); }

  /// What of an incomplete answer the buffer holds; all of it unless it did not fit.
  std::string_view Stored() const { return {m_buffer.data(), m_stored}; }
  /// Makes the bytes that it has put into the buffer zero.
  void Erase();
  /// The same answer, to go on in another buffer, which gets what this one holds. No byte follows behind a gap: if
  /// this buffer was too small, or that one is, the rest stays lost.
  Answer In(std::span<char> buffer, std::string_view stored) const;

private:
  void Store(std::string_view bytes);

  MessageReader m_reader;
  std::span<char> m_buffer;
  std::size_t m_stored = 0;
  std::size_t m_length = 0;
};

} // namespace portico::drivers
