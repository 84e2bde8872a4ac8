#pragma once

#include "ui/dialogs/frmSelectFile.h"

namespace portico {

// What the user's commands ask about files.

/// One that cannot be made raises `CannotCreate`.
Ref<frmSelectFile> MakeSelectDialog();

/// The file that the user chooses; empty if the user cancels. Asks by a dialog of its own.
String AskForFile(const String& title, std::int32_t filters);

/// Where the user wants to save something that may be of any kind; empty if the user cancels. The dialog has asked
/// before a file is overwritten.
String AskWhereToSave(const String& title);

/// Whether the user wants a file that exists to be erased.
bool AskToErase(const String& name);

} // namespace portico
