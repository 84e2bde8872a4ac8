#pragma once

#include "wire/HislipReader.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace portico::wire {

/// The next part of the answer that is awaited.
struct HislipAnswer {
  /// The answer begins with these bytes. What was handed on before was another's, or the instrument has dropped it.
  bool Anew = false;
  std::string_view Payload = {};
  bool End = false;

  bool Empty() const { return Payload.empty() && !End; }
};

/// Tells the answer to a client's last message from all others, by the ids of the Data that carry it: of an answer to
/// another message nothing is taken. An answer whose id follows with its end is handed on as it comes, and is given
/// up if the end names another message.
class HislipAnswers {
public:
  /// No answer is awaited from here on, be it that one is on its way.
  void AwaitNone();
  /// From here on the answer to the message with this id is awaited.
  void Await(std::uint32_t id) { m_awaited = id; }

  /// A piece of Data or DataEnd.
  HislipAnswer Take(const HislipPiece& piece);
  /// Such a piece that belongs to an answer that the instrument has dropped.
  void Refuse(const HislipPiece& piece);
  /// The instrument dropped the answer of which the last pieces are: the next piece begins another.
  void BreakOff();
  /// The connections are cleared: nothing is on its way any more.
  void Reset() { *this = {}; }

private:
  bool IsAwaited(const HislipHeader& header) const;
  void GiveUp();

  std::optional<std::uint32_t> m_awaited;
  /// A part of the answer was handed on, but not its end.
  bool m_begun = false;
  /// Such a part was given up, and nothing was handed on since.
  bool m_givenUp = false;
  /// A part of the answer that is coming was not handed on, so nothing of it is.
  bool m_refused = false;
};

} // namespace portico::wire
