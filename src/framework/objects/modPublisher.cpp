#include "framework/objects/modPublisher.h"

#include "framework/errors/HuntERR.h"

namespace portico::modPublisher {

void Notify(CSubscribers& Subscribers, const Ref<IObject>& Subject) try {
  // The live list, by position: a subscriber may subscribe or unsubscribe while it is being updated.
  for (std::size_t i = 1; i <= Subscribers.Count(); ++i) {
    TryUpdate(Subscribers.Item(static_cast<std::int32_t>(i)), Subject);
  }
} catch (...) {
  PassOn(u"modPublisher.Notify(Subscribers,Subject)");
}

void TryUpdate(const Ref<ISubscriber>& Subscriber, const Ref<IObject>& Subject) try {
  Subscriber->Update(Subject);
} catch (...) {
  StopHere(u"modPublisher.TryUpdate(Subscriber,Subject)", {Subscriber, Subject});
}

void Subscribe(CSubscribers& Subscribers, const Ref<ISubscriber>& Subscriber) try {
  Subscribers.Add(Subscriber, u"");
} catch (...) {
  PassOn(u"modPublisher.Subscribe(Subscribers,Subscriber)");
}

void Unsubscribe(CSubscribers& Subscribers, const Ref<ISubscriber>& Subscriber) try {
  Subscribers.Remove(Subscriber);
} catch (...) {
  PassOn(u"modPublisher.Unsubscribe(Subscribers,Subscriber)");
}

} // namespace portico::modPublisher
