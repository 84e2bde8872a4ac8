#pragma once

#include "framework/objects/Creator.h"
#include "framework/shared/UserCommand.h"

namespace portico {

// The commands on the instrument work by instructions, so that whatever they do takes the road of a typed line and
// shows up in the same reports. An instruction that nobody takes raises `CannotCarryOut`.

/// Opens the instrument that the command line names, or that the user chooses; none if the user cancels. An instrument
/// that does not open is told in the reports. A dialog that cannot be made raises `CannotCarryOut`.
class COpenInstrument final : public PlainCommand {
public:
  StringView ClassName() const override { return u"COpenInstrument"; }

private:
  void Act() override;
};

/// Closes the instrument, whether or not one is open.
class CCloseInstrument final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CCloseInstrument"; }

private:
  void Act() override;
};

class CReadInstrumentData final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CReadInstrumentData"; }

private:
  void Act() override;
};

/// Writes the command that asks for errors, and reads.
class CQueryStatus final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CQueryStatus"; }

private:
  void Act() override;
};

/// Writes "*OPC?", and reads.
class CWaitOPC final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CWaitOPC"; }

private:
  void Act() override;
};

// Creators, none of which takes a parameter.
extern const CreatorRow CtorOpenInstrument;
extern const CreatorRow CtorCloseInstrument;
extern const CreatorRow CtorReadInstrumentData;
extern const CreatorRow CtorQueryStatus;
extern const CreatorRow CtorWaitOPC;

} // namespace portico
