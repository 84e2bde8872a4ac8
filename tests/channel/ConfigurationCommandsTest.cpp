#include "channel/ChainFixture.h"
#include "support/doubles/Objects.h"

#include "configuration/CConfiguration.h"

namespace portico {
namespace {

using test::ChainTest;
using test::Made;
using test::Trace;

class ConfigurationCommandsTest : public ChainTest {};

TEST_F(ConfigurationCommandsTest, GetRetrievesPublishesAndRunsTheInner) {
  Server->Answer = u"<filled/>";
  Made<CGetConfigCmd>(Inner, Publisher, u"<asked/>")->Execute();
  EXPECT_EQ(Events, (Trace{"Retrieve(<asked/>)", "Notify(CGetConfigCmd)", "Inner"}));
  ExpectReport(0, {u"CGetConfigCmd", u"<filled/>", u"Success", 0, u""});
}

TEST_F(ConfigurationCommandsTest, SetUpdatesPublishesAndRunsTheInner) {
  Server->Answer = u"<all/>";
  Made<CSetConfigCmd>(Inner, Publisher, u"<given/>")->Execute();
  EXPECT_EQ(Events, (Trace{"Update(<given/>)", "Notify(CSetConfigCmd)", "Inner"}));
  ExpectReport(0, {u"CSetConfigCmd", u"<all/>", u"Success", 0, u""});
}

TEST_F(ConfigurationCommandsTest, ServerIsAskedForWithoutParameters) {
  const auto creator = New<test::CreatorOfOne>(u"Configuration", Server);
  creator->LastCount = 99;
  Factory->Substitue(creator);
  Made<CGetConfigCmd>(nullptr, nullptr, u"")->Execute();
  EXPECT_EQ(creator->LastCount, 0U);
}

/// With the server of the program.
class RealServerTest : public ChainTest {
protected:
  RealServerTest() { Factory->Substitue(MakeCreator(CtorConfiguration)); }
};

TEST_F(RealServerTest, GetReportsTheValuesThatSetHasStored) {
  Made<CSetConfigCmd>(nullptr, Publisher, u"<Parameters><Parameter Name=\"A\">1</Parameter></Parameters>")->Execute();
  Made<CGetConfigCmd>(nullptr, Publisher, u"<Parameters><Parameter Name=\"A\"/></Parameters>")->Execute();
  ExpectReport(1,
               {u"CGetConfigCmd", u"<Parameters><Parameter Name=\"A\">1</Parameter></Parameters>", u"Success", 0, u""});
}

TEST_F(RealServerTest, TextThatIsNotXMLStopsTheChain) {
  ErrorRecord error = test::Raised([&] { Made<CSetConfigCmd>(Inner, Publisher, u"Logging=On")->Execute(); });
  test::ExpectError(error, 5, u"Syntax Error: Configuration is not valid XML");
  test::ExpectTrail(error, {u"CConfiguration.Update(Configuration)", u"COpenCmd.ICommand_Execute"});
  error = test::Raised([&] { Made<CGetConfigCmd>(Inner, Publisher, u"Logging=On")->Execute(); });
  test::ExpectError(error, 5, u"Syntax Error: Configuration is not valid XML");
  test::ExpectTrail(error, {u"CConfiguration.Update(Configuration)", u"CGetConfigCmd.ICommand_Execute"});
  EXPECT_THAT(Events, ::testing::IsEmpty());
}

TEST_F(RealServerTest, OpenStoresTheTextOfTheTruthValue) {
  const auto server = Create<IConfiguration>(u"Configuration");
  Made<COpenCmd>(nullptr, nullptr, u"X")->Execute();
  EXPECT_EQ(server->ItemValue(u"InstrumentOpened"), u"True");
  Channel->Code = -1;
  Made<COpenCmd>(nullptr, nullptr, u"X")->Execute();
  EXPECT_EQ(server->ItemValue(u"InstrumentOpened"), u"False");
}

} // namespace
} // namespace portico
