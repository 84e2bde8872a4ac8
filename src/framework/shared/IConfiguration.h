#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/shared/IResponse.h"

namespace portico {

/// One flat table of named text items, which steers everything.
class IConfiguration : public virtual IObject {
public:
  /// An absent item raises 0x80041461.
  virtual String ItemValue(StringView Name) = 0;
  /// Makes the item if need be.
  virtual void ItemValue(StringView Name, StringView Value) = 0;
};

/// The table as XML: a root `Parameters` of `Parameter` elements with the attribute `Name` and the value as text.
class IConfigurationServer : public virtual IObject {
public:
  /// Writes the given items; answers with all. Text that is not XML raises 5.
  virtual Ref<IResponse> Update(const String& Configuration) = 0;
  /// Answers with all items for the empty text, otherwise with the given document, its values filled in.
  virtual Ref<IResponse> Retrieve(const String& Configuration) = 0;
};

namespace Class {

/// The one server. It also gives `IConfigurationServer`.
inline constexpr ClassKey<IConfiguration> Configuration{u"Configuration"};

} // namespace Class

/// The window's view of the configuration; unset without one. Set and let go by whoever owns the window.
extern Ref<IConfiguration> gConfiguration;

} // namespace portico
