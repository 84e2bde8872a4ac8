#pragma once

#include "framework/errors/Ref.h"
#include "framework/shared/IResponse.h"

#include <cstdint>

namespace portico {

/// What the one channel can do beyond `IChannel`, so that it stays the only place that touches the instrument. Answers
/// as that one does: a driver's failure, or that it cannot, is in the response. No line of a conversation goes by here.
class IChannelExtension : public virtual IObject {
public:
  /// How long each driver call may take from the next one on, `ShortestTimeout` to `LongestTimeout` milliseconds. Holds
  /// for every instrument that is opened from then on, too.
  virtual Ref<IResponse> SetTimeout(std::int32_t Milliseconds) = 0;
  /// Has the instrument drop what it was asked, or makes the connection anew: what was asked is answered no more.
  virtual Ref<IResponse> ClearDevice() = 0;
  /// Gives the instrument's front panel back.
  virtual Ref<IResponse> GoToLocal() = 0;
};

} // namespace portico
