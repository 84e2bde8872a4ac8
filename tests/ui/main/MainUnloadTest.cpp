#include "framework/objects/IPublisher.h"
#include "support/doubles/Objects.h"
#include "ui/main/MainWindowFixture.h"

namespace portico::test {
namespace {

constexpr StringView Sentence = u"An error occured while exitting.";
/// The name of another routine: reports of this one have always borne it.
constexpr StringView Label = u"frmMain.mnuFileOpenInstrument_Click";

/// Settings that write down what is saved, and fail where they are told to.
class SettingsSpy final : public ISettingsStore {
public:
  explicit SettingsSpy(std::shared_ptr<ISettingsStore> store) : m_store(std::move(store)) {}
  String GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) override {
    return m_store->GetSetting(Title, Section, Key, Default);
  }
  void SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) override {
    if (Section == u"frmMain") Keys.push_back(ToUtf8(Key));
    if (OnSave) OnSave();
    if (Key == FailingKey) HuntERR::Raise(ErrorNumber::CannotCarryOut, u"Somewhere", u"It broke.");
    m_store->SaveSetting(Title, Section, Key, Value);
  }

  std::vector<std::string> Keys;
  String FailingKey;
  std::function<void()> OnSave;

private:
  std::shared_ptr<ISettingsStore> m_store;
};

constexpr FormDesign OtherDesign{.Name = u"frmOther", .Caption = u"Other"};

class MainUnloadTest : public MainWindowFixture {
protected:
  MainUnloadTest() { gSettingsStore = Spy; }
  void Unload() {
    Loop->FinishQuit();
    Window->Form_Unload();
  }
  using Texts = std::vector<std::string>;
  const Texts AllKeys = {"MainWindowState", "MainLeft", "MainTop", "MainWidth", "MainHeight", "SplitPercent"};
  std::shared_ptr<SettingsSpy> Spy = std::make_shared<SettingsSpy>(Store);
};

TEST_F(MainUnloadTest, SavesThePlaceInItsOrder) {
  Start();
  Unload();
  EXPECT_EQ(Spy->Keys, AllKeys);
  ExpectNoBox();
}

TEST_F(MainUnloadTest, ClosesTheInstrumentFirstAndUnloadsTheOtherForms) {
  Start();
  const auto first = Screen->Load(OtherDesign);
  const auto second = Screen->Load(OtherDesign);
  first->Show();
  OnCommand = [&](const std::string&) {
    EXPECT_EQ(Screen->Forms().size(), 3U);
    EXPECT_TRUE(Spy->Keys.empty());
  };
  Unload();
  EXPECT_EQ(Commands, Texts{"CloseInstrument"});
  ASSERT_EQ(Screen->Forms().size(), 1U);
  EXPECT_EQ(Screen->Forms()[0]->Name(), u"frmMain");
}

TEST_F(MainUnloadTest, LetsGoOfSubscribersAndViews) {
  Start();
  const auto agent = Create<IPublisher>(u"CmdSubscriptionAgent");
  Unload();
  EXPECT_FALSE(Window->Logger());
  EXPECT_EQ(Raised([this] { static_cast<void>(Window->Executing()); }).Number, 91);
  SetItem(u"CurrentInstruction", u"*RST");
  agent->Notify(Create<IObject>(
      u"Report", modGlobals::VarArray(u"COMPLETE", Ref<IObject>(), ErrorNumber::InstructionComplete, u"", u"")));
  EXPECT_EQ(Item(u"CurrentInstruction"), "*RST") << "the runner hears nothing any more";
  EXPECT_EQ(ToUtf8(Past().Text()), "") << "nor does the displayer";
}

TEST_F(MainUnloadTest, KeepsNoneOfItsObjects) {
  constexpr const char16_t* specifications[] = {u"SCPIView", u"InstructionRunner", u"SCPIViewHistory",
                                                u"ReportDisplayer"};
  std::vector<std::weak_ptr<IObject>> made;
  OnFactory = [&] {
    for (const auto* specification : specifications) {
      gObjectFactory->Substitue(
          New<NotingCreator>(gObjectFactory->GetCreator(specification), nullptr,
                             [&](const Ref<IObject>& product) { made.emplace_back(product.Shared()); }));
    }
  };
  Start();
  ASSERT_EQ(made.size(), std::size(specifications));
  for (const auto& object : made) EXPECT_FALSE(object.expired());
  Unload();
  for (std::size_t i = 0; i < made.size(); ++i) EXPECT_TRUE(made[i].expired()) << ToUtf8(specifications[i]);
}

