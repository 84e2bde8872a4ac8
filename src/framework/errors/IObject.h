#pragma once

#include "framework/text/text.h"

namespace portico {

/// Root of all objects that cross an interface. Interfaces derive from it virtually, so that one object has one
/// `IObject`, which is its identity. Objects are shared by `Ref` and never copied.
class IObject {
public:
  IObject() = default;
  IObject(const IObject&) = delete;
  IObject& operator=(const IObject&) = delete;
  virtual ~IObject() = default;

  /// The name of the object's class, such as u"CWriteCmd". Reports, source labels and error reports show it.
  virtual StringView ClassName() const = 0;
};

} // namespace portico
