#include "simulator/replay/ByteStore.h"

namespace portico::simulator {
namespace {

void Check(bool success) {
  if (!success) throw ByteStore::Failed();
}

} // namespace

ByteStore::Place ByteStore::Add(std::string_view text) {
  const Place place = {m_size, static_cast<std::uint32_t>(text.size())};
  if (m_file == nullptr && text.size() > m_most - m_memory.size()) {
    m_file.reset(std::tmpfile());
    Check(m_file != nullptr);
  }
  if (m_file == nullptr) {
    m_memory += text;
  } else {
    Check(std::fseek(m_file.get(), 0, SEEK_END) == 0);
    Check(std::fwrite(text.data(), 1, text.size(), m_file.get()) == text.size());
  }
  m_size += text.size();
  return place;
}

std::string ByteStore::Get(Place place) const {
  if (place.Start + place.Size <= m_memory.size()) return m_memory.substr(place.Start, place.Size);
  std::string text(place.Size, '\0');
  Check(std::fseek(m_file.get(), static_cast<long>(place.Start - m_memory.size()), SEEK_SET) == 0);
  Check(std::fread(text.data(), 1, text.size(), m_file.get()) == text.size());
  return text;
}

} // namespace portico::simulator