/// An agent that writes down who leaves.
class AgentSpy final : public IPublisher {
public:
  StringView ClassName() const override { return u"AgentSpy"; }
  void Subscribe(const Ref<ISubscriber>&) override {}
  void Unsubscribe(const Ref<ISubscriber>& Subscriber) override { Left.push_back(ToUtf8(Subscriber->ClassName())); }
  void Notify(const Ref<IObject>&) override {}

  std::vector<std::string> Left;
};

TEST_F(MainUnloadTest, UnsubscribesTheDisplayerThenTheRunner) {
  Start();
  const auto agent = New<AgentSpy>();
  gObjectFactory->Substitue(New<CreatorOfOne>(u"CmdSubscriptionAgent", agent));
  Unload();
  EXPECT_EQ(agent->Left, (Texts{"CReportDisplayer", "CInstructionRunner"}));
  ExpectNoBox();
}

class LoggerSpy final : public ISubscriber {
public:
  StringView ClassName() const override { return u"LoggerSpy"; }
  void Update(const Ref<IObject>&) override { ++Updates; }
  int Updates = 0;
};

TEST_F(MainUnloadTest, UnsubscribesTheLogger) {
  Start();
  const auto agent = Create<IPublisher>(u"CmdSubscriptionAgent");
  const auto logger = New<LoggerSpy>();
  Window->Logger(logger);
  Unload();
  EXPECT_FALSE(Window->Logger());
  agent->Notify(logger);
  EXPECT_EQ(logger->Updates, 0);
}

TEST_F(MainUnloadTest, GoesOnAfterACloseThatFails) {
  Start();
  OfferFailure(u"CloseInstrument");
  Unload();
  ExpectOneBox(Sentence, Label);
  ASSERT_GE(LastTrail.size(), 2U);
  EXPECT_TRUE(Bears(LastTrail[LastTrail.size() - 2], u"modAppGlobals.EventHandler(cmdName, Params)"));
  EXPECT_EQ(Spy->Keys, AllKeys);
  EXPECT_FALSE(Window->Logger());
}

TEST_F(MainUnloadTest, GoesOnAfterAFormThatCannotBeUnloaded) {
  Start();
  const auto first = Screen->Load(OtherDesign);
  const auto second = Screen->Load(OtherDesign);
  first->Events().Unload.Connect([] { Fail(); });
  Unload();
  ExpectOneBox(Sentence, Label);
  EXPECT_EQ(Screen->Forms().size(), 1U) << "the other one is unloaded";
  EXPECT_EQ(Spy->Keys, AllKeys);
}

TEST_F(MainUnloadTest, GoesOnWithoutAnAgent) {
  Start();
  OfferFailure(u"CmdSubscriptionAgent");
  Unload();
  // The agent, each of the two who cannot be unsubscribed without it, and the logger.
  ASSERT_EQ(Box->Calls().size(), 4U);
  for (const auto& call : Box->Calls()) {
    EXPECT_EQ(call.Prompt.find(String(Sentence).append(NewLine)), 0U);
    EXPECT_TRUE(Bears(CallStack(call.Prompt).back(), Label));
  }
  EXPECT_EQ(Spy->Keys, AllKeys);
}

class UnloadSavingTest : public MainUnloadTest, public ::testing::WithParamInterface<const char16_t*> {};

TEST_P(UnloadSavingTest, GoesOnAfterASettingThatCannotBeSaved) {
  Start();
  Spy->FailingKey = GetParam();
  Unload();
  ExpectOneBox(Sentence, Label);
  EXPECT_EQ(Spy->Keys, AllKeys);
}

INSTANTIATE_TEST_SUITE_P(OfEachKey, UnloadSavingTest,
                         ::testing::Values(u"MainWindowState", u"MainLeft", u"MainTop", u"MainWidth", u"MainHeight",
                                           u"SplitPercent"));

TEST_F(MainUnloadTest, TerminatingLetsGoOfTheConfigurationBeforeTheFactory) {
  Start();
  gConfiguration->ItemValue(u"SCPIProtocolPacingInterval", u"250");
  Unload();
  EXPECT_TRUE(gConfiguration) << "options are saved by the termination only";
  EXPECT_EQ(Setting(u"SCPIProtocolPacingInterval", u"Configuration"), "(none)");
  int saved = 0;
  Spy->OnSave = [&] {
    ++saved;
    EXPECT_TRUE(gObjectFactory) << "it goes when the options are saved";
  };
  Window->Form_Terminate();
  EXPECT_EQ(saved, 11);
  EXPECT_FALSE(gConfiguration);
  EXPECT_FALSE(gObjectFactory);
  EXPECT_EQ(Setting(u"SCPIProtocolPacingInterval", u"Configuration"), "250");
}

} // namespace
} // namespace portico::test
