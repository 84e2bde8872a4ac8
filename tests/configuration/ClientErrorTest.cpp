#include "configuration/ClientFixture.h"

namespace portico {
namespace {

using test::ClientTest;
using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

class ClientErrorTest : public ClientTest {};

TEST_F(ClientErrorTest, WithoutAFactoryItCannotBeMade) {
  gObjectFactory = nullptr;
  const ErrorRecord error = Raised([] {
    try {
      New<CConfigurationClient>();
    } catch (const Error& thrown) {
      throw Error(*thrown.Held());
    }
  });
  ExpectError(error, 424, u"This operation requires an object factory.");
  ExpectTrail(error,
              {u"CConfigurationClient.SetGlobalConfigurationServer()", u"CConfigurationClient.Class_Initialize"});
}

TEST_F(ClientErrorTest, WithoutAServerItCannotBeMade) {
  Offered() = nullptr;
  EXPECT_THROW(New<CConfigurationClient>(), Error);
  EXPECT_EQ(HuntERR::ErrNumber(), 31004);
  EXPECT_EQ(test::FirstDescription(HuntERR::ErrDescription()), u"Cannot create a configuration server.");
  ExpectTrail(HuntERR::ErrDescription(),
              {u"CConfigurationClient.SetGlobalConfigurationServer()", u"CConfigurationClient.Class_Initialize"});
}

TEST_F(ClientErrorTest, SavedProtocolThatIsUnknownFailsTheRestoring) {
  Save(u"ProtocolName", u"Modem");
  EXPECT_THROW(New<CConfigurationClient>(), Error);
  EXPECT_EQ(HuntERR::ErrNumber(), 51);
  ExpectTrail(HuntERR::ErrDescription(),
              {u"CConfigurationClient.ApplyProtocolSettings", u"CConfigurationClient.RestoreConfiguration()",
               u"CConfigurationClient.Class_Initialize"});
}

TEST_F(ClientErrorTest, ItemThatIsGoneFailsThePersistingWithoutRaising) {
  Start();
  Items->Clear();
  EXPECT_NO_THROW(Client = nullptr);
  EXPECT_EQ(HuntERR::ErrNumber(), Hex(0x80041461));
  ExpectTrail(HuntERR::ErrDescription(),
              {u"CConfiguration.IConfiguration_ItemValue()", u"CConfigurationClient.PersistConfiguration()",
               u"CConfigurationClient.Class_Terminate"});
}

TEST_F(ClientErrorTest, UnknownProtocolNameIsStoredAndThenRaises51) {
  Start();
  const ErrorRecord error = Raised([&] { Client->ItemValue(u"ProtocolName", u"scpi"); });
  ExpectError(error, 51, u"Unknown communication protocol.");
  ExpectTrail(error, {u"CConfigurationClient.ApplyProtocolSettings",
                      u"CConfigurationClient.IConfiguration_ItemValue(Name, RHS)"});
  EXPECT_EQ(Events, (test::Trace{"ProtocolName=scpi", "get ProtocolName"})); // nothing copied, nothing redrawn
  EXPECT_EQ(Item(u"TERMCHAR"), u"Auto");
  Client = nullptr;
  EXPECT_EQ(Saved(u"ProtocolName"), u"scpi");
}

TEST_F(ClientErrorTest, UnknownProtocolNameCannotBeReadAsACode) {
  Start();
  Server->ItemValue(u"ProtocolName", u"OTHER");
  const ErrorRecord error = Raised([&] { static_cast<void>(Client->Protocol()); });
  ExpectError(error, 51, u"Unknown communication protocol.");
  ExpectTrail(error, {u"CConfigurationClient.Protocol"});
}

TEST_F(ClientErrorTest, UnknownProtocolCodeChangesNothing) {
  Start();
  for (const std::int32_t code : {2, -1}) {
    const ErrorRecord error = Raised([&] { Client->Protocol(code); });
    ExpectError(error, 51, u"Unknown communication protocol.");
    ExpectTrail(error, {u"CConfigurationClient.Protocol(newvalue)"});
  }
  EXPECT_THAT(Events, ::testing::IsEmpty());
}

TEST_F(ClientErrorTest, MissingItemPassesTheClientsLabel) {
  Start();
  const ErrorRecord error = Raised([&] { Client->ItemValue(u"Nothing"); });
  ExpectError(error, Hex(0x80041461), u"Requested configuration item, Nothing, does not exist.");
  ExpectTrail(error,
              {u"CConfiguration.IConfiguration_ItemValue()", u"CConfigurationClient.IConfiguration_ItemValue(Name)"});
}

TEST_F(ClientErrorTest, FailureOfTheWindowComesAfterTheWrite) {
  Start();
  Window->OnUpdate = [] { HuntERR::Raise(7777, u"Test", u"It fails."); };
  const ErrorRecord error = Raised([&] { Client->ItemValue(u"Logging", u"Off"); });
  ExpectError(error, 7777, u"It fails.");
  ExpectTrail(error, {u"CConfigurationClient.IConfiguration_ItemValue(Name, RHS)"});
  EXPECT_EQ(Item(u"Logging"), u"Off");
}

TEST_F(ClientErrorTest, WithoutAStoreItCannotBeMade) {
  gSettingsStore = nullptr;
  EXPECT_THROW(New<CConfigurationClient>(), Error);
  EXPECT_EQ(HuntERR::ErrNumber(), 91);
}

} // namespace
} // namespace portico
