#include "wire/HislipReader.h"

#include <algorithm>

namespace portico::wire {
namespace {

std::string_view TakeFront(std::string_view& bytes, std::uint64_t most) {
  const std::string_view front = bytes.substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(most, bytes.size())));
  bytes.remove_prefix(front.size());
  return front;
}

bool CarriesData(HislipType type) { return type == HislipType::Data || type == HislipType::DataEnd; }

} // namespace

HislipReader::HislipReader(std::uint64_t longest) : m_longest(longest) {}

std::optional<HislipPiece> HislipReader::Next(std::string_view& bytes) {
  std::optional<HislipPiece> piece;
  while (!piece && !bytes.empty() && !Broken()) {
    switch (m_state) {
    case State::Header:
      piece = TakeHeader(bytes);
      break;
    case State::Data: {
      const std::string_view payload = TakePayload(bytes);
      piece = HislipPiece{m_header, payload, m_left == 0};
      break;
    }
    case State::Gathered:
      piece = Gather(bytes);
      break;
    case State::PassedOver:
      TakePayload(bytes);
      break;
    case State::Broken:
      break;
    }
  }
  return piece;
}

std::optional<HislipPiece> HislipReader::TakeHeader(std::string_view& bytes) {
  m_headerBytes += TakeFront(bytes, HislipHeaderSize - m_headerBytes.size());
  if (m_headerBytes.size() < HislipHeaderSize) return std::nullopt;
  const std::optional<HislipHeader> header = ReadHislipHeader(m_headerBytes);
  m_headerBytes.clear();
  if (!header) {
    m_state = State::Broken;
    return std::nullopt;
  }
  m_header = *header;
  m_left = m_header.PayloadLength;
  if (m_left == 0) return HislipPiece{m_header};
  if (m_left > m_longest) {
    m_state = State::PassedOver;
    return HislipPiece{m_header, {}, true, true};
  }
  m_gathered.clear();
  m_state = CarriesData(m_header.Type) ? State::Data : State::Gathered;
  return std::nullopt;
}

std::optional<HislipPiece> HislipReader::Gather(std::string_view& bytes) {
  const std::string_view payload = TakePayload(bytes);
  m_gathered += payload.substr(0, HislipLongestText - m_gathered.size());
  if (m_left > 0) return std::nullopt;
  return HislipPiece{m_header, m_gathered};
}

std::string_view HislipReader::TakePayload(std::string_view& bytes) {
  const std::string_view payload = TakeFront(bytes, m_left);
  m_left -= payload.size();
  if (m_left == 0) m_state = State::Header;
  return payload;
}

} // namespace portico::wire
