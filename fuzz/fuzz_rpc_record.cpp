#include "wire/RpcRecord.h"

#include <cstdlib>

using portico::wire::BeginRpcRecord;
using portico::wire::EndRpcRecord;
using portico::wire::RpcRecordReader;

namespace {

constexpr std::size_t Limit = 64; // bytes of a record

struct Outcome {
  std::size_t length = 0;
  std::string content;
  bool complete = false;
  bool tooLong = false;

  bool operator==(const Outcome&) const = default;
};

/// Feeds the stream in pieces of the given size, up to the end of its first record.
Outcome Read(RpcRecordReader& reader, std::string_view stream, std::size_t pieceSize) {
  Outcome outcome;
  while (outcome.length < stream.size() && !reader.Complete() && !reader.TooLong()) {
    const std::string_view piece = stream.substr(outcome.length, pieceSize);
    const std::size_t taken = reader.Feed(piece);
    if (taken > piece.size() || (taken < piece.size() && !reader.Complete() && !reader.TooLong())) std::abort();
    outcome.length += taken;
  }
  outcome.content = reader.Content();
  outcome.complete = reader.Complete();
  outcome.tooLong = reader.TooLong();
  if (outcome.content.size() > Limit || (outcome.complete && outcome.tooLong)) std::abort();
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
    if (!outcome.complete) return 0;

    std::string written;
    const std::size_t begin = BeginRpcRecord(written);
    written += outcome.content;
    EndRpcRecord(written, begin);
    RpcRecordReader again(Limit);
    const Outcome copy = Read(again, written, written.size());
    if (!copy.complete || copy.length != written.size() || copy.content != outcome.content) std::abort();

    stream.remove_prefix(outcome.length);
    whole.Restart();
    pieces.Restart();
    bytes.Restart();
  }
}
