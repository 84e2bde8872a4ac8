#pragma once

#include "framework/objects/CSubscribers.h"

/// The logic of publishing, so that any class can be a publisher over subscribers of its own.
namespace portico::modPublisher {

/// Updates every subscriber in order; raises nothing that a subscriber caused.
void Notify(CSubscribers& Subscribers, const Ref<IObject>& Subject);
/// Updates one. Its failure is recorded and goes no further.
void TryUpdate(const Ref<ISubscriber>& Subscriber, const Ref<IObject>& Subject);
void Subscribe(CSubscribers& Subscribers, const Ref<ISubscriber>& Subscriber);
void Unsubscribe(CSubscribers& Subscribers, const Ref<ISubscriber>& Subscriber);

} // namespace portico::modPublisher
