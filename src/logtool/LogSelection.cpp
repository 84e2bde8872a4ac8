#include "logtool/LogSelection.h"

#include "document/log/LogStamps.h"

namespace portico::logtool {

bool IsTime(std::string_view text) {
  constexpr std::size_t date = std::string_view("dddd-dd-dd").size();
  if (text.size() < date || text.size() > StampSecondForm.size()) return false;
  return HasStampForm(text, StampSecondForm.substr(0, text.size())) && text.back() >= '0' && text.back() <= '9';
}

} // namespace portico::logtool
