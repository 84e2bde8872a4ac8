#include "ui/viewer/ViewLogFixture.h"

#include "framework/errors/Quit.h"
#include "platform/IProgress.h"

namespace portico::test {
namespace {

/// Progress that is written down, and given up at a step.
class ProgressDouble final : public IProgress {
public:
  explicit ProgressDouble(Journal& journal) : m_journal(journal) {}
  void Begin(const String& Prompt) override { m_journal.push_back("begin " + ToUtf8(Prompt)); }
  bool Step(double Done, double Total) override {
    Shares.push_back(Done / Total);
    if (OnStep) OnStep(Shares.back());
    return Shares.back() < GiveUpAt;
  }
  void End() noexcept override { m_journal.emplace_back("end"); }

  std::vector<double> Shares;
  double GiveUpAt = 2;
  std::function<void(double)> OnStep;

private:
  Journal& m_journal;
};

class ViewLogProgressTest : public ViewLogFixture {
protected:
  ViewLogProgressTest() { MakeLog("run.log", {u"one\r\n", u"two\r\n", u"three\r\n"}); }
  ~ViewLogProgressTest() override { gProgress.reset(); }

  /// The viewer that is there when the user gives the work up at that share of it.
  Ref<memory::Form> ViewGivenUpAt(double share) {
    Progress->GiveUpAt = share;
    Calls.clear();
    return View("run.log");
  }

  std::shared_ptr<ProgressDouble> Progress = [this] {
    auto progress = std::make_shared<ProgressDouble>(Calls);
    gProgress = progress;
    return progress;
  }();
};

TEST_F(ViewLogProgressTest, OpeningALogTellsHowFarItIsFromTheFirstByteToTheLastEntity) {
  Calls.clear();
  const auto viewer = View("run.log");
  EXPECT_EQ(Calls, (List{"begin Reading " + PathOf("run.log"), "end"}));
  ASSERT_GE(Progress->Shares.size(), 7U); // start and end of two passes, and three entities
  EXPECT_EQ(Progress->Shares.front(), 0);
  EXPECT_EQ(Progress->Shares.back(), 1);
  EXPECT_TRUE(std::is_sorted(Progress->Shares.begin(), Progress->Shares.end()));
  EXPECT_EQ(Past(viewer).Text(), u"one\r\ntwo\r\nthree\r\n");
}

TEST_F(ViewLogProgressTest, EachEntityThatIsShownIsAnEqualStep) {
  View("run.log");
  const std::vector<double> last(Progress->Shares.end() - 3, Progress->Shares.end());
  EXPECT_NEAR(last[1] - last[0], last[2] - last[1], 1E-12);
  EXPECT_GT(last[1], last[0]);
}

TEST_F(ViewLogProgressTest, GivingUpClosesTheViewerSilently) {
  for (const double share : {0.0, 0.05, 0.1, 0.2, 0.5, 1.0}) {
    Progress->Shares.clear();
    EXPECT_FALSE(bool(ViewGivenUpAt(share))) << share;
    EXPECT_GE(Progress->Shares.back(), share);
    EXPECT_EQ(Calls, (List{"begin Reading " + PathOf("run.log"), "end"}));
  }
  EXPECT_TRUE(Platform.MessageBox->Calls().empty());
  EXPECT_EQ(HuntERR::ErrReport(), u"");
  EXPECT_EQ(gForms->Forms().size(), 1U);
}

TEST_F(ViewLogProgressTest, GivingUpLeavesNothingBehind) {
  auto viewer = frmViewLog::Make();
  const std::weak_ptr<frmViewLog> logic = viewer.Shared();
  viewer->FileName(NameOf("run.log"));
  Progress->GiveUpAt = 0.5;
  viewer->Show(&Main->Form());
  viewer = {};
  EXPECT_TRUE(logic.expired());
  Progress->GiveUpAt = 2;
  EXPECT_EQ(Past(View("run.log")).Text(), u"one\r\ntwo\r\nthree\r\n");
}

TEST_F(ViewLogProgressTest, TheCommandThatViewsALogGoesOnWhenItIsGivenUp) {
  Dialog->FileName = NameOf("run.log");
  Progress->GiveUpAt = 0.5;
  Main->MousePointer(0);
  Run(u"ViewLogFile");
  EXPECT_EQ(Main->MousePointer(), 0);
  EXPECT_EQ(gForms->Forms().size(), 1U);
}

TEST_F(ViewLogProgressTest, AFailureEndsTheProgressBeforeItIsShown) {
  Write("run.log", "no log at all");
  Platform.MessageBox->Answer();
  Platform.MessageBox->OnShow = [this](const auto&) { Calls.emplace_back("box"); };
  Calls.clear();
  View("run.log");
  EXPECT_EQ(Calls, (List{"begin Reading " + PathOf("run.log"), "end", "box"}));
}

TEST_F(ViewLogProgressTest, TheEndOfTheProgramPassesTheReading) {
  for (const double share : {0.0, 0.1, 0.5}) {
    Progress->OnStep = [&](double done) {
      if (done >= share) throw Quit{};
    };
    Calls.clear();
    EXPECT_THROW(View("run.log"), Quit);
    EXPECT_EQ(Calls.back(), "end");
  }
}

TEST_F(ViewLogProgressTest, AnotherViewerCanBeOpenedMeanwhile) {
  MakeLog("other.log", {u"other\r\n"});
  bool nested = false;
  Progress->OnStep = [&](double done) {
    if (done == 0 || std::exchange(nested, true)) return;
    EXPECT_EQ(Past(View("other.log")).Text(), u"other\r\n");
  };
  const auto viewer = View("run.log");
  EXPECT_TRUE(nested);
  EXPECT_EQ(gForms->Forms().size(), 3U);
}

TEST_F(ViewLogProgressTest, AViewerHearsNothingOfReadingsThatAreNotItsOwn) {
  std::size_t steps = 0;
  Progress->OnStep = [&](double) {
    const std::size_t before = Progress->Shares.size();
    Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf("run.log"), false))->FillDataContainerFromStore();
    EXPECT_EQ(Progress->Shares.size(), before);
    ++steps;
  };
  View("run.log");
  EXPECT_EQ(steps, Progress->Shares.size());
  EXPECT_EQ(Progress->Shares.back(), 1);
}

TEST_F(ViewLogProgressTest, AnEmptyLogHasNothingToShow) {
  MakeLog("run.log", {});
  EXPECT_EQ(Past(View("run.log")).Text(), u"");
  EXPECT_TRUE(std::is_sorted(Progress->Shares.begin(), Progress->Shares.end()));
}

} // namespace
} // namespace portico::test
