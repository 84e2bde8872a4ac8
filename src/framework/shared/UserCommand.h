#pragma once

#include "framework/errors/Value.h"
#include "framework/shared/ICommand.h"

namespace portico {

/// What the commands of the user's share. `Execute` raises `NotInitialized` before `Initialize`, and its failures are
/// reported under the class's name.
class UserCommand : public ICommand {
public:
  void Execute() final;

protected:
  /// What every `Initialize` ends with.
  void SetInitialized() { m_initialized = true; }

private:
  /// What the command does.
  virtual void Act() = 0;
  /// The name that reports know the class by.
  virtual StringView ReportedName() const { return ClassName(); }

  bool m_initialized = false;
};

/// A command that needs nothing but to be initialized.
class PlainCommand : public UserCommand {
public:
  void Initialize() { SetInitialized(); }
};

/// `CreatorRow::Make` of such a command.
template <class Command>
Ref<IObject> MakePlainCommand(const Params&) {
  auto command = New<Command>();
  command->Initialize();
  return command;
}

} // namespace portico
