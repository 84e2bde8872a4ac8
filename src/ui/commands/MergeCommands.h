#pragma once

#include "document/entities/CDataFIFO.h"
#include "framework/objects/Creator.h"
#include "framework/shared/ICommand.h"

namespace portico {

// `Execute` raises 0x80041460 before `Initialize`.

/// Replaces the selection of a container by what an iterator yields.
class CMerge final : public ICommand {
public:
  StringView ClassName() const override { return u"CMerge"; }
  /// Nothing raises 5, a target that is no `CDataFIFO` 13.
  void Initialize(const Ref<IIteratableObject>& Target, const Ref<IIterator>& SourceIterator);
  void Execute() override;

private:
  Ref<CDataFIFO> m_target;
  Ref<IIterator> m_sourceIterator;
  bool m_initialized = false;
};

/// The same with the entities of a log. It is read when the command is made, so that a bad file fails there.
class CMergeFrom final : public ICommand {
public:
  StringView ClassName() const override { return u"CMergeFrom"; }
  /// Needs the factory (424). The iterator is attached to what was read.
  void Initialize(const Ref<IIteratableObject>& Target, const String& FileName, const Ref<IIterator>& SourceIterator);
  void Execute() override;

private:
  Ref<ICommand> m_merge;
  bool m_initialized = false;
};

/// "MergeDataContainer": the target and the iterator.
extern const CreatorRow CtorMerge;
/// "MergeDataContainerFromFile": the target, the file's name and the iterator.
extern const CreatorRow CtorMergeFrom;

} // namespace portico
