#pragma once

#include "scpi/BlockHeader.h"

#include <cstddef>
#include <string_view>

namespace portico::scpi {

/// Finds bytes of a program message that stand outside its strings and blocks. A message may come in pieces of any
/// size.
///
/// A quote or a `#` opens a string or a block only where a data element may begin; elsewhere it is an error that a
/// parser reports, and must not swallow what is behind it.
class MessageScanner {
public:
  /// `wanted` are the bytes that are looked for, which must outlive the scanner: of the line feed, which ends a message
  /// wherever it stands outside a definite-length block, and what separates the parts of one.
  explicit MessageScanner(std::string_view wanted) : m_wanted(wanted) {}

  /// How many bytes it took, up to the first that is wanted and with it; `found` tells whether there was one.
  std::size_t Scan(std::string_view bytes, bool& found);

  /// What comes next begins a message.
  void Restart();

  /// What comes next would stand in a string or a block.
  bool InsideData() const { return m_state != State::Plain && m_state != State::QuoteClosed; }

private:
  enum class State { Plain, Quoted, QuoteClosed, BlockHeader, Block, IndefiniteBlock };

  bool ScanByte(char byte);
  bool ScanBlockHeader(char byte);
  bool ScanPlain(char byte);

  std::string_view m_wanted;
  State m_state = State::Plain;
  bool m_headerSeen = false;
  bool m_elementStart = false;
  char m_quote = 0;
  BlockHeader m_header;
  std::size_t m_blockBytes = 0;
};

} // namespace portico::scpi
