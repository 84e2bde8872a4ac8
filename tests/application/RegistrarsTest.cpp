#include "application/Registrars.h"

#include "application/RegisteredRows.h"

#include "document/entities/ITimeStamp.h"
#include "framework/objects/CObjectFactory.h"
#include "instructions/CInstDirector.h"
#include "support/fixtures/PipelineFixture.h"

namespace portico {
namespace {

using test::FailureOf;
using test::Journal;
using test::RegisteredRows;

using Names = std::vector<String>;

Names SpecificationsOf(StringView registrar) {
  Names names;
  for (const auto& row : RegisteredRows) {
    if (row.Registrar == registrar) names.emplace_back(row.Specification);
  }
  return names;
}

void Append(Names& names, const Names& more) { names.insert(names.end(), more.begin(), more.end()); }

/// A factory with nothing in it.
class Registrars : public test::PlatformFixture {
protected:
  void TearDown() override {
    PlatformFixture::TearDown();
    gChannel = nullptr;
    gTimeStamper = nullptr;
  }

  Names Registered() const {
    Names names;
    for (const auto& creator : m_factory->Creators().NewEnum()) names.push_back(creator->Specification().ToString());
    return names;
  }

  /// Registers one group and takes it out again.
  template <class Registrar>
  void ExpectGroup(const Names& group, const Names& left = {}) {
    m_factory = New<CObjectFactory>();
    Registrar registrar;
    registrar.RegisterClasses(m_factory);
    EXPECT_EQ(Registered(), group);
    registrar.UnregisterClasses(m_factory);
    EXPECT_EQ(Registered(), left);
  }

  /// Registers what the group's own registration asks of the factory.
  void RegisterWhatInstructionsNeed() {
    CConfigurationRegistrar().RegisterClasses(m_factory);
    CSubscriptionAgentRegistrar().RegisterClasses(m_factory);
    CDriverSessionRegistrar().RegisterClasses(m_factory);
  }

