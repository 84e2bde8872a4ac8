#pragma once

#include "support/doubles/DriverDouble.h"

#include <deque>
#include <map>
#include <string>

namespace portico::test {

/// An instrument that answers what is listed, each answer once, and has nothing to say to anything else.
class ListedAnswers {
public:
  static constexpr std::int32_t NothingToRead = -7;

  /// Lets the driver stand before this instrument, which must outlive it.
  void Attach(DriverDouble& driver);

  /// By the text that is written.
  std::map<std::string, std::string> Listed = {{"*OPC?", "1"}, {":SYST:ERR?", "0,\"No error\""}};

private:
  DriverDouble::Reading Read();

  std::deque<std::string> m_unread;
};

} // namespace portico::test
