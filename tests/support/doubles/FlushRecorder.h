#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace portico::test {

/// Remembers what stood there at each flush.
class FlushRecorder final : public std::stringbuf {
public:
  std::vector<std::string> Flushed;

private:
  int sync() override {
    Flushed.push_back(str());
    return 0;
  }
};

} // namespace portico::test
