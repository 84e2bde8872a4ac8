#pragma once

#include "framework/Creator.h"
#include "framework/ICommand.h"

namespace portico {

/// What the commands on the instrument share. They work by instructions, so that whatever they do takes the road of a
/// typed line and shows up in the same reports. `Execute` raises 0x80041460 before `Initialize`, and 17 if the
/// instruction processor declines.
class InstrumentCommand : public ICommand {
public:
  void Initialize() { m_initialized = true; }

protected:
  void CheckInitialized() const;

private:
  bool m_initialized = false;
};

/// Opens the instrument that the command line names, or that the user chooses; none if the user cancels. An instrument
/// that does not open is told in the reports. A dialog that cannot be made raises 17.
class COpenInstrument final : public InstrumentCommand {
public:
  StringView ClassName() const override { return u"COpenInstrument"; }
  void Execute() override;
};

/// Closes the instrument, whether or not one is open.
class CCloseInstrument final : public InstrumentCommand {
public:
  StringView ClassName() const override { return u"CCloseInstrument"; }
  void Execute() override;
};

class CReadInstrumentData final : public InstrumentCommand {
public:
  StringView ClassName() const override { return u"CReadInstrumentData"; }
  void Execute() override;
};

/// Writes the command that asks for errors, and reads.
class CQueryStatus final : public InstrumentCommand {
public:
  StringView ClassName() const override { return u"CQueryStatus"; }
  void Execute() override;
};

/// Writes "*OPC?", and reads.
class CWaitOPC final : public InstrumentCommand {
public:
  StringView ClassName() const override { return u"CWaitOPC"; }
  void Execute() override;
};

// None takes a parameter.
extern const CreatorRow CtorOpenInstrument;
extern const CreatorRow CtorCloseInstrument;
extern const CreatorRow CtorReadInstrumentData;
extern const CreatorRow CtorQueryStatus;
extern const CreatorRow CtorWaitOPC;

} // namespace portico
