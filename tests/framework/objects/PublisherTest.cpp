#include "framework/errors/Quit.h"
#include "framework/objects/CSubscribers.h"
#include "framework/objects/CSubscriptionAgent.h"
#include "framework/objects/modPublisher.h"
#include "framework/shared/modCommand.h"

#include "framework/objects/CObjectFactory.h"

#include "support/Allocation.h"
#include "support/ErrorReports.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"

#include <gmock/gmock.h>

namespace portico {
namespace {

using test::CallStack;
using test::FirstDescription;
using test::Labels;
using test::NamedObject;
using test::Raised;
using test::SubscriberOf;
using ::testing::ElementsAre;

class CSubscribersTest : public test::FrameworkTest {
protected:
  CSubscribers Subscribers;
};

TEST_F(CSubscribersTest, AddReturnsTheNewItem) {
  const Ref<ISubscriber> subscriber = New<SubscriberOf>();
  EXPECT_TRUE(IsSameObject(Subscribers.Add(subscriber, u""), subscriber));
  EXPECT_EQ(Subscribers.Count(), 1U);
}

TEST_F(CSubscribersTest, AnEmptyKeyStandsForNone) {
  Subscribers.Add(New<SubscriberOf>(), u"");
  Subscribers.Add(New<SubscriberOf>(), u"");
  EXPECT_EQ(Subscribers.Count(), 2U);
  EXPECT_EQ(Raised([&] { Subscribers.Item(u""); }).Number, 5);
}

TEST_F(CSubscribersTest, ItemsAreFoundByPositionFromOneAndByKey) {
  const auto first = Subscribers.Add(New<SubscriberOf>(), u"");
  const auto second = Subscribers.Add(New<SubscriberOf>(), u"Display");
  EXPECT_TRUE(IsSameObject(Subscribers.Item(1), first));
  EXPECT_TRUE(IsSameObject(Subscribers.Item(2), second));
  EXPECT_TRUE(IsSameObject(Subscribers.Item(u"DISPLAY"), second));
}

TEST_F(CSubscribersTest, AbsentItemsRaise5) {
  Subscribers.Add(New<SubscriberOf>(), u"Display");
  for (const Value& absent : {Value(0), Value(-1), Value(2), Value(4294967297.0), Value(u"Log")}) {
    EXPECT_EQ(Raised([&] { Subscribers.Item(absent); }).Number, 5) << ToUtf8(absent.TextForm());
    EXPECT_EQ(Raised([&] { Subscribers.Remove(absent); }).Number, 5) << ToUtf8(absent.TextForm());
  }
}

TEST_F(CSubscribersTest, RemovesByPositionAndByKey) {
  Subscribers.Add(New<SubscriberOf>(), u"Display");
  const auto second = Subscribers.Add(New<SubscriberOf>(), u"Log");
  const auto third = Subscribers.Add(New<SubscriberOf>(), u"");
  Subscribers.Remove(1);
  EXPECT_TRUE(IsSameObject(Subscribers.Item(1), second));
  Subscribers.Remove(u"log");
  EXPECT_TRUE(IsSameObject(Subscribers.Item(1), third));
}

TEST_F(CSubscribersTest, RemovesTheFirstThatIsTheSameObjectThroughAnyInterface) {
  class Both final : public ICommand, public ISubscriber {
  public:
    StringView ClassName() const override { return u"Both"; }
    void Execute() override {}
    void Update(const Ref<IObject>&) override {}
  };
  const auto both = New<Both>();
  const auto other = Subscribers.Add(New<SubscriberOf>(), u"");
  Subscribers.Add(both, u"");
  Subscribers.Add(both, u"Twice");
  Subscribers.Remove(Ref<ICommand>(both));
  ASSERT_EQ(Subscribers.Count(), 2U);
  EXPECT_TRUE(IsSameObject(Subscribers.Item(1), other));
  EXPECT_TRUE(IsSameObject(Subscribers.Item(u"Twice"), both));
}

TEST_F(CSubscribersTest, RemovingAnAbsentObjectIsNoError) {
  Subscribers.Add(New<SubscriberOf>(), u"");
  EXPECT_NO_THROW(Subscribers.Remove(New<SubscriberOf>()));
  EXPECT_NO_THROW(Subscribers.Remove(Ref<ISubscriber>()));
  EXPECT_EQ(Subscribers.Count(), 1U);
}

TEST_F(CSubscribersTest, EnumeratesInInsertionOrder) {
  const auto first = Subscribers.Add(New<SubscriberOf>(), u"z");
  const auto second = Subscribers.Add(New<SubscriberOf>(), u"a");
  const auto all = Subscribers.NewEnum();
  ASSERT_EQ(all.size(), 2U);
  EXPECT_TRUE(IsSameObject(all[0], first));
  EXPECT_TRUE(IsSameObject(all[1], second));
}

TEST_F(CSubscribersTest, FailuresStandUnderTheirLabels) {
  Subscribers.Add(New<SubscriberOf>(), u"Log");
  const ErrorRecord twice = Raised([&] { Subscribers.Add(New<SubscriberOf>(), u"log"); });
  EXPECT_EQ(twice.Number, 457);
  EXPECT_EQ(Labels(twice), (std::vector<String>{u"CSubscribers.Add(NewItem,Key)"}));
  EXPECT_EQ(Labels(Raised([&] { Subscribers.Item(u"Display"); })),
            (std::vector<String>{u"CSubscribers.Item(IndexOrKey)"}));
  EXPECT_EQ(Labels(Raised([&] { Subscribers.Remove(7); })),
            (std::vector<String>{u"CSubscribers.Remove(IndexKeyOrObject)"}));
  EXPECT_EQ(Labels(Raised([&] {
              const test::FailingAllocation noMemory;
              Subscribers.NewEnum();
            })),
            (std::vector<String>{u"CSubscribers.NewEnum()"}));
}

class PublisherTest : public test::FrameworkTest {
protected:
  /// A subscriber that notes its name.
  Ref<ISubscriber> Noting(int name) {
    return New<SubscriberOf>([this, name](const Ref<IObject>&) { Calls.push_back(name); });
  }
  static Ref<ISubscriber> Failing() {
    return New<SubscriberOf>([](const Ref<IObject>&) { HuntERR::Raise(51, u"Tester", u"Display is gone."); });
  }

