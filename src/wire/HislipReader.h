#pragma once

#include "wire/HislipMessage.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace portico::wire {

/// A message, or as much of it as has come.
struct HislipPiece {
  HislipHeader Header;
  /// Of Data and DataEnd those bytes that have come since the last piece; they stand in what was read from. Of all
  /// other messages the whole payload, or its first HislipLongestText bytes if it is longer; valid until the next
  /// piece.
  std::string_view Payload = {};
  /// The message ends here.
  bool Last = true;
  /// The payload is longer than the reader takes. This is the only piece; what follows of the message is passed over.
  bool TooLarge = false;
};

/// Cuts a stream of bytes that come in pieces of any size into HiSLIP messages, for client and server. Holds no more
/// than a header and HislipLongestText bytes, whatever lengths the headers tell.
class HislipReader {
public:
  /// `longest` is the length of the longest payload that is taken, in bytes.
  explicit HislipReader(std::uint64_t longest);

  /// Takes the bytes of the next piece off the front of `bytes`; all of them, if there is none in them yet.
  std::optional<HislipPiece> Next(std::string_view& bytes);

  /// A header was none, so that nothing in the stream can be told apart any more. Nothing is taken from then on.
  bool Broken() const { return m_state == State::Broken; }

private:
  enum class State : std::uint8_t {
    Header,
    /// The payload, which goes on as it comes, is gathered, or is passed over.
    Data,
    Gathered,
    PassedOver,
    Broken,
  };

  std::optional<HislipPiece> TakeHeader(std::string_view& bytes);
  std::optional<HislipPiece> Gather(std::string_view& bytes);
  /// Takes as much of the payload as there is.
  std::string_view TakePayload(std::string_view& bytes);

  std::uint64_t m_longest;
  State m_state = State::Header;
  std::string m_headerBytes;
  HislipHeader m_header;
  std::uint64_t m_left = 0;
  std::string m_gathered;
};

} // namespace portico::wire
