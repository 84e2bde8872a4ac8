#pragma once

#include <cstdint>

namespace portico::scpi {

/// Reads what stands behind the `#` of a block and in front of its bytes, one by one: a digit that counts the digits of
/// the length and these, as IEEE 488.2 has it, or the 0 of an indefinite block.
class BlockHeader {
public:
  enum class State : std::uint8_t {
    Open,       ///< more has to come
    Definite,   ///< as many bytes follow as Length() tells
    Indefinite, ///< bytes follow to the message's end
    None,       ///< the byte is part of no header: `#H`, `#Q` and `#B` are numbers
  };

  /// To be called until the state is another than Open.
  State Step(char byte) {
    if (byte < '0' || byte > '9') return State::None;
    const auto digit = static_cast<unsigned>(byte - '0');
    if (m_digitsLeft == 0) {
      m_digitsLeft = digit;
      return digit == 0 ? State::Indefinite : State::Open;
    }
    m_length = m_length * 10 + digit;
    return --m_digitsLeft == 0 ? State::Definite : State::Open;
  }

  /// Less than 10^9.
  std::uint64_t Length() const { return m_length; }

private:
  unsigned m_digitsLeft = 0;
  std::uint64_t m_length = 0;
};

} // namespace portico::scpi
