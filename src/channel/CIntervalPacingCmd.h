#pragma once

#include "channel/CChainLink.h"
#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"

namespace portico {

/// The link that paces instructions: it waits for what remains of the last interval and starts the next, which then
/// runs while the inner commands do. Pacing is thus the minimum time from the start of one instruction to the start of
/// the next.
class CIntervalPacingCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"CIntervalPacingCmd"; }

  /// Milliseconds; a negative interval raises `InvalidArgument`, zero is allowed.
  void Initialize(const Ref<ICommand>& InnerCommand, std::int32_t Interval, const Ref<IPublisher>& Publisher);

private:
  Ref<IResponse> Operate() override;
  /// The labels have always named the read command; error trails show them so.
  StringView LabelName() const override { return u"CReadCmd"; }

  std::int32_t m_interval = 0;
};

namespace Class {

/// The inner command.
inline constexpr ClassKey<ICommand, Ref<ICommand>> IntervalPacingCommand{u"IntervalPacingCommand"};

} // namespace Class

extern const CreatorRow CtorIntervalPacingCmd;

} // namespace portico
