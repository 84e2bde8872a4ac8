#include "document/reports/ReportSubscribers.h"

#include "channel/CReport.h"
#include "support/doubles/ReportDouble.h"
#include "support/fixtures/DocumentFixture.h"

namespace portico::test {
namespace {

/// A view that is a container and no more.
class QueueDouble final : public IInstructionQueue {
public:
  QueueDouble() { Container->Initialize(0); }
  StringView ClassName() const override { return u"QueueDouble"; }
  Ref<CDataFIFO> Instructions() override { return Container; }
  Ref<CDataFIFO> Container = New<CDataFIFO>();
};

/// A store that writes down what it is told, and refuses what a store of XML elements refuses.
class StoreDouble final : public IDataStore {
public:
  explicit StoreDouble(std::vector<std::string>& journal) : m_journal(journal) {}
  StringView ClassName() const override { return u"StoreDouble"; }
  Ref<IIteratableObject> FillDataContainerFromStore() override { return {}; }
  void AppendDataEntityToStore(const Ref<IDataEntity>& DataEntity) override {
    m_journal.emplace_back("append");
    HuntERR::Check(bool(DataEntity), 5, u"Data entity cannot be nothing.");
    HuntERR::Check(!DataEntity->DataType().empty(), 31004, u"Cannot create an XML element.");
    Entities.push_back(DataEntity);
  }
  void OpenSession() override { Session("open", true); }
  void CloseSession() override { Session("close", false); }

  std::vector<Ref<IDataEntity>> Entities;

private:
  void Session(const char* name, bool open) {
    m_journal.emplace_back(name);
    HuntERR::Check(m_open != open, 17, u"No session is currently open.");
    m_open = open;
  }
  std::vector<std::string>& m_journal;
  bool m_open = false;
};

class ReportSubscribers : public DocumentFixture {
protected:
  ReportSubscribers() {
    Configuration->Items[u"CurrentInstruction"] = u"*IDN?";
    Configuration->Items[u"Logging"] = u"Off";
  }

  void Show() { Displayer->Initialize(Queue); }
  void Log(const String& state) {
    Logger->Initialize(Store);
    Configuration->Items[u"Logging"] = state;
  }
  static Ref<IPublisher> Publisher() { return Create<IPublisher>(u"CmdSubscriptionAgent"); }
  static Ref<IReport> Completion() {
    const auto report = New<CReport>();
    report->Initialize(u"CInstDirector", New<CInstContainer>(), Hex(0x80041454), u"", u"");
    return report;
  }

