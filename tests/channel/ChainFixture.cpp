#include "channel/ChainFixture.h"

namespace portico::test {

ChainTest::ChainTest() {
  gChannel = Channel;
  gObjectFactory = Factory;
  Offer(u"Configuration", Server);
  Offer(u"CmdSubscriptionAgent", Publisher);
}

ChainTest::~ChainTest() {
  Publisher->Subjects.clear(); // a command holds its publisher
  gChannel = nullptr;
  gObjectFactory = nullptr;
  HuntERR::Reset();
}

Ref<CreatorOfOne> ChainTest::Offer(StringView specification, const Ref<IObject>& product) {
  auto creator = New<CreatorOfOne>(String(specification), product);
  Factory->Add(creator);
  return creator;
}

void ChainTest::ExpectReport(std::size_t at, const ReportText& expected) {
  ASSERT_GT(Publisher->Reports.size(), at);
  const ReportText& report = Publisher->Reports[at];
  EXPECT_EQ(report.Command, expected.Command);
  EXPECT_EQ(report.Data, expected.Data);
  EXPECT_EQ(report.Message, expected.Message);
  EXPECT_EQ(report.Code, expected.Code);
  EXPECT_EQ(report.Instruction, expected.Instruction);
}

} // namespace portico::test
