#include "drivers/session/StreamedAnswer.h"

#include <algorithm>

namespace portico::drivers {
namespace {

constexpr std::size_t LongestTerminator = 2;

} // namespace

std::size_t StreamedAnswer::Take(std::string_view bytes) {
  const std::size_t taken = m_reader.Feed(bytes);
  m_begun = m_begun || taken > 0;
  const std::string_view own = bytes.substr(0, taken);
  if (own.size() >= LongestTerminator) {
    const std::size_t sure = own.size() - LongestTerminator;
    Pass(m_held);
    Pass(own.substr(0, sure));
    m_held = own.substr(sure);
  } else {
    m_held += own;
    const std::size_t sure = m_held.size() - std::min(m_held.size(), LongestTerminator);
    Pass(std::string_view(m_held).substr(0, sure));
    m_held.erase(0, sure);
  }
  return taken;
}

void StreamedAnswer::Finish() { Pass(std::string_view(m_held).substr(0, m_held.size() - m_reader.TerminatorLength())); }

void StreamedAnswer::Pass(std::string_view piece) {
  if (!m_refused && !piece.empty()) m_refused = !m_sink(piece);
}

} // namespace portico::drivers