  std::vector<int> Calls;
  const Ref<IObject> Subject = New<NamedObject>(u"CReport");
  const Ref<CSubscriptionAgent> Agent = New<CSubscriptionAgent>();
};

TEST_F(PublisherTest, WithNoSubscribersNotifyDoesNothing) {
  EXPECT_NO_THROW(Agent->Notify(Subject));
  EXPECT_EQ(HuntERR::ErrNumber(), 0);
}

TEST_F(PublisherTest, SubscribersAreUpdatedInTheOrderOfSubscription) {
  for (const int name : {3, 1, 2}) Agent->Subscribe(Noting(name));
  Agent->Notify(Subject);
  EXPECT_THAT(Calls, ElementsAre(3, 1, 2));
}

TEST_F(PublisherTest, EverySubscriberGetsTheSubjectItself) {
  Ref<IObject> seen;
  Agent->Subscribe(New<SubscriberOf>([&](const Ref<IObject>& subject) { seen = subject; }));
  Agent->Notify(Subject);
  EXPECT_TRUE(IsSameObject(seen, Subject));
}

TEST_F(PublisherTest, ASubscriberThatFailsStopsNeitherTheOthersNorThePublisher) {
  Agent->Subscribe(Noting(1));
  Agent->Subscribe(Failing());
  Agent->Subscribe(Noting(3));
  EXPECT_NO_THROW(Agent->Notify(Subject));
  EXPECT_THAT(Calls, ElementsAre(1, 3));
}

TEST_F(PublisherTest, TryUpdateRecordsAFailureAndGoesNoFurther) {
  EXPECT_NO_THROW(modPublisher::TryUpdate(Failing(), Subject));
  EXPECT_EQ(HuntERR::ErrNumber(), 51);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"Display is gone.");
  EXPECT_EQ(CallStack(HuntERR::ErrReport()),
            (std::vector<String>{u"modPublisher.TryUpdate(Subscriber={SubscriberOf}, Subject={CReport})"}));
  EXPECT_EQ(Labels(HuntERR::ErrReport()), (std::vector<String>{u"modPublisher.TryUpdate(Subscriber,Subject)"}));
  EXPECT_EQ(Environment.Attempts, 0);
}

TEST_F(PublisherTest, TryUpdateOfAnUnsetSubscriberRecords91) {
  EXPECT_NO_THROW(modPublisher::TryUpdate({}, Subject));
  EXPECT_EQ(HuntERR::ErrNumber(), 91);
}

TEST_F(PublisherTest, QuitPassesTryUpdateWithoutAReport) {
  Agent->Subscribe(New<SubscriberOf>([](const Ref<IObject>&) { throw Quit{}; }));
  Agent->Subscribe(Noting(2));
  EXPECT_THROW(Agent->Notify(Subject), Quit);
  EXPECT_TRUE(Calls.empty());
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(PublisherTest, WhoeverSubscribesTwiceIsUpdatedTwice) {
  const auto twice = Noting(1);
  Agent->Subscribe(twice);
  Agent->Subscribe(twice);
  Agent->Notify(Subject);
  EXPECT_THAT(Calls, ElementsAre(1, 1));
}

TEST_F(PublisherTest, AfterTwoSubscriptionsOneUnsubscribeLeavesTheLater) {
  const auto twice = Noting(1);
  Agent->Subscribe(twice);
  Agent->Subscribe(Noting(2));
  Agent->Subscribe(twice);
  Agent->Unsubscribe(twice);
  Agent->Notify(Subject);
  EXPECT_THAT(Calls, ElementsAre(2, 1));
}

TEST_F(PublisherTest, UnsubscribingAStrangerDoesNothing) {
  Agent->Subscribe(Noting(1));
  EXPECT_NO_THROW(Agent->Unsubscribe(Noting(2)));
  Agent->Notify(Subject);
  EXPECT_THAT(Calls, ElementsAre(1));
}

TEST_F(PublisherTest, ASubscriptionKeepsTheSubscriberAlive) {
  std::weak_ptr<ISubscriber> watched;
  {
    const auto subscriber = Noting(1);
    watched = subscriber.Shared();
    Agent->Subscribe(subscriber);
  }
  ASSERT_FALSE(watched.expired());
  Agent->Unsubscribe(Ref<ISubscriber>(watched.lock()));
  EXPECT_TRUE(watched.expired());
}

TEST_F(PublisherTest, NotificationsNest) {
  int depth = 0;
  Agent->Subscribe(New<SubscriberOf>([&](const Ref<IObject>& subject) {
    Calls.push_back(10 + ++depth);
    if (depth < 2) Agent->Notify(subject);
  }));
  Agent->Subscribe(Noting(1));
  Agent->Notify(Subject);
  EXPECT_THAT(Calls, ElementsAre(11, 12, 1, 1));
}

TEST_F(PublisherTest, NotifyReachesWhoeverSubscribesMeanwhile) {
  bool done = false;
  Agent->Subscribe(New<SubscriberOf>([&](const Ref<IObject>&) {
    if (!std::exchange(done, true)) Agent->Subscribe(Noting(2));
  }));
  Agent->Notify(Subject);
  EXPECT_THAT(Calls, ElementsAre(2));
}

TEST_F(PublisherTest, NotifyWalksTheLiveListByPosition) {
  Ref<ISubscriber> leaving;
  leaving = New<SubscriberOf>([&](const Ref<IObject>&) {
    Calls.push_back(1);
    Agent->Unsubscribe(leaving);
  });
  for (const auto& subscriber : {leaving, Noting(2), Noting(3)}) Agent->Subscribe(subscriber);
  Agent->Notify(Subject);
  EXPECT_THAT(Calls, ElementsAre(1, 3)); // the second has moved to the position that was just served
}

TEST_F(PublisherTest, SubscribeAddsWithoutAKey) {
  CSubscribers subscribers;
  modPublisher::Subscribe(subscribers, Noting(1));
  modPublisher::Subscribe(subscribers, Noting(2));
  modPublisher::Notify(subscribers, Subject);
  EXPECT_THAT(Calls, ElementsAre(1, 2));
}

TEST_F(PublisherTest, AFailedSubscriptionStandsUnderTheAgentsOldName) {
  const auto subscriber = Noting(1);
  const ErrorRecord error = Raised([&] {
    const test::FailingAllocation noMemory;
    Agent->Subscribe(subscriber);
  });
  EXPECT_EQ(error.Number, 7);
  EXPECT_EQ(Labels(error),
            (std::vector<String>{u"CSubscribers.Add(NewItem,Key)", u"modPublisher.Subscribe(Subscribers,Subscriber)",
                                 u"CtorTF.IPublisher_Subscribe(Subscriber)"}));
}

TEST_F(PublisherTest, AFailedUnsubscriptionStandsUnderTheAgentsOldName) {
  const auto subscriber = Noting(1);
  for (int i = 0; i < 20; ++i) Agent->Subscribe(subscriber); // enough for the list to rebuild an index of its keys
  const ErrorRecord error = Raised([&] {
    const test::FailingAllocation noMemory;
    Agent->Unsubscribe(subscriber);
  });
  EXPECT_EQ(error.Number, 7);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CSubscribers.Remove(IndexKeyOrObject)",
                                                u"modPublisher.Unsubscribe(Subscribers,Subscriber)",
                                                u"CtorTF.IPublisher_Unsubscribe(Subscriber)"}));
}

