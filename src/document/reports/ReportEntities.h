#pragma once

#include "document/entities/IDataEntity.h"
#include "framework/shared/IReport.h"

/// What a report means in the conversation.
namespace portico::modAppGlobals {

/// A new entity, or nothing for a report that shows nothing. No report raises 5.
///
/// A write whose text begins the line being run is an "Instruction", any other an "AutomaticInstruction"; needs
/// `gConfiguration` for that.
Ref<IDataEntity> Report2DataEntity(const Ref<IReport>& Report);

/// The text, with CR LF behind it unless it ends in CR LF.
String AddTerminalNewLineToString(const String& ToString);

/// The same for an entity's data. No entity raises 5.
void TerminateEntityDataWithNewLine(const Ref<IDataEntity>& DataEntity);

} // namespace portico::modAppGlobals
