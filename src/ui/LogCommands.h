#pragma once

#include "framework/Creator.h"
#include "framework/ICommand.h"

namespace portico {

// Members raise 0x80041460 before `Initialize`.

/// Opens a log, or closes the one that is open.
class CNewLogFile final : public ICommand {
public:
  StringView ClassName() const override { return u"CNewLogFile"; }
  void Initialize() { m_initialized = true; }
  /// No configuration server raises 424. A dialog that is cancelled changes nothing.
  void Execute() override;

private:
  void OpenNewLogFile();
  void CloseLogFile();

  bool m_initialized = false;
};

/// Pauses logging, or resumes it.
class CToggleLogging final : public ICommand {
public:
  StringView ClassName() const override { return u"CToggleLogging"; }
  void Initialize() { m_initialized = true; }
  /// No open log raises 424.
  void Execute() override;

private:
  bool m_initialized = false;
};

/// Shows a log that the user chooses, in a viewer of its own.
class CViewLogFile final : public ICommand {
public:
  StringView ClassName() const override { return u"CViewLogFile"; }
  void Initialize() { m_initialized = true; }
  void Execute() override;

private:
  bool m_initialized = false;
};

/// "ToggleLogFile".
extern const CreatorRow CtorNewLogFile;
/// "ToggleLogging".
extern const CreatorRow CtorToggleLogging;
/// "ViewLogFile".
extern const CreatorRow CtorViewLogFile;

} // namespace portico
