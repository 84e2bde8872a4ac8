#pragma once

#include "framework/errors/Ref.h"

#include <cstdint>
#include <vector>

namespace portico {

/// A named text value.
class IAttribute : public virtual IObject {
public:
  /// Names are compared without regard to case, always; `CaseSensitive` concerns the values. An unset reference is
  /// never the same.
  virtual bool IsSame(const Ref<IAttribute>& Other, bool CaseSensitive) const = 0;
  /// True while the value equals the washed one. Kept for the contract, like `Wash`: nothing in the program asks.
  virtual bool IsDirty() const = 0;
  /// The washed value becomes the current value.
  virtual void Wash() = 0;
  virtual const String& Value() const = 0;
  virtual void Value(const String& newValue) = 0;
  virtual const String& Name() const = 0;
};

/// An ordered, keyed collection of attributes. Keys ignore case.
class IAttributes : public virtual IObject {
public:
  /// The last answer received from the attributes in order, stopping at the first false; false for an empty collection.
  virtual bool IsDirty() const = 0;
  virtual void Wash() = 0;
  /// The same number of attributes, each found by name and the same.
  virtual bool IsSame(const Ref<IAttributes>& Other, bool CaseSensitive) const = 0;
  /// A name that is present raises `DuplicateKey`.
  virtual Ref<IAttribute> Add(const String& AttributeName, const String& AttributeValue) = 0;
  /// An unset reference for an absent name.
  virtual Ref<IAttribute> Item(const String& AttributeName) const = 0;
  /// An absent name raises `BadIndex`.
  virtual String ItemValue(const String& Name) const = 0;
  /// Adds the attribute if the name is new.
  virtual void ItemValue(const String& Name, const String& Value) = 0;
  virtual std::int32_t Count() const = 0;
  /// An absent name raises `InvalidArgument`.
  virtual void Remove(const String& AttributeName) = 0;
  /// The items in order of insertion.
  virtual std::vector<Ref<IAttribute>> NewEnum() const = 0;
};

} // namespace portico
