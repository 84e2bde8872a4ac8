#pragma once

#include "framework/errors/Value.h"
#include "framework/objects/ClassKey.h"

#include <cstdint>

namespace portico {

/// A place in an iteratable object: an entity, or the end marker behind the last one.
class IPosition : public virtual IObject {
public:
  /// The stamp of the position's entity. Part of the contract; nothing in the program asks for it.
  virtual String ID() const = 0;
};

/// What an iterator walks.
class IIteratableObject : public virtual IObject {
public:
  /// 0 the same place, 1 the first stands before the second, 2 behind it.
  std::int32_t ComparePositions(const Ref<IPosition>& Position1, const Ref<IPosition>& Position2) const {
    return IIteratableObject_ComparePositions(Position1, Position2);
  }
  virtual Ref<IPosition> NextPosition(const Ref<IPosition>& Index) const = 0;
  /// Holds the entity.
  virtual Value Item(const Ref<IPosition>& Index) const = 0;
  virtual Ref<IPosition> StartOfObject() const = 0;
  virtual Ref<IPosition> EndOfObject() const = 0;
  std::int32_t Count() const { return IIteratableObject_Count(); }

private:
  // What an object also offers under the same name by itself: a call through the interface is told apart.
  virtual std::int32_t IIteratableObject_ComparePositions(const Ref<IPosition>& Position1,
                                                          const Ref<IPosition>& Position2) const = 0;
  virtual std::int32_t IIteratableObject_Count() const = 0;
};

/// A half-open range of an iteratable object: its start is included, its end is not.
class ISelectableObject : public virtual IObject {
public:
  virtual Ref<IPosition> StartOfSelection() const = 0;
  virtual Ref<IPosition> EndOfSelection() const = 0;
  virtual bool IsSelectionEmpty() const = 0;
};

/// Walks an object, or its selection. The item operations give a value that holds the entity, or null when done.
class IIterator : public virtual IObject {
public:
  /// Reads the bounds once: later changes of the selection do not reach the iterator.
  virtual void Attach(const Ref<IIteratableObject>& Object) = 0;
  virtual Value FirstItem() = 0;
  virtual Value CurrentItem() const = 0;
  virtual bool IsDone() const = 0;
  virtual Value NextItem() = 0;
  /// Does nothing and gives an empty value; before the iterator is initialised it raises `NotImplemented`. Part of the
  /// contract; nothing in the program calls it.
  virtual Value SkipTo(const String& Name, const String& Value) = 0;
};

namespace Class {

/// "IterateAll" or "IterateSelection".
inline constexpr ClassKey<IIterator, StringView> SelectionIterator{u"SelectionIterator"};

} // namespace Class

} // namespace portico
