#include "document/encoders/CHexEncoder.h"
#include "framework/errors/ErrorRecord.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using portico::ByteArray;
using portico::CHexEncoder;
using portico::String;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const CHexEncoder encoder;
  const ByteArray bytes(data, data + size);
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (size > 0 && encoder.Decode(encoder.Encode(bytes)) != bytes) std::abort();

  const auto known = CHexEncoder::TryDecode(text);
  const String units(data, data + size);
  try {
    const ByteArray decoded = encoder.Decode(units);
    if (known != decoded || encoder.Encode(decoded) != portico::ToUpper(units)) std::abort();
  } catch (const portico::Error&) {
    if (known) std::abort();
  }
  return 0;
}
