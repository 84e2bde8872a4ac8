#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/modGlobals.h"

#include <type_traits>
#include <utility>

namespace portico {

/// Makes one kind of object from parameters.
class ICreator : public virtual IObject {
public:
  /// The string by which the factory finds this creator.
  virtual Value Specification() const = 0;
  /// A wrong number of parameters raises `WrongParameterCount`; a product that cannot be made raises the creator's own
  /// error.
  virtual Ref<IObject> Create(const Params& Parameters) = 0;
  /// Exact, case-sensitive equality with this creator's specification. Kept for the contract: the factory finds a
  /// creator by its key and does not ask.
  virtual bool IsMatch(const Value& Specification) const = 0;
};

/// Makes nearly every object of the system from a specification string and parameters.
class IObjectFactory : public virtual IObject {
public:
  /// An unknown specification raises `InvalidArgument`. The search ignores case.
  virtual Ref<IObject> CreateObject(const Value& Specification, const Params& Parameters) = 0;
  /// Raises the same. Kept for the contract, like `Remove` and `Substitue`: nothing in the program asks for them.
  virtual Ref<ICreator> GetCreator(const Value& Specification) = 0;
  /// A specification that is registered already raises `DuplicateKey`.
  virtual void Add(const Ref<ICreator>& Creator) = 0;
  /// Removes the creator registered under the given creator's specification.
  virtual void Remove(const Ref<ICreator>& Creator) = 0;
  /// `Remove`, then `Add`: the specification must be registered already.
  virtual void Substitue(const Ref<ICreator>& Creator) = 0;

  /// `CreateObject` for a key. A factory that can remembers in the key where the creator stands.
  virtual Ref<IObject> CreateByKey(const CreatorKey& Key, const Params& Parameters) {
    return CreateObject(Value::Borrowed(Key.Specification), Parameters);
  }
};

/// Registers a group of classes. Holds no state.
class IRegistrar : public virtual IObject {
public:
  virtual void RegisterClasses(const Ref<IObjectFactory>& ObjectFactory) = 0;
  /// Kept for the contract: in the program the classes go with the factory.
  virtual void UnregisterClasses(const Ref<IObjectFactory>& ObjectFactory) = 0;
};

/// The one factory; unset before `CreateObjectFactory` and after the window's end.
extern Ref<IObjectFactory> gObjectFactory;

/// Asks the one factory and converts the product to the interface that the caller expects. For specifications and
/// parameters that are known only when the program runs.
template <class T>
Ref<T> Create(StringView Specification, const Params& Parameters = {}) {
  return Cast<T>(gObjectFactory->CreateObject(Value::Borrowed(Specification), Parameters));
}

/// The same for a creator that is known by its key.
template <class T>
Ref<T> CreateByKey(const CreatorKey& Key, const Params& Parameters = {}) {
  return Cast<T>(gObjectFactory->CreateByKey(Key, Parameters));
}

/// The same for a class that is known by its key.
template <class Interface, class... Parameters>
Ref<Interface> Create(const ClassKey<Interface, Parameters...>& Key, std::type_identity_t<Parameters>... Arguments) {
  return CreateByKey<Interface>(Key, modGlobals::VarArray(std::move(Arguments)...));
}

/// The same for a caller that needs another interface of the product.
template <class Other, class Interface, class... Parameters>
Ref<Other> CreateAs(const ClassKey<Interface, Parameters...>& Key, std::type_identity_t<Parameters>... Arguments) {
  return CreateByKey<Other>(Key, modGlobals::VarArray(std::move(Arguments)...));
}

} // namespace portico
