#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"

namespace portico {

// What many operations begin with.

/// A method that is called before its object's `Initialize` raises `NotInitialized`.
inline void CheckInitialized(bool initialized) {
  HuntERR::Check(initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
}

/// A property that is read or written before its object's `Initialize` raises `NotInitialized`, in its own words.
inline void CheckAccessible(bool initialized) {
  HuntERR::Check(initialized, ErrorNumber::NotInitialized, PropertyBeforeInitialize);
}

/// No factory raises `ObjectRequired`, or another number.
inline void CheckFactory(std::int32_t number = ErrorNumber::ObjectRequired) {
  HuntERR::Check(bool(gObjectFactory), number, u"This operation requires an object factory.");
}

/// No `gConfiguration` raises `ObjectRequired`.
inline void CheckConfiguration() {
  HuntERR::Check(bool(gConfiguration), ErrorNumber::ObjectRequired, u"This operation requires a configuration server.");
}

} // namespace portico
