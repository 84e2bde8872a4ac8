#pragma once

#include "framework/objects/CSubscribers.h"
#include "framework/objects/Creator.h"

namespace portico {

/// The publisher `Class::CmdSubscriptionAgent`: the commands of an instruction hand it their reports and know nothing
/// of who is watching. One for the whole program.
class CSubscriptionAgent final : public IPublisher {
public:
  StringView ClassName() const override { return u"CSubscriptionAgent"; }

  void Subscribe(const Ref<ISubscriber>& Subscriber) override;
  void Unsubscribe(const Ref<ISubscriber>& Subscriber) override;
  void Notify(const Ref<IObject>& Subject) override;

private:
  CSubscribers m_subscribers;
};

extern const CreatorRow CtorSubscriptionAgent;

} // namespace portico
