#include "document/log/WholeLog.h"
#include "recordings/RecordingReader.h"
#include "simulator/connection/StreamConnection.h"
#include "simulator/replay/ReplayedInstrument.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace portico;

namespace {

constexpr simulator::TimePoint Now{std::chrono::hours(1)};
constexpr std::size_t MostInMemory = 512; // so that small inputs reach the file, too

void Require(bool holds) {
  if (!holds) std::abort();
}

LogReader::Source SourceOf(std::string_view bytes) {
  return [bytes](char* buffer, std::size_t size) mutable {
    const std::size_t count = bytes.copy(buffer, size);
    bytes.remove_prefix(count);
    return count;
  };
}

} // namespace

/// The input up to a zero byte is what a client sends, the rest a log. Whatever the log holds, its instrument takes any
/// bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::string_view sent = bytes.substr(0, bytes.find('\0'));
  const std::string_view log = bytes.substr(std::min(size, sent.size() + 1));

  simulator::ReplayBook book(MostInMemory);
  recordings::RecordingReader reader(book, {});
  try {
    ReadWholeLog(SourceOf(log), reader);
  } catch (const recordings::RecordingReader::Refusal& refusal) {
    Require(!refusal.Text.empty());
    return 0;
  }
  const std::size_t messages = book.Size();
  Require(messages <= log.size());
  simulator::ReplayedInstrument instrument(std::move(book), simulator::ReplayedInstrument::Order::Demanded, 1);
  simulator::StreamConnection client(instrument);
  client.Write(sent, Now);
  client.End(Now);
  while (client.Read(Now)) {
  }
  Require(!client.Busy());
  return 0;
}
