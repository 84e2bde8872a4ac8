#include "tap/MessageSplitter.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using namespace portico::tap;
using portico::drivers::Marks;

namespace {

constexpr std::size_t Limit = 100; // bytes that are kept of a message

/// The messages of a stream that is fed in pieces of the given size.
template <typename Splitter, typename End>
std::vector<Message> Split(Splitter splitter, std::string_view stream, std::size_t pieceSize, End end) {
  std::vector<Message> messages;
  const MessageSink sink = [&messages](Message&& message) { messages.push_back(std::move(message)); };
  for (; !stream.empty(); stream.remove_prefix(std::min(pieceSize, stream.size()))) {
    splitter.Feed(stream.substr(0, pieceSize), sink);
  }
  end(splitter, sink);
  for (const Message& message : messages) {
    if (message.Bytes.size() > Limit || message.Bytes.size() > message.Length) std::abort();
    if (message.Length <= Limit && message.Bytes.size() != message.Length) std::abort();
  }
  return messages;
}

template <typename Splitter, typename End>
void Check(const Splitter& splitter, std::string_view stream, std::size_t pieceSize, End end) {
  const auto whole = Split(splitter, stream, stream.size(), end);
  if (Split(splitter, stream, 1, end) != whole || Split(splitter, stream, pieceSize, end) != whole) std::abort();
  std::size_t length = 0;
  for (const Message& message : whole) length += static_cast<std::size_t>(message.Length);
  if (length > stream.size()) std::abort();
}

} // namespace

// However a conversation is cut into pieces, its messages are the same. The first byte is the size of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::string_view stream(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t pieceSize = data[0] + 1U;
  const auto end = [](auto& splitter, const MessageSink& sink) { splitter.End(sink); };
  const auto mark = [](auto& splitter, const MessageSink& sink) { splitter.Mark(sink); };
  const auto breakOff = [](auto& splitter, const MessageSink& sink) { splitter.BreakOff(sink); };
  Check(InstructionSplitter(Limit), stream, pieceSize, end);
  Check(AnswerSplitter(Limit, Marks::None), stream, pieceSize, breakOff);
  Check(AnswerSplitter(Limit, Marks::Ends), stream, pieceSize, mark);
  return 0;
}
