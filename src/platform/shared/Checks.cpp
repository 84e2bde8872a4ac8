#include "platform/shared/Checks.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {

void CheckValue(std::int64_t value, std::int64_t least, std::int64_t most) {
  if (value < least || value > most) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
}

void CheckSize(double size) {
  if (size < 0) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
}

void CheckPosition(std::int64_t position, std::int64_t count) {
  if (position < 1 || position > count) HuntERR::RaiseStandard(ErrorNumber::IndexOutOfBounds);
}

} // namespace portico
