#pragma once

#include "framework/errors/Ref.h"
#include "framework/shared/IResponse.h"
#include "platform/IExtendedDriver.h"

#include <cstdint>

namespace portico {

/// Where an answer of any size goes beside the conversation.
struct AnswerDiversion {
  /// May throw; that ends the read, and goes on from there.
  AnswerSink Sink;
  /// Of the read; null until it has ended.
  Ref<IResponse> Response = {};
};

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
  /// A success if the driver can read an answer of any size for the instrument that is open.
  virtual Ref<IResponse> CanDivert() = 0;
  /// From now on `ReadData` hands each answer to this sink, piece by piece, whatever its size. What it answers stays
  /// the same: an answer that is too long for it is a success with empty data. Null for no longer; what is given must
  /// stay until then.
  virtual void Divert(AnswerDiversion* diversion) = 0;
};

} // namespace portico
