#pragma once

#include "configuration/PackedText.h"

#include <memory>
#include <optional>

namespace portico {

class CSetting;

/// One of the settings of a collection, in little memory. Nearly all have the name of their key, a value that is the
/// washed one, and no object that shows them; whatever is otherwise stands apart.
class SettingRecord {
public:
  SettingRecord(StringView key, StringView value) : m_key(Shared(key)), m_value(Shared(value)) {}

  const PackedText& Key() const { return m_key; }
  const PackedText& Value() const { return m_value; }
  const PackedText& Name() const { return m_rest && m_rest->Name ? *m_rest->Name : m_key; }
  const PackedText& Washed() const { return m_rest && m_rest->Washed ? *m_rest->Washed : m_value; }
  CSetting* Object() const { return m_rest ? m_rest->Object : nullptr; }
  /// The name has become another than the key, case aside.
  bool IsRenamed() const { return m_rest && m_rest->Name && !EqualNoCase(*m_rest->Name, m_key); }
  bool IsWashed() const { return !m_rest || !m_rest->Washed; }

  /// The washed value stays what it was.
  void SetValue(PackedText value) { Set(Name(), std::move(value), Washed()); }
  void Wash() { Set(Name(), m_value, m_value); }
  void Set(PackedText name, PackedText value, PackedText washed);
  void SetObject(CSetting* object);

private:
  struct Rest {
    std::optional<PackedText> Name;   // if it is not the key
    std::optional<PackedText> Washed; // if it is not the value
    CSetting* Object = nullptr;       // which is not owned
  };

  Rest& Exceptions();
  void DropEmptyRest();

  PackedText m_key;
  PackedText m_value;
  std::unique_ptr<Rest> m_rest;
};

} // namespace portico
