#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace portico::wire {

/// Opens a record at the end of `bytes`, which may be empty or hold records already: leaves room for its mark. What is
/// appended from there on is the record's content. Answers the place for EndRpcRecord.
std::size_t BeginRpcRecord(std::string& bytes);

/// Closes the record that was opened at `begin`, as one fragment; its content is shorter than 2^31 bytes.
void EndRpcRecord(std::string& bytes, std::size_t begin);

/// Puts together the fragments of RPC records out of a stream of bytes that comes in pieces of any size. Memory is
/// taken once, when the reader is made, whatever lengths the other side announces.
class RpcRecordReader {
public:
  /// `limit` is the most that a record holds, in bytes, all fragments together.
  explicit RpcRecordReader(std::size_t limit);

  /// Takes the next bytes and answers how many of them belong to the record: all of them unless it is complete or
  /// longer than the limit. The latter is known as soon as a fragment announces it.
  std::size_t Feed(std::string_view bytes);

  bool Complete() const { return m_complete; }
  bool TooLong() const { return m_tooLong; }

  /// The content so far, without the marks. Stands until Restart() or Feed().
  std::string_view Content() const { return {m_content.get(), m_size}; }

  /// Forgets the record and waits for the first byte of another.
  void Restart();

private:
  void TakeMark(char byte);

  const std::size_t m_limit;
  const std::unique_ptr<char[]> m_content;
  std::size_t m_size = 0;
  /// The part of the next fragment's mark that has come, and its length in bytes.
  std::uint32_t m_mark = 0;
  unsigned m_markSize = 0;
  std::size_t m_fragmentLeft = 0;
  bool m_lastFragment = false;
  bool m_complete = false;
  bool m_tooLong = false;
};

} // namespace portico::wire
