#include "wire/Xdr.h"

#include "wire/BigEndian.h"

#include <limits>

namespace portico::wire {
namespace {

constexpr std::size_t Unit = 4;

/// How many zero bytes fill the last unit.
constexpr std::size_t Padding(std::size_t size) { return (Unit - size % Unit) % Unit; }

} // namespace

void XdrWriter::Put(std::uint32_t value) { AppendBigEndian(m_bytes, value); }
void XdrWriter::Put(std::int32_t value) { Put(static_cast<std::uint32_t>(value)); }
void XdrWriter::Put(std::uint16_t value) { Put(std::uint32_t{value}); }
void XdrWriter::Put(std::uint8_t value) { Put(std::uint32_t{value}); }
void XdrWriter::Put(bool value) { Put(std::uint32_t{value}); }

void XdrWriter::Put(std::string_view value) {
  Put(static_cast<std::uint32_t>(value.size()));
  m_bytes.append(value);
  m_bytes.append(Padding(value.size()), '\0');
}

bool XdrReader::Get(std::uint32_t& value) {
  const std::string_view bytes = Take(Unit);
  value = LoadBigEndian<std::uint32_t>(bytes);
  return !m_failed;
}

bool XdrReader::Get(std::int32_t& value) {
  std::uint32_t number = 0;
  Get(number);
  value = static_cast<std::int32_t>(number);
  return !m_failed;
}

bool XdrReader::Get(std::uint16_t& value) {
  std::uint32_t number = 0;
  Get(number);
  value = static_cast<std::uint16_t>(number);
  if (number == value) return !m_failed;
  value = 0;
  return Fail();
}

bool XdrReader::Get(std::uint8_t& value) {
  std::int32_t number = 0;
  Get(number);
  value = static_cast<std::uint8_t>(number);
  if (number >= std::numeric_limits<std::int8_t>::min() && number <= std::numeric_limits<std::uint8_t>::max()) {
    return !m_failed;
  }
  value = 0;
  return Fail();
}

bool XdrReader::Get(bool& value) {
  std::uint32_t number = 0;
  Get(number);
  value = number == 1;
  return number <= 1 ? !m_failed : Fail();
}

bool XdrReader::Get(std::string_view& value) {
  std::uint32_t size = 0;
  Get(size);
  value = Take(size);
  Take(Padding(value.size()));
  if (m_failed) value = {};
  return !m_failed;
}

bool XdrReader::Fail() {
  m_failed = true;
  m_rest = {};
  return false;
}

std::string_view XdrReader::Take(std::size_t count) {
  if (m_rest.size() < count) {
    Fail();
    return {};
  }
  const std::string_view taken = m_rest.substr(0, count);
  m_rest.remove_prefix(count);
  return taken;
}

} // namespace portico::wire
