#pragma once

#include "framework/errors/HuntERR.h"
#include "framework/errors/Value.h"

#include <utility>

namespace portico {

/// Whether an XML document can be made. Set by `DetectXMLParser`; decides which log store is used.
extern bool gXMLParserAvailable;

namespace modGlobals {

/// Upper bound minus lower bound plus 1.
std::int32_t ParamArrayCount(const Params& ParameterArray);

/// The arguments as an array with lower bound 0; without arguments an array of length 0.
template <class... Args>
Params VarArray(Args&&... Arguments) try {
  Params array;
  array.reserve(sizeof...(Arguments));
  (array.emplace_back(std::forward<Args>(Arguments)), ...);
  return array;
} catch (...) {
  PassOn(u"modGlobals.VarArray(Params)");
}

/// True for a path whose directory attribute is clear; false when the file system cannot tell.
bool FileExists(const String& path);

bool XMLParserAvailable();

/// Appends the pending error report to "SCPIComm.log" beside the program.
void LogErrorReport();

} // namespace modGlobals
} // namespace portico
