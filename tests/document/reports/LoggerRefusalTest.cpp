// What the end of an instruction and a report that shows nothing leave behind while a conversation is logged: an error
// that the publisher stops.

#include "channel/CReport.h"
#include "document/log/LogBench.h"
#include "document/reports/ReportSubscribers.h"
#include "framework/objects/CSubscriptionAgent.h"
#include "support/doubles/ConfigurationDouble.h"
#include "support/doubles/ReportDouble.h"

namespace portico::test {
namespace {

const std::string UntypedHeader =
    "Cannot create an XML element. \r\n"
    "  Time='02/09/04 08:05:03' App='portico:1.4.2' ADO-version='' Computer='BENCH-7' \r\n"
    "  Method: CXMLDataStore.DataEntityToElement \r\n"
    "  Number: 31004 = &H791C = vbObjectError + 2147252508 = ERRMAP_APP_FIRST + 2147247310 \r\n"
    "  Source: HuntERR.Check \r\n"
    "  Description: Cannot create an XML element.\r\n";
const std::string UntypedStack =
    "  Call Stack: CXMLDataStore.DataEntityToElement(DataEntity={CDataEntity}) --------------------------\r\n"
    "  Call Stack: CXMLDataStore.AppendEntityElement(DataEntity={CDataEntity}) --------------------------\r\n"
    "  Call Stack: CXMLDataStore.AppendDataEntity(DataEntity={CDataEntity}) -----------------------------\r\n"
    "  Call Stack: CXMLDataStore.IDataStore_AppendDataEntityToStore(DataEntity={CDataEntity}) -----------\r\n"
    "  Call Stack: CReportLogger.ISubscriber_Update(Subject={CReport}) ----------------------------------\r\n";
const std::string NothingHeader =
    "Data entity cannot be nothing. \r\n"
    "  Time='02/09/04 08:05:03' App='portico:1.4.2' ADO-version='' Computer='BENCH-7' \r\n"
    "  Method: CXMLDataStore.DataEntityToElement \r\n"
    "  Number: 5 = &H5 = vbObjectError + 2147221509 = ERRMAP_APP_FIRST + 2147216311 \r\n"
    "  Source: HuntERR.Check \r\n"
    "  Description: Data entity cannot be nothing.\r\n"
    "  Call Stack: CXMLDataStore.DataEntityToElement(DataEntity={Null}) ---------------------------------\r\n";
const std::string NothingStack =
    "  Call Stack: CXMLDataStore.AppendEntityElement(DataEntity={Null}) ---------------------------------\r\n"
    "  Call Stack: CXMLDataStore.AppendDataEntity(DataEntity={Null}) ------------------------------------\r\n"
    "  Call Stack: CXMLDataStore.IDataStore_AppendDataEntityToStore(DataEntity={Null}) ------------------\r\n"
    "  Call Stack: CReportLogger.ISubscriber_Update(Subject={CIntervalCmd}) -----------------------------\r\n"
    "  Call Stack: modPublisher.TryUpdate(Subscriber={CReportLogger}, Subject={CIntervalCmd}) -----------\r\n";

class LoggerRefusalTest : public StoreTest {
protected:
  LoggerRefusalTest() {
    Configuration->Items[u"CurrentInstruction"] = u"*IDN?";
    Configuration->Items[u"Logging"] = u"On";
    gConfiguration = Configuration;
    Target->OpenSession();
    Logger->Initialize(Target);
    Publisher->Subscribe(Logger);
    HuntERR::Reset();
  }

  /// What a handler reports when an instruction has ended.
  static Ref<IObject> Completion() {
    const auto report = New<CReport>();
    report->Initialize(u"CInstHandler", New<CInstContainer>(), Hex(0x80041454), u"", u"");
    return report;
  }
  static Ref<IObject> Silence() { return ReportOf(u"CIntervalCmd", u""); }

  Journal Calls;
  Ref<ConfigurationDouble> Configuration = New<ConfigurationDouble>(Calls);
  Ref<CXMLDataStore> Target = Store();
  Ref<CReportLogger> Logger = New<CReportLogger>();
  Ref<CSubscriptionAgent> Publisher = New<CSubscriptionAgent>();
};

TEST_F(LoggerRefusalTest, TheEndOfAnInstructionLeavesItsWholeReportBehind) {
  Publisher->Notify(Completion());
  Environment.Now = FakeErrorEnvironment::At(2031, 12, 24, 23, 59, 58); // it tells when it happened
  EXPECT_EQ(
      ToUtf8(HuntERR::ErrReport()),
      UntypedHeader + UntypedStack +
          "  Call Stack: modPublisher.TryUpdate(Subscriber={CReportLogger}, Subject={CReport}) ----------------\r\n");
  EXPECT_EQ(HuntERR::ErrNumber(), 31004);
  EXPECT_EQ(HuntERR::ErrSource(), u"HuntERR.ErrorIn");
  EXPECT_EQ(HuntERR::ErrDescription(), HuntERR::ErrReport());
  EXPECT_EQ(HuntERR::Err().Number, 31004);
  EXPECT_EQ(HuntERR::Err().Description.Text(), HuntERR::ErrReport());
}

TEST_F(LoggerRefusalTest, NothingUnwindsAndNobodyIsHeldByTheReport) {
  const std::weak_ptr<IObject> report = [this] {
    const auto made = Completion();
    EXPECT_NO_THROW(EXPECT_TRUE(bool(Logger->Offer(made))));
    Publisher->Notify(made);
    return made.Shared();
  }();
  EXPECT_TRUE(report.expired());
  EXPECT_EQ(HuntERR::ErrNumber(), 31004);
}

TEST_F(LoggerRefusalTest, AReportThatShowsNothingLeavesItsWholeReportBehind) {
  Publisher->Notify(Silence());
  EXPECT_EQ(ToUtf8(HuntERR::ErrReport()), NothingHeader + NothingStack);
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
}

TEST_F(LoggerRefusalTest, WhoAsksTheLoggerItselfGetsTheErrorRaised) {
  const auto error = Raised([&] { Logger->Update(Completion()); });
  EXPECT_EQ(ToUtf8(error.Description.Text()), UntypedHeader + UntypedStack);
  EXPECT_EQ(error.Number, 31004);
  EXPECT_EQ(error.Source, u"HuntERR.ErrorIn");
}

TEST_F(LoggerRefusalTest, TextThatWasCollectedStandsBehindTheFirstStackLine) {
  HuntERR::Check(false, 0, u"a hint");
  Publisher->Notify(Silence());
  EXPECT_EQ(ToUtf8(HuntERR::ErrReport()), NothingHeader + "a hint\r\n" + NothingStack);
  Publisher->Notify(Silence());
  EXPECT_EQ(HuntERR::ErrReport().find(u"a hint"), String::npos);
}

} // namespace
} // namespace portico::test
