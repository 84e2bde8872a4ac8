#pragma once

#include "framework/errors/Ref.h"
#include "framework/errors/Refusal.h"
#include "framework/objects/ClassKey.h"

namespace portico {

/// Hears of everything that happens. The subject is always an `IReport` in this system.
class ISubscriber : public virtual IObject {
public:
  virtual void Update(const Ref<IObject>& Subject) = 0;
  /// The same for the publisher, which stops errors: one that is foreseen comes back unraised.
  virtual Refusal Offer(const Ref<IObject>& Subject) {
    Update(Subject);
    return {};
  }
};

/// Hands each subject to whoever has subscribed, synchronously and in the order of subscription. A subscriber that
/// fails stops neither the others nor the publisher.
class IPublisher : public virtual IObject {
public:
  /// Holds a reference; whoever subscribes twice is updated twice.
  virtual void Subscribe(const Ref<ISubscriber>& Subscriber) = 0;
  /// Removes the first subscription of this object, if there is one.
  virtual void Unsubscribe(const Ref<ISubscriber>& Subscriber) = 0;
  virtual void Notify(const Ref<IObject>& Subject) = 0;
};

namespace Class {

/// The one publisher of the program: it hears of every report.
inline constexpr ClassKey<IPublisher> CmdSubscriptionAgent{u"CmdSubscriptionAgent"};

} // namespace Class

} // namespace portico
