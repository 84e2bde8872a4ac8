#include "ui/viewer/ViewLogFixture.h"

#include "memory/forms/DeviceContext.h"
#include "platform/IProgress.h"

namespace portico::test {
namespace {

constexpr int Entities = 2000;

/// Viewers of logs that are longer than what is shown at once.
class ViewLogLongTest : public ViewLogFixture {
protected:
  ViewLogLongTest() { MakeLongLog("run.log"); }
  ~ViewLogLongTest() override { gProgress.reset(); }

  void MakeLongLog(const std::string& name) const {
    const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf(name), true));
    store->OpenSession();
    for (int i = 0; i < Entities; ++i) store->AppendDataEntityToStore(Entity(Line(i), u"Instruction"));
    store->CloseSession();
  }
  static String Line(int number) { return ToText(std::int64_t{number}) + u"\r\n"; }
  static String AllLines() {
    String all;
    for (int i = 0; i < Entities; ++i) all += Line(i);
    return all;
  }
  /// Something happens that is no business of a viewer's; time goes on meanwhile.
  void Turn() {
    Platform.Time.Advance(std::chrono::milliseconds(1));
    gEventLoop->DoEvents();
  }
  /// The turns that it took.
  int TurnUntilAllIsShown(const Ref<memory::Form>& viewer) {
    int turns = 0;
    while (IsUnderWay(viewer) && turns < Entities) {
      Turn();
      ++turns;
    }
    return turns;
  }
  static bool IsUnderWay(const Ref<memory::Form>& viewer) { return viewer->Caption().ends_with(u" %)"); }
  static bool IsBegun(const String& text) {
    return !text.empty() && text.size() < AllLines().size() && AllLines().starts_with(text);
  }
};

TEST_F(ViewLogLongTest, TheFirstLinesAreShownAtOnceAndTheRestFollowsInTurnsOfTheLoop) {
  const auto viewer = View("run.log");
  EXPECT_TRUE(viewer->IsShown());
  EXPECT_TRUE(IsBegun(Past(viewer).Text()));
  const auto first = Past(viewer).TextLength();
  Turn();
  EXPECT_GT(Past(viewer).TextLength(), first);
  EXPECT_TRUE(IsBegun(Past(viewer).Text()));
  EXPECT_GT(TurnUntilAllIsShown(viewer), 1);
  EXPECT_TRUE(Past(viewer).Text() == AllLines());
  Turn();
  EXPECT_EQ(Past(viewer).TextLength(), AllLines().size());
}

TEST_F(ViewLogLongTest, TheCaptionTellsHowFarItHasComeAndThenTheNameAlone) {
  const auto viewer = View("run.log");
  std::vector<std::string> captions;
  while (IsUnderWay(viewer) && captions.size() < Entities) {
    captions.push_back(ToUtf8(viewer->Caption()));
    Turn();
  }
  const std::string name = "Log Viewer - " + PathOf("run.log");
  EXPECT_EQ(captions, (List{name + " (25 %)", name + " (50 %)", name + " (75 %)"}));
  EXPECT_EQ(ToUtf8(viewer->Caption()), name);
}

