#pragma once

#include "framework/text/text.h"

#include <set>
#include <vector>

namespace portico::discovery {

/// Which instruments somebody knows of. Names are compared by what they open, however they are spelt: blanks, case and
/// what is left out make no difference.
class ToldInstruments {
public:
  explicit ToldInstruments(const std::vector<String>& known = {});

  /// Whether there is something to tell: the instrument was not known so far, nor are `MostListed` known. It is now.
  bool Add(const String& name);

private:
  std::set<String> m_meanings;
};

} // namespace portico::discovery
