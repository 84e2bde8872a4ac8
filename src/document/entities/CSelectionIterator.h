#pragma once

#include "document/entities/CDataPosition.h"

namespace portico {

/// Walks a whole object ("IterateAll") or its selection ("IterateSelection", which is part of the contract and which
/// nothing in the program asks for).
class CSelectionIterator final : public IIterator {
public:
  StringView ClassName() const override { return u"CSelectionIterator"; }

  /// Any other text raises `InvalidArgument`.
  void Initialize(const String& Specification);
  void Attach(const Ref<IIteratableObject>& Object) override;
  Value FirstItem() override;
  Value CurrentItem() const override;
  bool IsDone() const override;
  Value NextItem() override;
  Value SkipTo(const String& Name, const String& Value) override;

private:
  enum class State { NotInitialized = 0, Running = 1, Done = 2 };
  enum class Kind { All = 0, Selection = 1 };

  State m_state = State::NotInitialized;
  Kind m_kind = Kind::All;
  Ref<IIteratableObject> m_object;
  Ref<IPosition> m_start;
  Ref<IPosition> m_end;
  Ref<IPosition> m_current;
};

/// Makes `Class::SelectionIterator`.
extern const CreatorRow CtorIterator;

} // namespace portico