TEST_F(ViewLogLongTest, AFewLargeEntitiesAreAsMuchAsManySmallOnes) {
  const String large = String(999'998, u'x') + u"\r\n";
  MakeLog("run.log", {large, large, large});
  const auto viewer = View("run.log");
  EXPECT_EQ(Past(viewer).TextLength(), 1'000'000);
  EXPECT_EQ(TurnUntilAllIsShown(viewer), 2);
  EXPECT_EQ(Past(viewer).TextLength(), 3'000'000);
}

TEST_F(ViewLogLongTest, AViewerMayBeClosedInTheMiddle) {
  auto viewer = frmViewLog::Make();
  const std::weak_ptr<frmViewLog> logic = viewer.Shared();
  viewer->FileName(NameOf("run.log"));
  viewer->Show(&Main->Form());
  viewer = {};
  std::weak_ptr<memory::Form> form = Platform.Screen->Find(u"frmViewLog").Shared();
  Turn();
  ASSERT_TRUE(IsUnderWay(Ref<memory::Form>(form.lock())));
  form.lock()->Close();
  EXPECT_TRUE(logic.expired());
  EXPECT_TRUE(form.expired());
  Turn();
  EXPECT_EQ(gForms->Forms().size(), 1U);
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
}

TEST_F(ViewLogLongTest, AViewerThatIsClosedAndStillHeldShowsNoMore) {
  const auto viewer = View("run.log");
  const String text = Past(viewer).Text();
  viewer->Close();
  for (int i = 0; i < 5; ++i) Turn();
  EXPECT_TRUE(Past(viewer).Text() == text);
}

TEST_F(ViewLogLongTest, AViewerMayBeClosedWhileItIsBeingShown) {
  const auto timer = gEventLoop->MakeTimer();
  timer->Interval(1);
  timer->Enabled(true);
  Ref<memory::Form> form;
  timer->Timer().Connect([&] {
    timer->Enabled(false);
    form = Platform.Screen->Find(u"frmViewLog");
    form->Close();
  });
  Platform.Time.Advance(std::chrono::milliseconds(1));
  const auto viewer = frmViewLog::Make();
  viewer->FileName(NameOf("run.log"));
  viewer->Show(&Main->Form());
  ASSERT_TRUE(bool(form));
  const auto length = Past(form).TextLength();
  for (int i = 0; i < 5; ++i) Turn();
  EXPECT_EQ(Past(form).TextLength(), length);
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
}

TEST_F(ViewLogLongTest, WhatTheUserSelectsMeanwhileStaysSelected) {
  const auto viewer = View("run.log");
  Select(Past(viewer), 3, 4);
  Turn();
  EXPECT_EQ(Past(viewer).SelStart(), 3);
  EXPECT_EQ(Past(viewer).SelLength(), 4);
  TurnUntilAllIsShown(viewer);
  EXPECT_EQ(Past(viewer).SelStart(), 3);
  EXPECT_EQ(Past(viewer).SelLength(), 4);
  EXPECT_EQ(ToUtf8(Past(viewer).SelText()), ToUtf8(AllLines().substr(3, 4)));
}

TEST_F(ViewLogLongTest, TheCaretWaitsAtTheTopAndThenStandsAtTheEnd) {
  const auto viewer = View("run.log");
  EXPECT_EQ(Past(viewer).SelStart(), 0);
  Turn();
  EXPECT_EQ(Past(viewer).SelStart(), 0);
  TurnUntilAllIsShown(viewer);
  EXPECT_EQ(Past(viewer).SelStart(), AllLines().size());
  EXPECT_EQ(Past(viewer).SelLength(), 0);
}

TEST_F(ViewLogLongTest, CopyIsForWhatIsSelectedMeanwhile) {
  const auto viewer = View("run.log");
  Past(viewer).SetFocus();
  Select(Past(viewer), 0, 4);
  Turn();
  Menu(viewer, u"mnuEdit").Choose();
  EXPECT_TRUE(Menu(viewer, u"mnuCopy").Choose());
  Platform.Keyboard->Deliver();
  EXPECT_EQ(gClipboard->GetText(), u"0\r\n1");
}

TEST_F(ViewLogLongTest, PrintingMeanwhilePrintsTheWholeLog) {
  const auto context = New<memory::DeviceContext>();
  Dialog->Context = context;
  const auto viewer = View("run.log");
  EXPECT_TRUE(Menu(viewer, u"mnuFilePrint").Choose());
  ASSERT_EQ(context->Printed().size(), 1U);
  EXPECT_TRUE(context->Printed().front() == AllLines());
  Turn();
  EXPECT_EQ(viewer->Caption(), u"Log Viewer - " + NameOf("run.log"));
  EXPECT_TRUE(Past(viewer).Text() == AllLines());
}

TEST_F(ViewLogLongTest, PrintingThatWaitsForTheRestCanBeGivenUp) {
  /// Given up at the second step from when it is told to be.
  struct : IProgress {
    void Begin(const String& Prompt) override { Prompts.push_back(ToUtf8(Prompt)); }
    bool Step(double Done, double Total) override {
      Last = Done / Total;
      return --Left != 0;
    }
    void End() noexcept override { ++Ends; }
    std::vector<std::string> Prompts;
    double Last = 0;
    int Left = 0;
    std::size_t Ends = 0;
  } progress;
  const auto context = New<memory::DeviceContext>();
  Dialog->Context = context;
  const auto viewer = View("run.log");
  gProgress = std::shared_ptr<IProgress>(std::shared_ptr<IProgress>(), &progress);
  progress.Left = 2;
  EXPECT_TRUE(Menu(viewer, u"mnuFilePrint").Choose());
  EXPECT_EQ(progress.Prompts, (List{"Reading " + PathOf("run.log")}));
  EXPECT_EQ(progress.Last, 0.75);
  EXPECT_EQ(progress.Ends, 1U);
  EXPECT_TRUE(context->Printed().empty());
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
  TurnUntilAllIsShown(viewer);
  EXPECT_TRUE(Past(viewer).Text() == AllLines());
}

TEST_F(ViewLogLongTest, TheWarningOfATornLogComesWhenAllOfItIsShown) {
  const std::string log = Read("run.log");
  Write("run.log", log.substr(0, log.find("</Session>")));
  const auto viewer = View("run.log");
  Turn();
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
  Platform.MessageBox->Answer();
  Platform.MessageBox->OnShow = [&](const auto&) { EXPECT_TRUE(Past(viewer).Text() == AllLines()); };
  TurnUntilAllIsShown(viewer);
  ASSERT_EQ(Platform.MessageBox->Calls().size(), 1U);
  EXPECT_EQ(Platform.MessageBox->Calls().front().Prompt,
            u"The end of the log, " + NameOf("run.log") +
                u", is missing. It breaks off in session 1, opened stamp 1. What stands in front of that is shown.");
  Turn();
  EXPECT_EQ(Platform.MessageBox->Calls().size(), 1U);
}

TEST_F(ViewLogLongTest, ATornLogThatIsClosedInTheMiddleIsNotWarnedOf) {
  const std::string log = Read("run.log");
  Write("run.log", log.substr(0, log.find("</Session>")));
  const auto viewer = View("run.log");
  viewer->Close();
  Turn();
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
}

TEST_F(ViewLogLongTest, TwoViewersTakeTurns) {
  MakeLongLog("other.log");
  const auto one = View("run.log");
  const auto two = View("other.log");
  Turn();
  EXPECT_TRUE(IsBegun(Past(one).Text()));
  EXPECT_EQ(Past(one).TextLength(), Past(two).TextLength());
  one->Close();
  TurnUntilAllIsShown(two);
  EXPECT_TRUE(Past(two).Text() == AllLines());
}

TEST_F(ViewLogLongTest, WhatIsWrittenMeanwhileIsNotShown) {
  const auto viewer = View("run.log");
  const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf("run.log"), false));
  store->OpenSession();
  store->AppendDataEntityToStore(Entity(u"later\r\n", u"Instruction"));
  TurnUntilAllIsShown(viewer);
  EXPECT_TRUE(Past(viewer).Text() == AllLines());
}

TEST_F(ViewLogLongTest, AFailureInTheRestEndsItAndIsToldAsOneOfTheLoading) {
  const auto viewer = View("run.log");
  const auto connection =
      Past(viewer).Change().Connect([] { HuntERR::Raise(ErrorNumber::InternalState, u"Box", u"No room for more."); });
  Platform.MessageBox->Answer();
  Platform.MessageBox->OnShow = [this](const auto&) { Turn(); };
  Turn();
  ExpectBox(u"An error occured while loading.", u"frmViewLog.Form_Load", u"No room for more.");
  const auto labels = Labels(Platform.MessageBox->Calls().front().Prompt);
  EXPECT_EQ(labels[labels.size() - 2], u"frmViewLog.LoadLog()");
  Past(viewer).Change().Disconnect(connection);
  const auto length = Past(viewer).TextLength();
  Turn();
  EXPECT_EQ(Past(viewer).TextLength(), length);
  EXPECT_EQ(viewer->Caption(), u"Log Viewer");
  EXPECT_TRUE(viewer->IsShown());
}

} // namespace
} // namespace portico::test
