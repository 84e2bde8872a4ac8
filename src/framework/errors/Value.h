#pragma once

#include "framework/errors/Ref.h"

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace portico {

class Value;

/// An array of values with lower bound 0; the argument of every creator. It is read, never changed.
using Params = std::vector<Value>;

/// A tagged value: nothing, null, a string, a number, a boolean, an object reference (which may be unset), an array of
/// values, or an array of bytes. Arrays are shared on copying and never changed.
class Value {
public:
  struct NullType {};

  Value() = default;
  Value(NullType null) : m_value(null) {}
  Value(bool truth) : m_value(truth) {}
  template <std::integral Number>
  requires(!std::same_as<Number, bool> && !std::same_as<Number, char16_t> && sizeof(Number) <= 4) Value(Number number)
      : m_value(static_cast<std::int32_t>(number)) {}
  Value(double number) : m_value(number) {}
  Value(String text) : m_value(std::move(text)) {}
  Value(StringView text) : m_value(String(text)) {}
  Value(const char16_t* text) : m_value(String(text)) {}
  template <class T>
  Value(const Ref<T>& object) : m_value(Ref<IObject>(object)) {}
  /// A text that the caller keeps alive for as long as the value and its copies: a literal, or an argument's.
  static Value Borrowed(StringView text) {
    Value value;
    value.m_value = text;
    return value;
  }
  Value(const Params& array) : m_value(std::make_shared<const Params>(array)) {}
  Value(ByteArray bytes) : m_value(std::make_shared<const ByteArray>(std::move(bytes))) {}

  bool IsEmpty() const { return std::holds_alternative<std::monostate>(m_value); }
  bool IsObject() const { return std::holds_alternative<Ref<IObject>>(m_value); }

  /// A number, or a text that reads as one.
  bool IsNumeric() const;

  /// The form that error reports show: a string between apostrophes, a number in decimal, "{Array}", "{Empty}",
  /// "{Null}" (also for an unset reference), "{" + class name + "}" for an object, "{?}" for anything else.
  String TextForm() const;

  /// The same for who wants nothing but its text form, later: an object is no longer held.
  Value Described() const;

  /// The text that a string value holds; none for a value of another kind.
  std::optional<StringView> AsText() const;

  // Conversions as every reader of a parameter makes them. A value of a kind that cannot be converted raises
  // `TypeMismatch`.
  /// A truth value gives "True" or "False", a value that holds nothing an empty text.
  String ToString() const;
  /// A fraction is rounded to the nearest integer, halves to the even one; a number over 32 bits raises
  /// `Overflow`.
  std::int32_t ToLong() const;
  /// Text reads "True" or "False" in any case, or a number; a number is true unless it is 0.
  bool ToBoolean() const;
  /// A value that holds nothing gives an unset reference; an object that lacks the interface raises `TypeMismatch`.
  template <class T>
  Ref<T> ToObject() const {
    return Cast<T>(Object());
  }
  const Params& ToArray() const;
  const ByteArray& ToByteArray() const;

private:
  Ref<IObject> Object() const;

  struct Description {
    String ClassName; // of an object
  };

  using ParamsPointer = std::shared_ptr<const Params>;
  using BytesPointer = std::shared_ptr<const ByteArray>;
  std::variant<std::monostate, NullType, bool, std::int32_t, double, String, StringView, Ref<IObject>, ParamsPointer,
               BytesPointer, Description>
      m_value;
};

} // namespace portico
