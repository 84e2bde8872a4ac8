#pragma once

#include "framework/errors/Ref.h"

#include <cstdint>

namespace portico {

/// What everything that happens looks like to displays, log and runner. A command is its own report.
class IReport : public virtual IObject {
public:
  /// What reported: the class name of the command, such as "CWriteCmd". Consumers tell reports apart by it.
  virtual String GetCommand() const = 0;
  /// What came back from the channel or server; the error message after a failure.
  virtual String GetData() const = 0;
  /// "Success", or the driver's text.
  virtual String GetErrorMessage() const = 0;
  /// 0, a driver status, or a mark (`ErrorNumber::SendNextInstruction`, `ErrorNumber::InstructionComplete`), which is
  /// no error.
  virtual std::int32_t GetErrorCode() const = 0;
  /// The text sent to the instrument; only a write has one.
  virtual String GetSCPIInstruction() const = 0;
};

} // namespace portico
