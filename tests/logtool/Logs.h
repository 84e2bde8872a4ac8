#pragma once

#include "logtool/LogTool.h"
#include "support/LogTexts.h"

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace portico::logtool {

inline const std::string& Head = test::LogHead;

inline std::string Element(const std::string& kind, const std::string& second, const std::string& text) {
  return test::LogElementOf(kind, second, text);
}
inline std::string Log(const std::string& sessions) { return test::LogOf(sessions); }
inline std::string SessionOf(const std::string& entities) { return test::LogSessionOf(entities); }

struct Result {
  int Status = 0;
  std::string Out;
  std::string Err;
};

inline Result RunOn(const ToolOptions& options, const std::string& input = {}) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  const auto status = Run(options, {in, out, err});
  return {static_cast<int>(status), out.str(), err.str()};
}

inline Result RunOn(Output wanted, const std::string& input, std::vector<std::string> files = {"-"}) {
  return RunOn({.Wanted = wanted, .Files = std::move(files)}, input);
}

} // namespace portico::logtool
