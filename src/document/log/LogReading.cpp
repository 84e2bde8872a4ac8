#include "document/log/LogReading.h"

#include "framework/shared/Application.h"
#include "framework/text/text.h"

namespace portico {

LogFault LogReading::Fault() const { return FaultOf(IsLog ? Headers : 0, ApplicationName); }

LogFault LogReading::FaultOf(std::size_t headers, std::string_view applicationName) {
  if (headers == 0) return LogFault::NoHeader;
  if (headers > 1) return LogFault::SecondHeader;
  return applicationName == ToUtf8(ApplicationTitle) ? LogFault::None : LogFault::OtherApplication;
}

} // namespace portico
