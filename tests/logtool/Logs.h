#pragma once

#include "logtool/LogTool.h"

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace portico::logtool {

inline const std::string Head =
    "<SCPICommLog><Header ApplicationName=\"Tolvane Portico\" ApplicationVersion=\"1.0.5\"/>";

/// An element of a log with a text for its payload.
inline std::string Element(const std::string& kind, const std::string& second, const std::string& text) {
  return "<" + kind + " DataType=\"" + kind + "\" Timestamp=\"2004-11-01T16:42:" + second +
         ".000000000-5:00\" DataFormat=\"String\"><![CDATA[" + text + "]]></" + kind + ">";
}

inline std::string Log(const std::string& sessions) { return Head + sessions + "</SCPICommLog>"; }
inline std::string SessionOf(const std::string& entities) {
  return "<Session SessionOpenTimeStamp=\"s\">" + entities + "</Session>";
}

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
