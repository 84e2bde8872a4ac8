#pragma once

#include "scpi/BlockHeader.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace portico::answers {

/// What is to be kept of an answer whose bytes come in pieces: of one that is a block, the block's bytes; of any other,
/// all. Nothing is held of it but what stands in front of a block's bytes.
class AnswerData {
public:
  /// What of the piece is to be kept. A view into it, or good until the next call. If Prefix() tells of something from
  /// then on, that belongs in front of all that was to be kept before.
  std::string_view Take(std::string_view piece);
  /// The answer is over: what has been held back.
  std::string_view Finish();

  /// Once something else stands behind a block, the block's own beginning: the answer is none, and all of it is kept.
  std::string_view Prefix() const { return m_prefix; }
  /// How many bytes a definite block has, as soon as that is known.
  std::optional<std::uint64_t> Length() const { return m_length; }
  /// How many of them are missing.
  std::uint64_t Missing() const { return m_missing; }

private:
  enum class State { Start, Header, Definite, BehindBlock, Rest };

  void TakeFront(char byte);

  State m_state = State::Start;
  std::string m_front;  // what stands in front of a block's bytes
  std::string m_behind; // white space behind a block, which is kept only if something else follows
  std::string m_prefix;
  std::string m_kept; // what the last call gave, unless it is a view into the piece
  scpi::BlockHeader m_header;
  std::optional<std::uint64_t> m_length;
  std::uint64_t m_missing = 0;
};

} // namespace portico::answers
