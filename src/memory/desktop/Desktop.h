#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/IDesktop.h"

#include <vector>

namespace portico::memory {

class Clipboard final : public IClipboard {
public:
  String GetText() const override { return m_text; }
  /// What somebody copies.
  void SetText(const String& text) { m_text = text; }

private:
  String m_text;
};

/// Keeps what is printed.
class Printer final : public IPrinter {
public:
  void Print(const String& text) override { m_printed.push_back(text); }
  /// The texts, one for each call, empty ones too.
  const std::vector<String>& Printed() const { return m_printed; }

private:
  std::vector<String> m_printed;
};

/// Keeps what it is asked for.
class HelpViewer final : public IHelpViewer {
public:
  struct Call {
    String HelpFile;
    std::int32_t Command = 0;
    String Data;
    bool operator==(const Call&) const = default;
  };

  void WinHelp(const String& HelpFile, std::int32_t Command, const String& Data) override {
    m_calls.push_back({HelpFile, Command, Data});
    if (m_isMissing) HuntERR::RaiseStandard(ErrorNumber::FileNotFound);
  }
  /// Every help file is missing.
  void LoseFiles() { m_isMissing = true; }
  /// Those that failed, too.
  const std::vector<Call>& Calls() const { return m_calls; }

private:
  bool m_isMissing = false;
  std::vector<Call> m_calls;
};

} // namespace portico::memory