  Ref<QueueDouble> Queue = New<QueueDouble>();
  Ref<StoreDouble> Store = New<StoreDouble>(Calls);
  Ref<CReportDisplayer> Displayer = New<CReportDisplayer>();
  Ref<CReportLogger> Logger = New<CReportLogger>();
};

using ReportDisplayer = ReportSubscribers;
using ReportLogger = ReportSubscribers;

TEST_F(ReportDisplayer, SubscribesItselfAndEnqueuesWhatAReportShows) {
  Show();
  Publisher()->Notify(Ref<IObject>(WriteOf(u"*IDN?")));
  Publisher()->Notify(Ref<IObject>(ReportOf(u"CReadCmd", u"ok")));
  EXPECT_EQ(Lines(Queue->Container), (List{"Instruction: *IDN?\\r\\n", "Response: ok\\r\\n"}));
}

TEST_F(ReportDisplayer, EnqueuesNothingForAReportThatShowsNothing) {
  Show();
  Displayer->Update(Ref<IObject>(ReportOf(u"CReadCmd", u"")));
  Displayer->Update(Ref<IObject>(ReportOf(u"CCloseCmd", u"closed")));
  EXPECT_EQ(Queue->Container->Count(), 0);
}

TEST_F(ReportDisplayer, EnqueuesTheCompletionReportAsAnEmptyLine) {
  Show();
  Displayer->Update(Ref<IObject>(Completion()));
  EXPECT_EQ(Lines(Queue->Container), List{": \\r\\n"});
  EXPECT_EQ(Stamper->Drawn, 1);
}

TEST_F(ReportDisplayer, EnqueuesTheOpeningReportWithoutAType) {
  Show();
  Displayer->Update(Ref<IObject>(ReportOf(u"COpenCmd", u"Opened DMM.")));
  EXPECT_EQ(Lines(Queue->Container), List{": Opened DMM.\\r\\n"});
}

TEST_F(ReportDisplayer, BeforeInitializeRaises) {
  const auto error = Raised([&] { Displayer->Update(Ref<IObject>(Completion())); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CReportDisplayer.ISubscriber_Update(Subject)"});
}

TEST_F(ReportDisplayer, WithoutATargetRaises) {
  const auto error = Raised([&] { Displayer->Initialize({}); });
  ExpectError(error, 5, u"Target cannot be nothing.");
  ExpectTrail(error, {u"CReportDisplayer.Initialize()"});
}

TEST_F(ReportDisplayer, WithoutAFactoryRaises) {
  gObjectFactory = {};
  const auto error = Raised([&] { Displayer->Initialize(Queue); });
  ExpectError(error, 424, u"This operation requires an object factory.");
  ExpectTrail(error, {u"CReportDisplayer.Initialize()"});
}

TEST_F(ReportDisplayer, OfNothingRaisesUnderBothNames) {
  Show();
  const auto error = Raised([&] { Displayer->Update({}); });
  ExpectError(error, 5, u"Report cannot be nothing.");
  ExpectTrail(error, {u"modAppGlobals.Report2DataEntity(Report)", u"CReportDisplayer.ISubscriber_Update(Subject)"});
}

TEST_F(ReportDisplayer, IsMadeByTheFactoryFromItsTarget) {
  gObjectFactory->Add(MakeCreator(CtorReportDisplayer));
  const auto displayer = Create<CReportDisplayer>(u"ReportDisplayer", modGlobals::VarArray(Ref<IObject>(Queue)));
  Publisher()->Notify(Ref<IObject>(ReportOf(u"CReadCmd", u"ok")));
  EXPECT_EQ(Queue->Container->Count(), 1);
  EXPECT_EQ(Raised([] { Create<CReportDisplayer>(u"ReportDisplayer"); }).Number, 450);
}

TEST_F(ReportLogger, AppendsWhatAReportShowsWhileLoggingIsOn) {
  Log(u"On");
  Logger->Update(Ref<IObject>(WriteOf(u"*IDN?")));
  ASSERT_EQ(Store->Entities.size(), 1U);
  EXPECT_EQ(TextOf(Store->Entities[0]), "*IDN?\\r\\n");
  EXPECT_EQ(Store->Entities[0]->DataType(), u"Instruction");
}

TEST_F(ReportLogger, DoesNotSubscribeItself) {
  Log(u"On");
  Publisher()->Notify(Ref<IObject>(WriteOf(u"*IDN?")));
  EXPECT_EQ(Calls, List{});
}

TEST_F(ReportLogger, DoesNotEvenConvertWhileLoggingIsOff) {
  Log(u"Off");
  const auto report = ReportOf(u"CReadCmd", u"ok");
  Logger->Update(Ref<IObject>(report));
  Logger->Update({});
  EXPECT_EQ(report->Asked, 0);
  EXPECT_EQ(Stamper->Drawn, 0);
  EXPECT_EQ(Calls, List{});
}

TEST_F(ReportLogger, KnowsLoggingByTheItemAlone) {
  Log(u"On");
  EXPECT_TRUE(Logger->IsLogging());
  for (const auto* other : {u"Off", u"on", u"ON", u""}) {
    Configuration->Items[u"Logging"] = other;
    EXPECT_FALSE(Logger->IsLogging()) << ToUtf8(other);
  }
}

TEST_F(ReportLogger, ReportThatShowsNothingReachesTheStoreAsNothing) {
  Log(u"On");
  const auto error = Raised([&] { Logger->Update(Ref<IObject>(ReportOf(u"CReadCmd", u""))); });
  ExpectError(error, 5, u"Data entity cannot be nothing.");
  ExpectTrail(error, {u"CReportLogger.ISubscriber_Update(Subject)"});
  EXPECT_EQ(Calls, List{"append"});
}

TEST_F(ReportLogger, EntityWithoutATypeIsRefusedByTheStore) {
  Log(u"On");
  for (const Ref<IReport>& report : {Ref<IReport>(ReportOf(u"COpenCmd", u"Opened DMM.")), Completion()}) {
    const auto error = Raised([&] { Logger->Update(Ref<IObject>(report)); });
    ExpectError(error, 31004, u"Cannot create an XML element.");
    ExpectTrail(error, {u"CReportLogger.ISubscriber_Update(Subject)"});
    HuntERR::Reset();
  }
  EXPECT_EQ(Store->Entities.size(), 0U);
}

TEST_F(ReportLogger, ItsFailuresEndAtThePublisher) {
  Log(u"On");
  Publisher()->Subscribe(Logger);
  Show();
  Publisher()->Notify(Ref<IObject>(Completion()));
  Publisher()->Notify(Ref<IObject>(ReportOf(u"CReadCmd", u"")));
  Publisher()->Notify(Ref<IObject>(ReportOf(u"CReadCmd", u"ok")));
  EXPECT_EQ(Calls, (List{"append", "append", "append"}));
  EXPECT_EQ(Store->Entities.size(), 1U);
  EXPECT_EQ(Lines(Queue->Container), (List{": \\r\\n", "Response: ok\\r\\n"}));
}

TEST_F(ReportLogger, AndDisplayerMakeTwoEntitiesWithTwoStamps) {
  Show();
  Log(u"On");
  Publisher()->Subscribe(Logger);
  Publisher()->Notify(Ref<IObject>(ReportOf(u"CReadCmd", u"ok")));
  ASSERT_EQ(Store->Entities.size(), 1U);
  EXPECT_EQ(Queue->Container->Peek()->TimeStamp(), u"stamp 1");
  EXPECT_EQ(Store->Entities[0]->TimeStamp(), u"stamp 2");
}

TEST_F(ReportLogger, EnablingSetsTheItemAndThenOpensASession) {
  Log(u"Off");
  Logger->EnableLogging();
  EXPECT_EQ(Calls, (List{"Logging=On", "open"}));
  Calls.clear();
  Logger->DisableLogging();
  EXPECT_EQ(Calls, (List{"Logging=Off", "close"}));
}

TEST_F(ReportLogger, SecondEnablingFailsInTheStoreWithTheItemSet) {
  Log(u"Off");
  Logger->EnableLogging();
  const auto error = Raised([&] { Logger->EnableLogging(); });
  ExpectError(error, 17, u"No session is currently open.");
  ExpectTrail(error, {u"CReportLogger.EnableLogging()"});
  EXPECT_TRUE(Logger->IsLogging());
}

TEST_F(ReportLogger, DisablingWithoutASessionFailsInTheStoreWithTheItemCleared) {
  Log(u"On");
  const auto error = Raised([&] { Logger->DisableLogging(); });
  ExpectError(error, 17, u"No session is currently open.");
  ExpectTrail(error, {u"CReportLogger.DisableLogging()"});
  EXPECT_FALSE(Logger->IsLogging());
}

TEST_F(ReportLogger, BeforeInitializeRaises) {
  const std::vector<std::pair<std::function<void()>, StringView>> members = {
      {[&] { Logger->IsLogging(); }, u"CReportLogger.IsLogging()"},
      {[&] { Logger->DisableLogging(); }, u"CReportLogger.DisableLogging()"},
      {[&] { Logger->EnableLogging(); }, u"CReportLogger.EnableLogging()"},
      {[&] { Logger->Update({}); }, u"CReportLogger.ISubscriber_Update(Subject)"},
  };
  for (const auto& [call, label] : members) {
    const auto error = Raised(call);
    ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
    ExpectTrail(error, {label});
    HuntERR::Reset();
  }
  EXPECT_EQ(Calls, List{});
}

TEST_F(ReportLogger, WithoutAConfigurationServerRaises) {
  Log(u"On");
  gConfiguration = {};
  const std::vector<std::pair<std::function<void()>, StringView>> members = {
      {[&] { Logger->IsLogging(); }, u"CReportLogger.IsLogging()"},
      {[&] { Logger->DisableLogging(); }, u"CReportLogger.DisableLogging()"},
      {[&] { Logger->EnableLogging(); }, u"CReportLogger.EnableLogging()"},
  };
  for (const auto& [call, label] : members) {
    const auto error = Raised(call);
    ExpectError(error, 424, u"This operation requires a configuration server.");
    ExpectTrail(error, {label});
    HuntERR::Reset();
  }
  const auto error = Raised([&] { Logger->Update({}); });
  ExpectTrail(error, {u"CReportLogger.IsLogging()", u"CReportLogger.ISubscriber_Update(Subject)"});
  EXPECT_EQ(Calls, List{});
}

TEST_F(ReportLogger, WithoutAStoreRaises) {
  const auto error = Raised([&] { Logger->Initialize({}); });
  ExpectError(error, 5, u"Data store cannot be nothing.");
  ExpectTrail(error, {u"CReportLogger.Initialize()"});
}

TEST_F(ReportLogger, WithoutAFactoryRaises) {
  gObjectFactory = {};
  const auto error = Raised([&] { Logger->Initialize(Store); });
  ExpectError(error, 424, u"This operation requires an object factory.");
  ExpectTrail(error, {u"CReportLogger.Initialize()"});
}

TEST_F(ReportLogger, IsMadeByTheFactoryFromItsStore) {
  gObjectFactory->Add(MakeCreator(CtorReportLogger));
  const auto logger = Create<CReportLogger>(u"ReportLogger", modGlobals::VarArray(Ref<IObject>(Store)));
  EXPECT_FALSE(logger->IsLogging());
  EXPECT_EQ(Raised([] { Create<CReportLogger>(u"ReportLogger"); }).Number, 450);
}

} // namespace
} // namespace portico::test
