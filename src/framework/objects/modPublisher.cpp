#include "framework/objects/modPublisher.h"

#include "framework/errors/HuntERR.h"

#include <utility>

namespace portico::modPublisher {
namespace {

constexpr StringView TryUpdateLabel = u"modPublisher.TryUpdate(Subscriber,Subject)";

} // namespace

void Notify(CSubscribers& Subscribers, const Ref<IObject>& Subject) try {
  // The live list, by position: a subscriber may subscribe or unsubscribe while it is being updated.
  for (std::size_t i = 1; i <= Subscribers.Count(); ++i) {
    TryUpdate(Subscribers.At(i), Subject);
  }
} catch (...) {
  PassOn(u"modPublisher.Notify(Subscribers,Subject)");
}

void TryUpdate(const Ref<ISubscriber>& Subscriber, const Ref<IObject>& Subject) try {
  if (Refusal refusal = Subscriber->Offer(Subject)) {
    std::move(refusal).StopHere({{}, TryUpdateLabel}, {Subscriber, Subject});
  }
} catch (...) {
  StopHere(TryUpdateLabel, {Subscriber, Subject});
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
