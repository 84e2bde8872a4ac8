#pragma once

#include "framework/errors/CastPointer.h"
#include "framework/errors/IObject.h"

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace portico {

/// Raise `MissingObject` for a call through an unset reference, `TypeMismatch` for a cast to an interface that the
/// object lacks.
[[noreturn]] void RaiseUnsetReference();
[[noreturn]] void RaiseTypeMismatch();

/// A counted reference to an object, or nothing. Not thread-safe: the system has one thread.
template <class T>
class Ref {
public:
  Ref() = default;
  Ref(std::nullptr_t) {} // NOLINT(google-explicit-constructor): nothing is a value of every reference
  explicit Ref(std::shared_ptr<T> object) : m_object(std::move(object)) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> Ref(const Ref<U>& other)
      : m_object(other.Shared()) {} // NOLINT(google-explicit-constructor)
  template <class U>
  requires std::is_convertible_v<U*, T*> Ref(Ref<U>&& other)
      : m_object(std::move(other).Shared()) {} // NOLINT(google-explicit-constructor)

  T* operator->() const {
    if (!m_object) RaiseUnsetReference();
    return m_object.get();
  }
  T& operator*() const { return *operator->(); }
  explicit operator bool() const { return m_object != nullptr; }

  /// The object, or a null pointer.
  T* Get() const { return m_object.get(); }
  const std::shared_ptr<T>& Shared() const& { return m_object; }
  std::shared_ptr<T> Shared() && { return std::move(m_object); }

private:
  std::shared_ptr<T> m_object;
};

/// Makes an object and the first reference to it.
template <class T, class... Args>
Ref<T> New(Args&&... args) {
  return Ref<T>(std::make_shared<T>(std::forward<Args>(args)...));
}

/// Another interface of the same object. An unset reference gives an unset one; an object that lacks the interface
/// raises `TypeMismatch`.
template <class To, class From>
Ref<To> Cast(Ref<From> from) {
  if (!from) return {};
  To* to = CastPointer<To>(from.Get());
  if (to == nullptr) RaiseTypeMismatch();
  return Ref<To>(std::shared_ptr<To>(std::move(from).Shared(), to));
}

/// Identity is that of the `IObject`: two interfaces of one object are the same.
template <class A, class B>
bool IsSameObject(const Ref<A>& a, const Ref<B>& b) {
  return static_cast<const IObject*>(a.Get()) == static_cast<const IObject*>(b.Get());
}

} // namespace portico
