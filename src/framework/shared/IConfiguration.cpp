#include "framework/shared/IConfiguration.h"

#include "framework/errors/Value.h"

namespace portico {

Ref<IConfiguration> gConfiguration;

bool IConfiguration::IsTrue(const ItemKey<ItemType::Truth>& Key) { return Value(ItemByKey(Key)).ToBoolean(); }

std::int32_t IConfiguration::Milliseconds(const ItemKey<ItemType::Interval>& Key) {
  return Value(ItemByKey(Key)).ToLong();
}

} // namespace portico
