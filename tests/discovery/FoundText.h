#pragma once

#include "platform/IInstrumentSearch.h"

#include <string>
#include <vector>

namespace portico::test {

/// Name and description, with a bar between.
inline std::string FoundText(const FoundInstrument& found) {
  return ToUtf8(found.Name) + "|" + ToUtf8(found.Description);
}

inline std::vector<std::string> FoundTexts(const std::vector<FoundInstrument>& found) {
  std::vector<std::string> texts;
  texts.reserve(found.size());
  for (const FoundInstrument& instrument : found) texts.push_back(FoundText(instrument));
  return texts;
}

} // namespace portico::test
