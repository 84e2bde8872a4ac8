#include "framework/shared/IConfiguration.h"

#include "framework/errors/Value.h"

namespace portico {

Ref<IConfiguration> gConfiguration;

bool IConfiguration::IsTrue(ItemKey<ItemType::Truth> Key) { return Value(ItemValue(Key)).ToBoolean(); }

std::int32_t IConfiguration::Milliseconds(ItemKey<ItemType::Interval> Key) { return Value(ItemValue(Key)).ToLong(); }

} // namespace portico
