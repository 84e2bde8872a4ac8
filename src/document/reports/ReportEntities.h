#pragma once

#include "document/entities/IDataEntity.h"
#include "framework/shared/IReport.h"

/// What a report means in the conversation.
namespace portico::modAppGlobals {

/// A new entity, or null for a report that shows nothing. A null report raises `InvalidArgument`.
///
/// A write whose text begins the line being run is an "Instruction", any other an "AutomaticInstruction"; needs
/// `gConfiguration` for that.
Ref<IDataEntity> Report2DataEntity(const Ref<IReport>& Report);

/// Whether the report shows any text in the conversation. Needs `gConfiguration`.
bool IsShown(const IReport& Report);

/// The text, with CR LF behind it unless it ends in CR LF.
String AddTerminalNewLineToString(const String& ToString);

/// The same for an entity's data. A null entity raises `InvalidArgument`.
void TerminateEntityDataWithNewLine(const Ref<IDataEntity>& DataEntity);

} // namespace portico::modAppGlobals
