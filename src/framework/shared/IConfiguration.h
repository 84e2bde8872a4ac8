#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/shared/ConfigurationItems.h"
#include "framework/shared/IResponse.h"

#include <cstdint>

namespace portico {

/// One flat table of named text items, which steers everything. The items that the program knows, and what they hold,
/// stand in ConfigurationItems.h.
class IConfiguration : public virtual IObject {
public:
  /// An absent item raises `NoSuchItem`, whichever way it is read.
  virtual String ItemValue(StringView Name) = 0;
  /// Makes the item if need be.
  virtual void ItemValue(StringView Name, StringView Value) = 0;

  /// The same for an item that the program knows. A configuration that can remembers in the key where the item stands.
  virtual String ItemByKey(const ItemName& Key) { return ItemValue(Key.Name); }
  virtual void ItemByKey(const ItemName& Key, StringView Value) { ItemValue(Key.Name, Value); }
  String ItemValue(const ItemName& Key) { return ItemByKey(Key); }
  void ItemValue(const ItemName& Key, StringView Value) { ItemByKey(Key, Value); }

  /// Anything but "On" counts as off.
  bool IsOn(const ItemKey<ItemType::Switch>& Key) { return ItemByKey(Key) == ItemText::On; }
  /// A text that does not read as true or false raises `TypeMismatch`.
  bool IsTrue(const ItemKey<ItemType::Truth>& Key);
  /// A text that does not read as a number raises `TypeMismatch`, a number over 32 bits `Overflow`.
  std::int32_t Milliseconds(const ItemKey<ItemType::Interval>& Key);

  void Set(const ItemKey<ItemType::Switch>& Key, bool on) { ItemByKey(Key, on ? ItemText::On : ItemText::Off); }
  void Set(const ItemKey<ItemType::Truth>& Key, bool truth) {
    ItemByKey(Key, truth ? ItemText::True : ItemText::False);
  }
};

/// The table as XML: a root `Parameters` of `Parameter` elements with the attribute `Name` and the value as text.
/// Kept for the contract: nothing in the program asks for it, since nothing sends a "CONFIG" instruction.
class IConfigurationServer : public virtual IObject {
public:
  /// Writes the given items; answers with all. Text that is not XML raises `InvalidArgument`.
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
