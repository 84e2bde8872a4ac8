#pragma once

#include "ui/main/MainWindowFixture.h"

namespace portico::test {

/// The window on an open instrument that reports an error for each "BAD".
class ErringInstrumentFixture : public MainWindowFixture {
protected:
  ErringInstrumentFixture() {
    HasSpies = false;
    Driver->OnWrite = [this](const std::string& text) {
      if (text == "BAD") m_error = "-113,\"Undefined header\"";
      m_isAsked = text == ":SYST:ERR?";
      return 0;
    };
    Driver->OnRead = [this] {
      const std::string answer = m_isAsked ? std::exchange(m_error, NoError) : "1";
      return DriverDouble::Reading{0, answer + "\n"};
    };
  }

  std::string Left() { return ToUtf8(Future().Text()); }
  void Run(StringView lines) {
    Future().Text(lines);
    Click(u"mnuRun");
  }

  static constexpr const char* NoError = "0,\"No error\"";

private:
  std::string m_error = NoError;
  bool m_isAsked = false;
};

} // namespace portico::test
