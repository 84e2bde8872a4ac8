#include "numbers/NumberList.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

using namespace portico;
using numbers::Fault;
using numbers::Values;

// A text is either numbers, one for each piece between separators, which read back from their own text; or a fault with
// a place in the text and a reason.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = FromUtf8({reinterpret_cast<const char*>(data), size}).Text;
  const auto read = numbers::ReadNumberList(text);
  if (const auto* fault = std::get_if<Fault>(&read)) {
    if (fault->Place > text.size() || fault->Text.empty() || fault->Text.size() > 100) std::abort();
    return 0;
  }
  const auto& values = std::get<Values>(read);
  const auto separators =
      std::count_if(text.begin(), text.end(), [](char16_t unit) { return unit == u',' || unit == u';'; });
  if (values.size() != static_cast<std::size_t>(separators) + 1) std::abort();
  String again;
  for (const double value : values) {
    if (!again.empty()) again += u',';
    again += std::isnan(value)   ? String(u"9.91E37")
             : std::isinf(value) ? value > 0 ? u"9.9E37" : u"-9.9E37"
                                 : ToText(value);
  }
  const auto same = numbers::ReadNumberList(again);
  const auto* back = std::get_if<Values>(&same);
  if (back == nullptr || !std::equal(values.begin(), values.end(), back->begin(), back->end(),
                                     [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); })) {
    std::abort();
  }
  return 0;
}
