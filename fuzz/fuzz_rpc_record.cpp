#include "wire/RpcRecord.h"

#include <cstdlib>

using portico::wire::BeginRpcRecord;
using portico::wire::EndRpcRecord;
using portico::wire::RpcRecordReader;

namespace {

constexpr std::size_t Limit = 64; // bytes of a record

struct Outcome {
  std::size_t Length = 0;
  std::string Content;
  bool Complete = false;
  bool TooLong = false;

  bool operator==(const Outcome&) const = default;
};

/// Feeds the stream in pieces of the given size, up to the end of its first record.
Outcome Read(RpcRecordReader& reader, std::string_view stream, std::size_t pieceSize) {
  Outcome outcome;
  while (outcome.Length < stream.size() && !reader.Complete() && !reader.TooLong()) {
    const std::string_view piece = stream.substr(outcome.Length, pieceSize);
    const std::size_t taken = reader.Feed(piece);
    if (taken > piece.size() || (taken < piece.size() && !reader.Complete() && !reader.TooLong())) std::abort();
    outcome.Length += taken;
  }
  outcome.Content = reader.Content();
  outcome.Complete = reader.Complete();
  outcome.TooLong = reader.TooLong();
  if (outcome.Content.size() > Limit || (outcome.Complete && outcome.TooLong)) std::abort();
  return outcome;
}

} // namespace

// However a stream is cut into pieces, its records are the same, none is longer than the limit, and each is read again
// as it is written. The first byte picks the size of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::size_t pieceSize = data[0] + 1U;
  std::string_view stream(reinterpret_cast<const char*>(data) + 1, size - 1);
  RpcRecordReader whole(Limit);
  RpcRecordReader pieces(Limit);
  RpcRecordReader bytes(Limit);
  for (;;) {
    const Outcome outcome = Read(whole, stream, stream.size());
    if (Read(pieces, stream, pieceSize) != outcome || Read(bytes, stream, 1) != outcome) std::abort();
    if (!outcome.Complete) return 0;

    std::string written;
    const std::size_t begin = BeginRpcRecord(written);
    written += outcome.Content;
    EndRpcRecord(written, begin);
    RpcRecordReader again(Limit);
    const Outcome copy = Read(again, written, written.size());
    if (!copy.Complete || copy.Length != written.size() || copy.Content != outcome.Content) std::abort();

    stream.remove_prefix(outcome.Length);
    whole.Restart();
    pieces.Restart();
    bytes.Restart();
  }
}
