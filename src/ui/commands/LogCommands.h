#pragma once

#include "framework/objects/Creator.h"
#include "ui/base/PlainCommand.h"

namespace portico {

// Members raise 0x80041460 before `Initialize`.

/// Opens a log, or closes the one that is open.
class CNewLogFile final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CNewLogFile"; }
  /// No configuration server raises 424. A dialog that is cancelled changes nothing.
  void Execute() override;

private:
  void OpenNewLogFile();
  void CloseLogFile();
};

/// Pauses logging, or resumes it.
class CToggleLogging final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CToggleLogging"; }
  /// No open log raises 424.
  void Execute() override;
};

/// Shows a log that the user chooses, in a viewer of its own.
class CViewLogFile final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CViewLogFile"; }
  void Execute() override;
};

/// "ToggleLogFile".
extern const CreatorRow CtorNewLogFile;
/// "ToggleLogging".
extern const CreatorRow CtorToggleLogging;
/// "ViewLogFile".
extern const CreatorRow CtorViewLogFile;

} // namespace portico
