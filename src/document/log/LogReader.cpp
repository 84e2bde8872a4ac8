#include "document/log/LogReader.h"

#include "document/log/LogParser.h"
#include "document/log/LogText.h"
#include "framework/shared/Application.h"

#include <algorithm>
#include <optional>
#include <streambuf>

namespace portico {
namespace {

constexpr std::size_t ChunkSize = std::size_t{256} * 1024;
constexpr std::size_t LargestChunk = std::size_t{64} * 1024 * 1024;
/// What is kept of the bytes before the chunk, to look at when something is torn: more than any session's tag.
constexpr std::size_t Lookback = 4096;

/// One reading. It holds a window of the bytes, and mends what a cut through one of our own writes leaves.
class Pass {
public:
  Pass(const LogReader::Source& source, ILogVisitor& visitor)
      : m_source(source), m_structure(m_reading, visitor), m_parser(std::in_place, m_structure, m_reading) {}

  LogReading Run() {
    for (;;) {
      if (m_next == WindowEnd()) Fill();
      const auto bytes = std::string_view(m_window).substr(m_next - m_windowStart);
      m_next = WindowEnd();
      switch (m_parser->Feed(bytes, m_ended)) {
      case LogParser::Status::Fine:
        if (m_ended) return Conclude(LogReading::End::Complete);
        // A tag that does not end is looked through again with each chunk: the chunks grow with it.
        if (m_parser->HasMoved()) {
          m_chunk = ChunkSize;
        } else if (bytes.size() >= m_chunk) {
          m_chunk = std::min(2 * m_chunk, LargestChunk);
        }
        break;
      case LogParser::Status::EndsEarly:
        return Conclude(IsLogOfOurs() && !m_structure.RootEnded() ? LogReading::End::Torn : LogReading::End::Broken);
      case LogParser::Status::Wrong:
        if (!m_reading.IsUtf8 || !IsLogOfOurs()) return Conclude(LogReading::End::Broken);
        if (PassTornTag()) break;
        return Conclude(IsHalfOverwritten() ? LogReading::End::Torn : LogReading::End::Broken);
      }
    }
  }

private:
  std::uint64_t WindowEnd() const { return m_windowStart + m_window.size(); }

  bool IsLogOfOurs() const { return m_reading.IsUtf8 && m_reading.IsOurs(); }

  LogReading Conclude(LogReading::End end) {
    m_reading.Ending = end;
    m_reading.Size = WindowEnd();
    if (end != LogReading::End::Complete) {
      m_reading.Reason = m_parser->Reason();
      m_reading.Line = m_parser->Line();
    }
    return std::move(m_reading);
  }

  /// Appends the next chunk to the window.
  void Pull(std::size_t size) {
    const std::size_t old = m_window.size();
    m_window.resize(old + size);
    m_window.resize(old + m_source(m_window.data() + old, size));
    if (m_window.size() == old) m_ended = true;
    if (m_windowStart == 0 && old == 0) NoteEncoding();
  }

  void Fill() {
    if (m_ended) return;
    if (m_window.size() > Lookback) {
      m_windowStart += m_window.size() - Lookback;
      m_window.erase(0, m_window.size() - Lookback);
    }
    Pull(m_chunk);
  }

  /// UTF-16 is told by its mark, or by the zero in its first character.
  void NoteEncoding() {
    const std::string_view start = std::string_view(m_window).substr(0, 2);
    const bool zero = start.find('\0') != std::string_view::npos;
    if (zero || start == "\xFF\xFE" || start == "\xFE\xFF") m_reading.IsUtf8 = false;
  }

  /// Closing a session writes into its opening tag. A cut through that write leaves a piece of an attribute, and no
  /// `<` or `>`, in the tag's room: the session counts as not closed, and reading goes on behind the tag.
  bool PassTornTag() {
    static const std::string start = "<Session " + std::string(LogName::OpenStamp) + "=\"";
    const std::uint64_t position = m_parser->Position();
    if (position <= m_windowStart || !m_structure.InRoot()) return false;
    const std::size_t tag = m_window.rfind(start, position - m_windowStart - 1);
    if (tag == std::string::npos || m_windowStart + tag < m_reading.SoundEnd) return false;
    const std::size_t quote = m_window.find_first_of("\"<>", tag + start.size());
    if (quote == std::string::npos || m_window[quote] != '"') return false;
    const std::size_t room = quote + 1;
    const std::size_t close = room + LogText::CloseStampRoom;
    while (m_window.size() <= close && !m_ended) Pull(ChunkSize);
    if (m_window.size() <= close || m_window.find_first_of("<>", room) != close || m_window[close] != '>') return false;

    m_reading.TornCloseStamps.push_back(m_windowStart + room);
    std::string whole = m_window.substr(tag, close + 1 - tag);
    std::fill(whole.end() - 1 - static_cast<std::ptrdiff_t>(LogText::CloseStampRoom), whole.end() - 1, ' ');
    const std::uint64_t line = m_parser->Line();
    m_parser.emplace(m_structure, m_reading, m_windowStart + tag, line);
    m_parser->OpenRootSilently();
    m_next = m_windowStart + close + 1;
    return m_parser->Feed(whole, false) == LogParser::Status::Fine;
  }