  Ref<CObjectFactory> m_factory = New<CObjectFactory>();
};

TEST_F(Registrars, RegisterTheirGroupAndRemoveExactlyThat) {
  ExpectGroup<CRegistrar>(SpecificationsOf(u"CRegistrar"), {u"SCPIViewHistory"}); // which is left behind
  ExpectGroup<CDataEntityRegistrar>(SpecificationsOf(u"CDataEntityRegistrar"));
  ExpectGroup<CConfigurationRegistrar>({u"Configuration"});
  ExpectGroup<CSubscriptionAgentRegistrar>({u"CmdSubscriptionAgent"});
  ExpectGroup<CDriverSessionRegistrar>({u"DriverSession"});
  ExpectGroup<CCfgInstHndlrRegistrar>(SpecificationsOf(u"CCfgInstHndlrRegistrar"));
  ExpectGroup<CSCPIInstHndlrRegistrar>(SpecificationsOf(u"CSCPIInstHndlrRegistrar"));
  ExpectGroup<ViewAndDataRegistrar>(SpecificationsOf(u"ViewAndDataRegistrar"));
}

TEST_F(Registrars, TheInstructionGroupsLeaveWhatWasThereBefore) {
  RegisterWhatInstructionsNeed();
  const Names before = Registered();

  CCommInstHndlrRegistrar communication;
  communication.RegisterClasses(m_factory);
  Names expected = before;
  Append(expected, SpecificationsOf(u"CCommInstHndlrRegistrar"));
  EXPECT_EQ(Registered(), expected);
  communication.UnregisterClasses(m_factory);
  EXPECT_EQ(Registered(), before);

  CInstDirectorRegistrar director;
  director.RegisterClasses(m_factory);
  expected = before;
  for (const auto* group :
       {u"CInstDirectorRegistrar", u"CCfgInstHndlrRegistrar", u"CCommInstHndlrRegistrar", u"CSCPIInstHndlrRegistrar"}) {
    Append(expected, SpecificationsOf(group));
  }
  EXPECT_EQ(Registered(), expected);
  director.UnregisterClasses(m_factory);
  EXPECT_EQ(Registered(), before);
}

template <class Registrar>
class GlobalFactory : public Registrars {};
using RegistrarsThatSetIt =
    ::testing::Types<CDataEntityRegistrar, CCfgInstHndlrRegistrar, CCommInstHndlrRegistrar, CSCPIInstHndlrRegistrar>;
TYPED_TEST_SUITE(GlobalFactory, RegistrarsThatSetIt, );

TYPED_TEST(GlobalFactory, IsSetByTheRegistrationAndClearedByTheRemoval) {
  this->RegisterWhatInstructionsNeed();
  ASSERT_FALSE(gObjectFactory);
  TypeParam().RegisterClasses(this->m_factory);
  EXPECT_TRUE(IsSameObject(gObjectFactory, this->m_factory));
  TypeParam().UnregisterClasses(this->m_factory);
  EXPECT_FALSE(gObjectFactory);
}

template <class Registrar>
class NoGlobalFactory : public Registrars {};
using RegistrarsThatLeaveIt =
    ::testing::Types<CRegistrar, CConfigurationRegistrar, CSubscriptionAgentRegistrar, CDriverSessionRegistrar>;
TYPED_TEST_SUITE(NoGlobalFactory, RegistrarsThatLeaveIt, );

TYPED_TEST(NoGlobalFactory, IsLeftAlone) {
  TypeParam().RegisterClasses(this->m_factory);
  EXPECT_FALSE(gObjectFactory);
  gObjectFactory = this->m_factory;
  TypeParam().UnregisterClasses(this->m_factory);
  EXPECT_TRUE(gObjectFactory);
}

TEST_F(Registrars, TheChannelIsTheDriverSessionInItsClosedState) {
  RegisterWhatInstructionsNeed();
  CCommInstHndlrRegistrar registrar;
  registrar.RegisterClasses(m_factory);
  EXPECT_TRUE(IsSameObject(gChannel, m_factory->CreateObject(u"DriverSession", {})));
  EXPECT_EQ(gChannel->CloseChannel()->ErrorCode(), 0);
  EXPECT_EQ(Calls, Journal{}) << "there is no session that the driver could close";
  registrar.UnregisterClasses(m_factory);
  EXPECT_FALSE(gChannel);
}

TEST_F(Registrars, TheTimeStamperComesAndGoesWithTheDataDocument) {
  ASSERT_FALSE(gTimeStamper);
  CDataEntityRegistrar registrar;
  registrar.RegisterClasses(m_factory);
  ASSERT_TRUE(gTimeStamper);
  EXPECT_EQ(gTimeStamper->ClassName(), u"CMockTimeStampServer");
  registrar.UnregisterClasses(m_factory);
  EXPECT_FALSE(gTimeStamper);
}

TEST_F(Registrars, EachRegistrationOfTheDataDocumentMakesATimeStamperOfItsOwn) {
  CDataEntityRegistrar registrar;
  registrar.RegisterClasses(m_factory);
  const auto first = gTimeStamper;
  registrar.RegisterClasses(m_factory = New<CObjectFactory>());
  EXPECT_FALSE(IsSameObject(gTimeStamper, first));
}

TEST_F(Registrars, TheCommunicationClassesNeedTheDriverSession) {
  EXPECT_EQ(FailureOf([&] { CCommInstHndlrRegistrar().RegisterClasses(m_factory); }).Number, 5);
}

TEST_F(Registrars, RemovingTheProcessorClearsFactoryAndChannel) {
  RegisterWhatInstructionsNeed();
  CInstDirectorRegistrar().RegisterClasses(m_factory);
  EXPECT_TRUE(gObjectFactory);
  EXPECT_TRUE(gChannel);
  CInstDirectorRegistrar().UnregisterClasses(m_factory);
  EXPECT_FALSE(gObjectFactory);
  EXPECT_FALSE(gChannel);
}

TEST_F(Registrars, TheHandlersLeaveInTheReverseOrderAndTheProcessorLast) {
  RegisterWhatInstructionsNeed();
  CInstDirectorRegistrar().RegisterClasses(m_factory);
  const auto spy = New<test::InstructionSpyFactory>();
  spy->StandBefore(m_factory);
  CInstDirectorRegistrar().UnregisterClasses(spy);
  Names expected;
  for (const auto* group :
       {u"CSCPIInstHndlrRegistrar", u"CCommInstHndlrRegistrar", u"CCfgInstHndlrRegistrar", u"CInstDirectorRegistrar"}) {
    Append(expected, SpecificationsOf(group));
  }
  EXPECT_EQ(spy->Removed, expected);
}

TEST_F(Registrars, TheProcessorIsRemovedWholeThroughTheGlobalItself) {
  RegisterWhatInstructionsNeed();
  const auto before = Registered();
  CInstDirectorRegistrar().RegisterClasses(m_factory);
  CInstDirectorRegistrar().UnregisterClasses(gObjectFactory); // which is cleared on the way
  EXPECT_EQ(Registered(), before);
}

TEST_F(Registrars, TheProcessorGetsItsHandlersInTheOrderCommunicationScpiConfiguration) {
  RegisterWhatInstructionsNeed();
  const auto spy = New<test::InstructionSpyFactory>();
  spy->StandBefore(m_factory);
  Journal calls;
  const std::vector<String> handlers = {u"CommunicationInstructionHandler", u"SCPIInstructionHandler",
                                        u"ConfigurationInstructionHandler"};
  for (const String& name : handlers) {
    spy->StandIns[name] = [&calls, name](const Params&) {
      return New<test::InstructionFakeHandler>(calls, name, ToUtf8(name), 0);
    };
  }
  CInstDirectorRegistrar().RegisterClasses(spy);

  ASSERT_GE(spy->Requests.size(), 4U);
  Names made;
  for (auto request = spy->Requests.end() - 4; request != spy->Requests.end(); ++request) {
    made.push_back(request->Specification);
    EXPECT_TRUE(request->Parameters.empty());
  }
  EXPECT_EQ(made, (Names{u"InstructionProcessor", handlers[0], handlers[1], handlers[2]}));
  EXPECT_EQ(calls, (Journal{"prefix CommunicationInstructionHandler", "prefix SCPIInstructionHandler",
                            "prefix ConfigurationInstructionHandler"}));

  calls.clear();
  Cast<IInstProcessor>(m_factory->CreateObject(u"InstructionProcessor", {}))
      ->Send(test::MakeInstruction(u"SCPI", u"Send"));
  EXPECT_EQ(calls, (Journal{"send CommunicationInstructionHandler", "send SCPIInstructionHandler",
                            "send ConfigurationInstructionHandler"}));
  spy->StandBefore(nullptr);
}

template <class Registrar>
class EveryRegistrar : public Registrars {};
using All = ::testing::Types<CRegistrar, CDataEntityRegistrar, CConfigurationRegistrar, CSubscriptionAgentRegistrar,
                             CDriverSessionRegistrar, CInstDirectorRegistrar, CCfgInstHndlrRegistrar,
                             CCommInstHndlrRegistrar, CSCPIInstHndlrRegistrar>;
TYPED_TEST_SUITE(EveryRegistrar, All, );

TYPED_TEST(EveryRegistrar, RefusesToWorkWithoutAFactory) {
  TypeParam registrar;
  const String name(registrar.ClassName());
  const auto registering = FailureOf([&] { registrar.RegisterClasses({}); });
  EXPECT_EQ(registering.Number, 5);
  EXPECT_EQ(registering.Text, u"Object factory cannot be nothing.");
  EXPECT_EQ(registering.Labels, Names{name + u".IRegistrar_RegisterClasses(ObjectFactory)"});

  const auto removing = FailureOf([&] { registrar.UnregisterClasses({}); });
  EXPECT_EQ(removing.Number, 5);
  EXPECT_EQ(removing.Text, u"Object factory cannot be nothing.");
  EXPECT_EQ(removing.Labels, Names{name + u".IRegistrar_UnregisterClasses(ObjectFactory)"});
}

TEST_F(Registrars, NothingIsRegisteredTwice) {
  CRegistrar().RegisterClasses(m_factory);
  EXPECT_EQ(FailureOf([&] { CRegistrar().RegisterClasses(m_factory); }).Number, 457);
}

TEST_F(Registrars, WhatIsNotRegisteredCannotBeRemoved) {
  const auto failure = FailureOf([&] { CSubscriptionAgentRegistrar().UnregisterClasses(m_factory); });
  EXPECT_EQ(failure.Number, 5);
  EXPECT_EQ(failure.Trail.back(),
            u"CSubscriptionAgentRegistrar.IRegistrar_UnregisterClasses(ObjectFactory={CObjectFactory})");
}

} // namespace
} // namespace portico