/// A subject that fails when its name is asked for, which only the report of another failure does.
class NamelessAtFirst final : public IObject {
public:
  StringView ClassName() const override {
    if (std::exchange(m_nameless, false)) HuntERR::Raise(17, u"Tester", u"Nameless.");
    return u"NamelessAtFirst";
  }

private:
  mutable bool m_nameless = true;
};

TEST_F(PublisherTest, AFailedNotificationStandsUnderTheAgentsOldName) {
  Agent->Subscribe(Failing());
  const ErrorRecord error = Raised([&] { Agent->Notify(New<NamelessAtFirst>()); });
  EXPECT_EQ(error.Number, 17);
  EXPECT_EQ(Labels(error),
            (std::vector<String>{u"modPublisher.Notify(Subscribers,Subject)", u"CtorTF.IPublisher_Notify(Subject)"}));
}

TEST_F(PublisherTest, CmdSubscriptionAgentIsOneForAllCallers) {
  gObjectFactory = New<CObjectFactory>();
  gObjectFactory->Add(MakeCreator(CtorSubscriptionAgent));
  const auto first = Create<IPublisher>(u"CmdSubscriptionAgent");
  EXPECT_TRUE(IsSameObject(first, Create<IPublisher>(u"CmdSubscriptionAgent")));
  EXPECT_EQ(gObjectFactory->GetCreator(u"CmdSubscriptionAgent")->ClassName(), u"CtorSubscriptionAgent");
  EXPECT_EQ(Raised([] { Create<IPublisher>(u"CmdSubscriptionAgent", {1}); }).Number, 450);
}

TEST_F(PublisherTest, PublishIfAnyNotifiesAPublisher) {
  Agent->Subscribe(Noting(1));
  modCommand::PublishIfAny(Agent, Subject);
  EXPECT_THAT(Calls, ElementsAre(1));
}

TEST_F(PublisherTest, PublishIfAnyWithoutAPublisherIsSilent) {
  EXPECT_NO_THROW(modCommand::PublishIfAny({}, Subject));
  EXPECT_EQ(HuntERR::ErrNumber(), 0);
}

} // namespace
} // namespace portico