  /// Extending a log writes over its closing tags. A cut within their length leaves the start of the new bytes and the
  /// end of the old tags behind the last thing that is whole.
  bool IsHalfOverwritten() {
    constexpr std::string_view longest = LogText::SessionAndRootEnd;
    if (m_reading.SoundEnd < m_windowStart) return false;
    const std::size_t from = m_reading.SoundEnd - m_windowStart;
    while (!m_ended && m_window.size() - from <= longest.size()) Pull(ChunkSize);
    const auto rest = std::string_view(m_window).substr(from);
    const auto tags = m_reading.InSession ? longest : LogText::RootEnd;
    if (rest.size() != tags.size()) return false;
    const auto kept = std::mismatch(rest.rbegin(), rest.rend(), tags.rbegin()).first;
    const auto written = rest.substr(0, static_cast<std::size_t>(rest.rend() - kept));
    return BeginsElement(written);
  }

  static bool BeginsElement(std::string_view bytes) {
    LogReading reading;
    ILogVisitor nobody;
    LogStructure structure(reading, nobody);
    LogParser parser(structure, reading);
    return bytes.substr(0, 2) == "\n<" && parser.Feed(bytes, false) == LogParser::Status::Fine;
  }

  const LogReader::Source& m_source;
  LogReading m_reading;
  LogStructure m_structure;
  std::optional<LogParser> m_parser;
  std::string m_window;
  std::uint64_t m_windowStart = 0;
  std::uint64_t m_next = 0; // to be parsed
  std::size_t m_chunk = ChunkSize;
  bool m_ended = false;
};

struct FileEnd {
  std::uint64_t Size = 0;
  std::string Tail;
};

/// The size of a file, and the bytes in front of it that a writer may write over. They are taken at one time, or a
/// reading would find the old ones up to where it stopped for a while, and then new ones. A file that is being written
/// is looked at until it is seen twice in one state.
FileEnd EndOf(const ILogFile& file) {
  constexpr int patience = 100;
  FileEnd last;
  for (int look = 0;; ++look) {
    FileEnd now{file.Identity().Size, std::string(2 * LogText::SessionAndRootEnd.size(), '\0')};
    now.Tail.resize(static_cast<std::size_t>(std::min<std::uint64_t>(now.Size, now.Tail.size())));
    now.Tail.resize(file.Read(now.Size - now.Tail.size(), now.Tail.data(), now.Tail.size()));
    if (look == patience || (look > 0 && now.Size == last.Size && now.Tail == last.Tail)) return now;
    last = std::move(now);
  }
}

} // namespace

LogReading LogReader::Read(const Source& source, ILogVisitor& visitor) { return Pass(source, visitor).Run(); }

LogReading LogReader::Read(std::string_view bytes, ILogVisitor& visitor) {
  return Read(
      [bytes](char* buffer, std::size_t size) mutable {
        const std::size_t count = std::min(size, bytes.size());
        bytes.copy(buffer, count);
        bytes.remove_prefix(count);
        return count;
      },
      visitor);
}

LogReading LogReader::Read(const ILogFile& file, ILogVisitor& visitor) { return Read(SourceOf(file), visitor); }

LogReader::Source LogReader::SourceOf(const ILogFile& file) {
  FileEnd end = EndOf(file);
  const std::uint64_t start = end.Size - end.Tail.size();
  return SourceOf(file, start, std::move(end.Tail));
}

LogReader::Source LogReader::SourceOf(std::istream& in) {
  return [&in](char* buffer, std::size_t size) -> std::size_t {
    std::streambuf& stream = *in.rdbuf();
    if (std::streambuf::traits_type::eq_int_type(stream.sgetc(), std::streambuf::traits_type::eof())) return 0;
    const auto count = std::clamp<std::streamsize>(stream.in_avail(), 1, static_cast<std::streamsize>(size));
    return static_cast<std::size_t>(stream.sgetn(buffer, count));
  };
}

LogReader::Source LogReader::SourceOf(const ILogFile& file, std::uint64_t end, std::string tail) {
  return [&file, end, tail = std::move(tail), position = std::uint64_t{0}](char* buffer, std::size_t size) mutable {
    std::size_t count = 0;
    if (position < end) {
      count = file.Read(position, buffer, static_cast<std::size_t>(std::min<std::uint64_t>(size, end - position)));
    } else {
      count = tail.copy(buffer, size, static_cast<std::size_t>(position - end));
    }
    position += count;
    return count;
  };
}

LogReader::Source LogReader::MendedSourceOf(const ILogFile& file, const LogReading& reading) {
  return [source = SourceOf(file), rooms = reading.TornCloseStamps,
          start = std::uint64_t{0}](char* buffer, std::size_t size) mutable {
    const std::size_t count = source(buffer, size);
    for (const std::uint64_t room : rooms) {
      const std::uint64_t from = std::clamp(room, start, start + count);
      const std::uint64_t to = std::clamp(room + LogText::CloseStampRoom, start, start + count);
      std::fill(buffer + (from - start), buffer + (to - start), ' ');
    }
    start += count;
    return count;
  };
}

} // namespace portico
