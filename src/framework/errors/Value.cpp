#include "framework/errors/Value.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/Raise.h"

#include <cmath>
#include <limits>

namespace portico {
namespace {

std::int32_t RoundToLong(double number) {
  const double rounded = std::nearbyint(number); // the default mode rounds halves to even
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max())) {
    HuntERR::RaiseStandard(ErrorNumber::Overflow);
  }
  return static_cast<std::int32_t>(rounded);
}

double ReadNumberOrRaise(StringView text) {
  const auto number = ReadNumber(text);
  if (!number) RaiseTypeMismatch();
  return *number;
}

} // namespace

void RaiseUnsetReference() { HuntERR::RaiseStandard(ErrorNumber::MissingObject); }
void RaiseTypeMismatch() { HuntERR::RaiseStandard(ErrorNumber::TypeMismatch); }

std::optional<StringView> Value::AsText() const {
  if (const auto* own = std::get_if<String>(&m_value)) return *own;
  if (const auto* borrowed = std::get_if<StringView>(&m_value)) return *borrowed;
  return {};
}

bool Value::IsNumeric() const {
  if (const auto text = AsText()) return ReadNumber(*text).has_value();
  return std::holds_alternative<std::int32_t>(m_value) || std::holds_alternative<double>(m_value);
}

String Value::TextForm() const {
  if (const auto text = AsText()) return String(u"'").append(*text).append(u"'");
  if (const auto* number = std::get_if<std::int32_t>(&m_value)) return ToText(std::int64_t{*number});
  if (const auto* fraction = std::get_if<double>(&m_value)) return ToText(*fraction);
  if (const auto* object = std::get_if<Ref<IObject>>(&m_value)) {
    return *object ? String(u"{").append((*object)->ClassName()).append(u"}") : u"{Null}";
  }
  if (const auto* description = std::get_if<Description>(&m_value)) return u"{" + description->ClassName + u"}";
  if (std::holds_alternative<ParamsPointer>(m_value) || std::holds_alternative<BytesPointer>(m_value)) {
    return u"{Array}";
  }
  if (std::holds_alternative<NullType>(m_value)) return u"{Null}";
  return IsEmpty() ? u"{Empty}" : u"{?}";
}

Value Value::Described() const {
  const auto* object = std::get_if<Ref<IObject>>(&m_value);
  if (object == nullptr) return *this;
  if (!*object) return NullType{};
  Value value;
  value.m_value = Description{String((*object)->ClassName())};
  return value;
}

String Value::ToString() const {
  if (const auto text = AsText()) return String(*text);
  if (const auto* number = std::get_if<std::int32_t>(&m_value)) return ToText(std::int64_t{*number});
  if (const auto* fraction = std::get_if<double>(&m_value)) return ToText(*fraction);
  if (const auto* truth = std::get_if<bool>(&m_value)) return *truth ? u"True" : u"False";
  if (!IsEmpty()) RaiseTypeMismatch();
  return {};
}

std::int32_t Value::ToLong() const {
  if (const auto* number = std::get_if<std::int32_t>(&m_value)) return *number;
  if (const auto* fraction = std::get_if<double>(&m_value)) return RoundToLong(*fraction);
  if (const auto* truth = std::get_if<bool>(&m_value)) return *truth ? -1 : 0; // true has all bits set
  if (const auto text = AsText()) return RoundToLong(ReadNumberOrRaise(*text));
  if (!IsEmpty()) RaiseTypeMismatch();
  return 0;
}

bool Value::ToBoolean() const {
  if (const auto* truth = std::get_if<bool>(&m_value)) return *truth;
  if (const auto* number = std::get_if<std::int32_t>(&m_value)) return *number != 0;
  if (const auto* fraction = std::get_if<double>(&m_value)) return *fraction != 0;
  if (const auto text = AsText()) {
    if (EqualNoCase(*text, u"True")) return true;
    if (EqualNoCase(*text, u"False")) return false;
    return ReadNumberOrRaise(*text) != 0;
  }
  if (!IsEmpty()) RaiseTypeMismatch();
  return false;
}

const Params& Value::ToArray() const {
  const auto* array = std::get_if<ParamsPointer>(&m_value);
  if (array == nullptr) RaiseTypeMismatch();
  return **array;
}

const ByteArray& Value::ToByteArray() const {
  static const ByteArray none; // an array that was never allocated is a legal empty array
  if (IsEmpty()) return none;
  const auto* bytes = std::get_if<BytesPointer>(&m_value);
  if (bytes == nullptr) RaiseTypeMismatch();
  return **bytes;
}

Ref<IObject> Value::Object() const {
  if (const auto* object = std::get_if<Ref<IObject>>(&m_value)) return *object;
  if (!IsEmpty()) RaiseTypeMismatch();
  return {};
}

} // namespace portico
