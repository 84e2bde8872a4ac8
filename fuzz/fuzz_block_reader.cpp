#include "drivers/session/MessageReader.h"

#include <array>
#include <cstdlib>

using portico::Termination;
using portico::drivers::MessageReader;

namespace {

struct Outcome {
  std::size_t Length = 0;
  std::size_t Terminator = 0;
  bool Complete = false;

  bool operator==(const Outcome&) const = default;
};

/// Feeds the stream in pieces of the given size.
Outcome Read(Termination termination, std::string_view stream, std::size_t pieceSize) {
  MessageReader reader(termination);
  Outcome outcome;
  while (outcome.Length < stream.size() && !reader.Complete()) {
    const std::string_view piece = stream.substr(outcome.Length, pieceSize);
    const std::size_t taken = reader.Feed(piece);
    if (taken > piece.size() || (taken < piece.size() && !reader.Complete())) std::abort();
    outcome.Length += taken;
  }
  outcome.Terminator = reader.TerminatorLength();
  outcome.Complete = reader.Complete();
  return outcome;
}

} // namespace

// However a stream is cut into pieces, its first message ends at the same byte. The first byte picks the termination,
// the second the size of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  constexpr std::array terminations = {Termination::Auto, Termination::LineFeed, Termination::CarriageReturnLineFeed,
                                       Termination::CarriageReturn, Termination::LineFeedCarriageReturn};
  const Termination termination = terminations[data[0] % terminations.size()];
  const std::string_view stream(reinterpret_cast<const char*>(data) + 2, size - 2);
  const Outcome whole = Read(termination, stream, stream.size());
  if (whole.Terminator > whole.Length || whole.Complete != (whole.Terminator > 0)) std::abort();
  if (Read(termination, stream, 1) != whole || Read(termination, stream, data[1] + 1U) != whole) std::abort();
  return 0;
}
