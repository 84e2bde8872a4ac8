#include "drivers/session/MessageReader.h"

#include <array>
#include <cstdlib>

using portico::Termination;
using portico::drivers::MessageReader;

namespace {

struct Outcome {
  std::size_t length = 0;
  std::size_t terminator = 0;
  bool complete = false;

  bool operator==(const Outcome&) const = default;
};

/// Feeds the stream in pieces of the given size.
Outcome Read(Termination termination, std::string_view stream, std::size_t pieceSize) {
  MessageReader reader(termination);
  Outcome outcome;
  while (outcome.length < stream.size() && !reader.Complete()) {
    const std::string_view piece = stream.substr(outcome.length, pieceSize);
    const std::size_t taken = reader.Feed(piece);
    if (taken > piece.size() || (taken < piece.size() && !reader.Complete())) std::abort();
    outcome.length += taken;
  }
  outcome.terminator = reader.TerminatorLength();
  outcome.complete = reader.Complete();
  return outcome;
}

} // namespace

// However a stream is cut into pieces, its first message ends at the same byte. The first byte picks the termination,
// the second the size of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  constexpr std::array Terminations = {Termination::Auto, Termination::LineFeed, Termination::CarriageReturnLineFeed,
                                       Termination::CarriageReturn, Termination::LineFeedCarriageReturn};
  const Termination termination = Terminations[data[0] % Terminations.size()];
  const std::string_view stream(reinterpret_cast<const char*>(data) + 2, size - 2);
  const Outcome whole = Read(termination, stream, stream.size());
  if (whole.terminator > whole.length || whole.complete != (whole.terminator > 0)) std::abort();
  if (Read(termination, stream, 1) != whole || Read(termination, stream, data[1] + 1U) != whole) std::abort();
  return 0;
}
