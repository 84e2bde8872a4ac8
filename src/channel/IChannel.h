#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/shared/IResponse.h"

namespace portico {

/// A communication channel to an instrument. Every operation answers with a response; a driver's failure is in it.
/// Open first, then any mix of the others, then close.
class IChannel : public virtual IObject {
public:
  virtual Ref<IResponse> OpenChannel(const String& Name) = 0;
  virtual Ref<IResponse> WriteData(const String& Data) = 0;
  virtual Ref<IResponse> ReadData() = 0;
  virtual Ref<IResponse> CloseChannel() = 0;
  /// Kept for the contract: nothing in the program asks for it.
  virtual Ref<IResponse> GetChannelAttribute(const String& Name) = 0;
  virtual Ref<IResponse> SetChannelAttribute(const String& Name, const String& Value) = 0;
};

namespace Class {

/// The one channel, which its creator holds.
inline constexpr ClassKey<IChannel> DriverSession{u"DriverSession"};

} // namespace Class

/// The one channel. Set when the communication classes are registered, before any instrument is open.
extern Ref<IChannel> gChannel;

} // namespace portico
