#include "framework/objects/CSubscriptionAgent.h"

#include "framework/errors/HuntERR.h"
#include "framework/objects/modPublisher.h"

namespace portico {

// The labels keep the name that the class had first.

void CSubscriptionAgent::Subscribe(const Ref<ISubscriber>& Subscriber) try {
  modPublisher::Subscribe(m_subscribers, Subscriber);
} catch (...) {
  PassOn(u"CtorTF.IPublisher_Subscribe(Subscriber)", {Subscriber});
}

void CSubscriptionAgent::Unsubscribe(const Ref<ISubscriber>& Subscriber) try {
  modPublisher::Unsubscribe(m_subscribers, Subscriber);
} catch (...) {
  PassOn(u"CtorTF.IPublisher_Unsubscribe(Subscriber)", {Subscriber});
}

void CSubscriptionAgent::Notify(const Ref<IObject>& Subject) try {
  modPublisher::Notify(m_subscribers, Subject);
} catch (...) {
  PassOn(u"CtorTF.IPublisher_Notify(Subject)", {Subject});
}

const CreatorRow CtorSubscriptionAgent = {
    .Name = u"CtorSubscriptionAgent",
    .Specification = Class::CmdSubscriptionAgent,
    .ParamCount = Class::CmdSubscriptionAgent.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<CSubscriptionAgent>(); },
    .Singleton = true,
};

} // namespace portico
