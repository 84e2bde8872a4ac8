#pragma once

#include "document/entities/CDataFIFO.h"
#include "framework/objects/Creator.h"
#include "framework/shared/UserCommand.h"

namespace portico {

/// Replaces the selection of a container by what an iterator yields.
class CMerge final : public UserCommand {
public:
  StringView ClassName() const override { return u"CMerge"; }
  /// A null argument raises `InvalidArgument`, a target that is no `CDataFIFO` `TypeMismatch`.
  void Initialize(const Ref<IIteratableObject>& Target, const Ref<IIterator>& SourceIterator);

private:
  void Act() override;
  StringView ReportedName() const override { return u"CPaste"; } // the class's first name

  Ref<CDataFIFO> m_target;
  Ref<IIterator> m_sourceIterator;
};

/// The same with the entities of a log. It is read when the command is made, so that a bad file fails there.
class CMergeFrom final : public UserCommand {
public:
  StringView ClassName() const override { return u"CMergeFrom"; }
  /// No factory raises `ObjectRequired`. The iterator is attached to what was read.
  void Initialize(const Ref<IIteratableObject>& Target, const String& FileName, const Ref<IIterator>& SourceIterator);

private:
  void Act() override;

  Ref<ICommand> m_merge;
};

/// "MergeDataContainer": the target and the iterator.
extern const CreatorRow CtorMerge;
/// "MergeDataContainerFromFile": the target, the file's name and the iterator.
extern const CreatorRow CtorMergeFrom;

} // namespace portico
