#pragma once

#include "platform/Termination.h"
#include "scpi/BlockHeader.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace portico::drivers {

/// Where the ends of a transport's messages are to be found.
enum class Marks : bool {
  /// The transport carries a mere stream of bytes.
  None,
  /// It marks them: a terminator in front of the mark goes with it, and no byte ends a message but the terminator that
  /// was asked for by name.
  Ends,
};

/// Finds the end of one response message in bytes that come in pieces of any size.
///
/// Definite-length blocks (`#<n><length><bytes>`, IEEE 488.2) at the start of a data element are passed over unseen,
/// whatever bytes they hold. `#H`, `#Q` and `#B` are numbers. An indefinite block (`#0`) ends at the terminator, as
/// the stream has no other mark. Inside a quoted string a `#` means nothing, but the terminator still counts:
/// instruments send no raw line feeds in strings, and a lone quote must not swallow the answers that follow.
class MessageReader {
public:
  explicit MessageReader(Termination termination, Marks marks = Marks::None);

  /// Takes the next bytes and answers how many of them belong to the message, its terminator included: all of them
  /// unless the message is complete.
  std::size_t Feed(std::string_view bytes);

  /// The transport says that the message ends here, with or without terminator.
  void End();

  bool Complete() const { return m_complete; }

  /// How many of the message's last bytes are its terminator: 0 before it is complete.
  std::size_t TerminatorLength() const { return m_terminatorLength; }

private:
  enum class State : std::uint8_t {
    ElementStart,
    Element,
    String,
    /// Behind a quote that ends the string, or is doubled and stands for itself.
    StringEnd,
    BlockHeader,
    BlockData,
    IndefiniteBlock,
  };

  /// Deals with bytes that hold nothing but plain elements in one go; npos if they have to be looked at one by one.
  std::size_t FeedPlain(std::string_view bytes);
  /// The index of the byte that completes a terminator, or npos.
  std::size_t FindTerminator(std::string_view bytes) const;
  bool EndsMessage(char byte, char before) const;
  void Finish(char before);
  std::size_t SkipBlockData(std::size_t available);
  void Step(char byte);
  State NextState(char byte);
  State StartElement(char byte);
  State ReadBlockHeader(char byte);

  /// The terminator's last byte, the one before it (0 if there is none), and whether that one has to be there.
  char m_last;
  char m_first;
  bool m_firstRequired;
  /// Only the transport's mark ends the message.
  bool m_endsAtMark;

  State m_state = State::ElementStart;
  bool m_complete = false;
  char m_quote = 0;
  /// The byte before the next one, and the one before that; 0 where the message begins or a block stands.
  char m_previous = 0;
  char m_beforePrevious = 0;
  scpi::BlockHeader m_header;
  std::uint64_t m_blockBytesLeft = 0;
  std::size_t m_terminatorLength = 0;
};

} // namespace portico::drivers
