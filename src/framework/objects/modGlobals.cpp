#include "framework/objects/modGlobals.h"

#include "framework/errors/HuntERR.h"

#include <filesystem>

namespace portico {

bool gXMLParserAvailable = false;

namespace modGlobals {

std::int32_t ParamArrayCount(const Params& ParameterArray) try {
  return static_cast<std::int32_t>(ParameterArray.size());
} catch (...) {
  PassOn(u"modGlobals.ParamArrayCount(ParameterArray)", {Value(ParameterArray)});
}

bool FileExists(const String& path) try {
  std::error_code fault;
  const auto status = std::filesystem::status(std::filesystem::path(path), fault);
  return !fault && std::filesystem::exists(status) && !std::filesystem::is_directory(status);
} catch (const std::filesystem::filesystem_error&) { // no file bears a name that the system cannot spell
  return false;
}

bool XMLParserAvailable() { return gXMLParserAvailable; }

void LogErrorReport() {
  const IErrorEnvironment& environment = HuntERR::Environment();
  String directory = environment.ProgramDirectory();
  const char16_t separator = environment.PathSeparator();
  if (!directory.empty() && directory.back() == separator) directory.pop_back();
  HuntERR::WriteErrorReport(directory + separator + u"SCPIComm.log");
}

} // namespace modGlobals
} // namespace portico
