#include "wire/RpcRecord.h"

#include "wire/BigEndian.h"

#include <algorithm>

namespace portico::wire {
namespace {

using Mark = std::uint32_t;

constexpr Mark LastFragment = Mark{1} << 31;

} // namespace

std::size_t BeginRpcRecord(std::string& bytes) {
  const std::size_t begin = bytes.size();
  bytes.append(sizeof(Mark), '\0');
  return begin;
}

void EndRpcRecord(std::string& bytes, std::size_t begin) {
  const auto length = static_cast<Mark>(bytes.size() - begin - sizeof(Mark));
  StoreBigEndian(length | LastFragment, bytes.data() + begin);
}

RpcRecordReader::RpcRecordReader(std::size_t limit)
    : m_limit(limit), m_content(std::make_unique_for_overwrite<char[]>(limit)) {}

std::size_t RpcRecordReader::Feed(std::string_view bytes) {
  std::size_t taken = 0;
  while (taken < bytes.size() && !m_complete && !m_tooLong) {
    if (m_markSize < sizeof(Mark)) {
      TakeMark(bytes[taken++]);
    } else {
      const std::size_t count = std::min(m_fragmentLeft, bytes.size() - taken);
      bytes.copy(m_content.get() + m_size, count, taken);
      m_size += count;
      taken += count;
      m_fragmentLeft -= count;
    }
    if (m_markSize == sizeof(Mark) && m_fragmentLeft == 0) {
      m_complete = m_lastFragment;
      m_markSize = 0;
    }
  }
  return taken;
}

void RpcRecordReader::TakeMark(char byte) {
  m_mark = m_mark << 8 | static_cast<unsigned char>(byte);
  if (++m_markSize < sizeof(Mark)) return;
  m_lastFragment = (m_mark & LastFragment) != 0;
  m_fragmentLeft = m_mark & ~LastFragment;
  m_tooLong = m_fragmentLeft > m_limit - m_size;
}

void RpcRecordReader::Restart() {
  m_size = 0;
  m_markSize = 0;
  m_complete = false;
  m_tooLong = false;
}

} // namespace portico::wire
