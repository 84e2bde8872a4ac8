#include "application/Startup.h"

#include "framework/errors/Quit.h"
#include "framework/objects/CObjectFactory.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "support/doubles/WindowDouble.h"
#include "support/fixtures/PipelineFixture.h"

#include <stdexcept>

namespace portico {
namespace {

using test::FailureOf;
using test::Journal;

class StartupTest : public test::PlatformFixture {
protected:
  void SetUp() override {
    PlatformFixture::SetUp();
    gMainForm = nullptr;
    gXMLParserAvailable = false;
  }
  void TearDown() override {
    gXMLParserAvailable = false;
    PlatformFixture::TearDown();
  }

  modAppGlobals::Startup With(const String& commandLine) {
    return {[this] { Calls.emplace_back("xml"); },
            [this](const std::function<void()>& createObjectFactory) {
              Calls.emplace_back("form");
              createObjectFactory();
              return modAppGlobals::MainForm{m_form, nullptr, nullptr};
            },
            commandLine};
  }
  static String Item(const String& name) { return Create<IConfiguration>(u"Configuration")->ItemValue(name); }

  Ref<test::WindowDouble> m_form = New<test::WindowDouble>(Calls);
};

TEST_F(StartupTest, GoesFromTheParserToTheWindowAndStopsWithoutACommandLine) {
  m_form->OnShow = [this] {
    EXPECT_TRUE(IsSameObject(gMainForm, m_form));
    EXPECT_TRUE(gObjectFactory);
    EXPECT_TRUE(gXMLParserAvailable);
  };
  modAppGlobals::Main(With(u""));
  EXPECT_EQ(Calls, (Journal{"xml", "form", "show"}));
  EXPECT_TRUE(gMainForm);
}

TEST_F(StartupTest, ACommandLineOpensTheInstrumentThatItNames) {
  m_form->OnClick = [] {
    EXPECT_EQ(Item(u"InstrumentName"), u"SIM::DMM");
    EXPECT_EQ(Item(u"OpenfromTree"), u"True");
  };
  modAppGlobals::Main(With(u"SIM::DMM"));
  EXPECT_EQ(Calls, (Journal{"xml", "form", "show", "open instrument"}));
  EXPECT_EQ(Item(u"InstrumentName"), u"SIM::DMM");
}

TEST_F(StartupTest, ACommandLineOfBlanksOpensNothing) {
  modAppGlobals::Main(With(u"   "));
  EXPECT_EQ(Calls, (Journal{"xml", "form", "show"}));
  EXPECT_EQ(FailureOf([] { Item(u"InstrumentName"); }).Number, test::Hex(0x80041461));
}

TEST_F(StartupTest, ANameKeepsTheBlanksAroundIt) {
  modAppGlobals::Main(With(u"  SIM::DMM two "));
  EXPECT_EQ(Item(u"InstrumentName"), u"  SIM::DMM two ");
  EXPECT_EQ(Calls.back(), "open instrument");
}

TEST_F(StartupTest, AnErrorIsRecordedAndEndsThere) {
  m_form->OnClick = [] { HuntERR::Raise(17, u"Source", u"It fails."); };
  EXPECT_NO_THROW(modAppGlobals::Main(With(u"SIM::DMM")));
  const auto recorded = test::RecordedFailure();
  EXPECT_EQ(recorded.Number, 17);
  EXPECT_EQ(recorded.Text, u"It fails.");
  EXPECT_EQ(recorded.Trail, std::vector<String>{u"modAppGlobals.Main()"});
  EXPECT_TRUE(gMainForm) << "the window that is up stays up";
}

TEST_F(StartupTest, AnErrorInTheFactorysMakingIsRecordedAndNothingIsShown) {
  gInstrumentDriver.reset();
  EXPECT_NO_THROW(modAppGlobals::Main(With(u"SIM::DMM")));
  EXPECT_EQ(Calls, (Journal{"xml", "form"}));
  const auto recorded = test::RecordedFailure();
  EXPECT_EQ(recorded.Number, 91);
  ASSERT_GE(recorded.Trail.size(), 2U);
  EXPECT_EQ(recorded.Trail.back(), u"modAppGlobals.Main()");
  EXPECT_EQ(recorded.Trail[recorded.Trail.size() - 2], u"modAppGlobals.CreateObjectFactory()");
}

TEST_F(StartupTest, QuitPassesWithoutATrace) {
  m_form->OnShow = [] { throw Quit{}; };
  EXPECT_THROW(modAppGlobals::Main(With(u"SIM::DMM")), Quit);
  EXPECT_EQ(Calls.back(), "show");
  EXPECT_EQ(HuntERR::ErrNumber(), 0);
}

TEST_F(StartupTest, TheParserIsAvailableWhenADocumentCanBeMade) {
  modAppGlobals::DetectXMLParser([] {});
  EXPECT_TRUE(gXMLParserAvailable);
  EXPECT_TRUE(modGlobals::XMLParserAvailable());
}

TEST_F(StartupTest, TheParserIsNotAvailableWhenThatFails) {
  gXMLParserAvailable = true;
  EXPECT_NO_THROW(modAppGlobals::DetectXMLParser([] { throw std::runtime_error("no parser"); }));
  EXPECT_FALSE(gXMLParserAvailable);
  gXMLParserAvailable = true;
  EXPECT_NO_THROW(modAppGlobals::DetectXMLParser([] { HuntERR::Raise(429, u"Source", u"No parser."); }));
  EXPECT_FALSE(modGlobals::XMLParserAvailable());
}

TEST_F(StartupTest, ProgramsWithoutAParserStartAllTheSame) {
  auto startup = With(u"SIM::DMM");
  startup.CreateXMLDocument = [] { throw std::runtime_error("no parser"); };
  modAppGlobals::Main(startup);
  EXPECT_EQ(Calls, (Journal{"form", "show", "open instrument"}));
  EXPECT_FALSE(gXMLParserAvailable);
}

class CreateObjectFactoryTest : public test::PlatformFixture {};

TEST_F(CreateObjectFactoryTest, SetsTheGlobals) {
  ASSERT_FALSE(gObjectFactory);
  modAppGlobals::CreateObjectFactory();
  EXPECT_EQ(gObjectFactory->ClassName(), u"CObjectFactory");
  EXPECT_TRUE(IsSameObject(gChannel, Create<IChannel>(u"DriverSession")));
}

TEST_F(CreateObjectFactoryTest, AFailureInOneRegistrarEndsIt) {
  gInstrumentDriver.reset();
  const auto failure = FailureOf([] { modAppGlobals::CreateObjectFactory(); });
  EXPECT_EQ(failure.Number, 91);
  ASSERT_GE(failure.Trail.size(), 2U);
  EXPECT_EQ(failure.Trail[failure.Trail.size() - 2],
            u"CDriverSessionRegistrar.IRegistrar_RegisterClasses(ObjectFactory={CObjectFactory})");
  EXPECT_EQ(failure.Trail.back(), u"modAppGlobals.CreateObjectFactory()");

  // The registrars before it have run, those behind it have not.
  EXPECT_TRUE(gObjectFactory->GetCreator(u"CmdSubscriptionAgent"));
  EXPECT_EQ(FailureOf([] { gObjectFactory->GetCreator(u"InstructionProcessor"); }).Number, 5);
  EXPECT_FALSE(gChannel);
}

TEST_F(CreateObjectFactoryTest, EachFactoryHasSingletonsOfItsOwn) {
  modAppGlobals::CreateObjectFactory();
  const auto first = Create<IPublisher>(u"CmdSubscriptionAgent");
  modAppGlobals::CreateObjectFactory();
  EXPECT_FALSE(IsSameObject(first, Create<IPublisher>(u"CmdSubscriptionAgent")));
}

TEST_F(CreateObjectFactoryTest, LettingTheFactoryGoClosesAnInstrumentThatIsStillOpen) {
  modAppGlobals::CreateObjectFactory();
  gChannel->OpenChannel(u"DMM");
  EXPECT_EQ(Calls, Journal{"init DMM"});
  modAppGlobals::ReleaseObjectFactory();
  EXPECT_EQ(Calls, (Journal{"init DMM", "close"}));
  EXPECT_FALSE(gObjectFactory);
  EXPECT_FALSE(gChannel);
}

TEST_F(CreateObjectFactoryTest, LettingItGoClosesNothingThatIsNotOpen) {
  modAppGlobals::CreateObjectFactory();
  modAppGlobals::ReleaseObjectFactory();
  EXPECT_EQ(Calls, Journal{});
}

} // namespace
} // namespace portico
