#pragma once

#include "framework/objects/Creator.h"
#include "framework/shared/UserCommand.h"

namespace portico {

/// Opens a log, or closes the one that is open.
class CNewLogFile final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CNewLogFile"; }

private:
  /// No configuration server raises `ObjectRequired`. A dialog that is cancelled changes nothing.
  void Act() override;
  void OpenNewLogFile();
  void CloseLogFile();
};

/// Pauses logging, or resumes it.
class CToggleLogging final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CToggleLogging"; }

private:
  /// No open log raises `ObjectRequired`.
  void Act() override;
};

/// Shows a log that the user chooses, in a viewer of its own.
class CViewLogFile final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CViewLogFile"; }

private:
  void Act() override;
};

/// "ToggleLogFile".
extern const CreatorRow CtorNewLogFile;
/// "ToggleLogging".
extern const CreatorRow CtorToggleLogging;
/// "ViewLogFile".
extern const CreatorRow CtorViewLogFile;

} // namespace portico
