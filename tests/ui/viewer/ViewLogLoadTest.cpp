#include "ui/viewer/ViewLogFixture.h"

#include "support/doubles/ReportDouble.h"

namespace portico::test {
namespace {

constexpr double Pixel = FormUnitsPerPixel;

/// Forms in which everything shows and every panel has a text before their logic gets them.
class RevealingForms final : public IForms {
public:
  explicit RevealingForms(std::shared_ptr<IForms> forms) : m_forms(std::move(forms)) {}
  Ref<IForm> Load(const FormDesign& design) override {
    const auto form = m_forms->Load(design);
    for (IControl* control : form->Controls()) control->Visible(true);
    FindControl<IStatusBar>(*form, StatusBarName).Panels(1).Text(u"left over");
    FindControl<IRichTextControl>(*form, u"txtPast").Text(u"left over");
    return form;
  }
  std::vector<Ref<IForm>> Forms() const override { return m_forms->Forms(); }
  IControl* ActiveControl() const override { return m_forms->ActiveControl(); }

private:
  std::shared_ptr<IForms> m_forms;
};

class ViewLogLoadTest : public ViewLogFixture {
protected:
  void Store(const String& key, const String& value) {
    gSettingsStore->SaveSetting(u"Tolvane Portico", u"frmViewLog", key, value);
  }
  String Stored(const String& key) {
    return gSettingsStore->GetSetting(u"Tolvane Portico", u"frmViewLog", key, u"none");
  }
  static List PlaceOf(const Ref<memory::Form>& form) {
    return {ToUtf8(ToText(form->Left())), ToUtf8(ToText(form->Top())), ToUtf8(ToText(form->Width())),
            ToUtf8(ToText(form->Height()))};
  }
};

TEST_F(ViewLogLoadTest, ShowsWhatTheLogHolds) {
  const auto viewer = ViewOf({u"*IDN?\r\n", u":MEAS?\r\n"});
  EXPECT_EQ(Past(viewer).Text(), u"*IDN?\r\n:MEAS?\r\n");
  EXPECT_EQ(viewer->Caption(), u"Log Viewer - " + NameOf("run.log"));
}

TEST_F(ViewLogLoadTest, ShowsAResponseAsTheHistoryDoes) {
  MakeLog("run.log", {u"1.5\r\n"}, u"Response");
  const auto viewer = View("run.log");
  const String text = Past(viewer).Text();
  EXPECT_EQ(text.substr(1), u"1.5\r\n"); // behind its marker
  Select(Past(viewer), 1, 1);
  EXPECT_EQ(Past(viewer).SelFormat().SelItalic, true);
}

TEST_F(ViewLogLoadTest, TheNameStaysAsItWasGiven) {
  MakeLog("run.log", {u"*IDN?\r\n"});
  const auto viewer = frmViewLog::Make();
  const String name = NameOf("./run.log");
  viewer->FileName(name);
  viewer->Show(&Main->Form());
  EXPECT_EQ(Platform.Screen->Find(u"frmViewLog")->Caption(), u"Log Viewer - " + name);
}

TEST_F(ViewLogLoadTest, CannotBeTypedInto) {
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  EXPECT_FALSE(Past(viewer).Type(u"x"));
  EXPECT_EQ(Past(viewer).Text(), u"*IDN?\r\n");
}

TEST_F(ViewLogLoadTest, StandsWhereTheSettingsSayAndByThemselvesNowhereElse) {
  EXPECT_EQ(PlaceOf(ViewOf({})), (List{"1000", "1000", "6500", "6500"}));
  Store(u"MainLeft", u"150");
  Store(u"MainTop", u"300.5");
  Store(u"MainWidth", u"7500");
  Store(u"MainHeight", u"9000");
  EXPECT_EQ(PlaceOf(View("run.log")), (List{"150", "300.5", "7500", "9000"}));
}

TEST_F(ViewLogLoadTest, NeverWritesItsPlace) {
  const auto viewer = ViewOf({});
  viewer->Move(1, 2, 3000, 4000);
  viewer->Unload();
  for (const auto* key : {u"MainLeft", u"MainTop", u"MainWidth", u"MainHeight"}) EXPECT_EQ(Stored(key), u"none");
}

TEST_F(ViewLogLoadTest, HidesWhatItDoesNotOffer) {
  gForms = std::make_shared<RevealingForms>(Platform.Screen);
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  for (const auto* name : {u"mnuCopyto", u"mnuFileBar0", u"mnuFileProperty", u"mnuHelpTopics"}) {
    EXPECT_FALSE(Menu(viewer, name).Visible()) << ToUtf8(name);
  }
  for (const auto* name : {u"mnuFile", u"mnuFilePrint", u"mnuFilePageSetup", u"mnuFileBar1", u"mnuFileClose",
                           u"mnuEdit", u"mnuCopy", u"mnuView", u"mnuHelp", u"mnuHelpAbout"}) {
    EXPECT_TRUE(Menu(viewer, name).Visible()) << ToUtf8(name);
  }
  EXPECT_FALSE(Bar(viewer).Buttons(u"Copy to").Visible());
  EXPECT_TRUE(Bar(viewer).Buttons(u"Copy").Visible());
  EXPECT_FALSE(Status(viewer).Visible());
  EXPECT_EQ(Status(viewer).Panels(1).Text(), u"");
  EXPECT_EQ(Past(viewer).Text(), u"*IDN?\r\n"); // cleared first
}

TEST_F(ViewLogLoadTest, TwoViewersOnTwoFilesAreIndependent) {
  MakeLog("one.log", {u"one\r\n"});
  MakeLog("two.log", {u"two\r\n", u"two again\r\n"});
  const auto one = View("one.log");
  const auto two = View("two.log");
  EXPECT_EQ(Past(one).Text(), u"one\r\n");
  EXPECT_EQ(Past(two).Text(), u"two\r\ntwo again\r\n");
  EXPECT_EQ(one->Caption(), u"Log Viewer - " + NameOf("one.log"));
  EXPECT_EQ(two->Caption(), u"Log Viewer - " + NameOf("two.log"));
  one->Close();
  EXPECT_FALSE(one->IsLoaded());
  EXPECT_TRUE(two->IsShown());
  EXPECT_TRUE(Menu(two, u"mnuFileClose").Choose());
  EXPECT_FALSE(two->IsLoaded());
}

TEST_F(ViewLogLoadTest, ShowsTheLogAsItWasWhenItWasOpened) {
  Dialog->FileName = NameOf("run.log");
  Run(u"ToggleLogFile");
  const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf("other.log"), true));
  const auto viewer = View("run.log");
  EXPECT_EQ(Past(viewer).Text(), u"");
  Run(u"ToggleLogging"); // the session can still be closed: the viewer has read another store
  EXPECT_EQ(CountOf(Read("run.log"), "SessionCloseTimeStamp="), 1U);
  MakeLog("run.log", {u"later\r\n"});
  EXPECT_EQ(Past(viewer).Text(), u"");
}

TEST_F(ViewLogLoadTest, ALogThatIsBeingWrittenIsShownUpToNowAndGoesOn) {
  Dialog->FileName = NameOf("run.log");
  Run(u"ToggleLogFile");
  const auto agent = Create<IPublisher>(u"CmdSubscriptionAgent", modGlobals::VarArray());
  agent->Notify(ReportOf(u"CReadCmd", u"before"));
  const auto viewer = View("run.log");
  EXPECT_EQ(Past(viewer).Text(), u"\u00AEbefore\r\n");
  agent->Notify(ReportOf(u"CReadCmd", u"after"));
  EXPECT_EQ(Past(viewer).Text(), u"\u00AEbefore\r\n");
  Run(u"ToggleLogFile");
  EXPECT_EQ(CountOf(Read("run.log"), "<Session "), 1U);
  EXPECT_EQ(CountOf(Read("run.log"), "SessionCloseTimeStamp="), 1U);
  EXPECT_EQ(Past(viewer).Text(), u"\u00AEbefore\r\n");
  EXPECT_EQ(Past(View("run.log")).Text(), u"\u00AEbefore\r\n\u00AEafter\r\n");
}

TEST_F(ViewLogLoadTest, TheTextFillsWhatTheToolbarLeaves) {
  const auto viewer = ViewOf({});
  const double width = 6500 - memory::FrameWidth;
  const double height = 6500 - memory::FrameHeight - memory::MenuBarHeight;
  const auto& bar = Bar(viewer);
  EXPECT_EQ(Past(viewer).Left(), 0);
  EXPECT_EQ(Past(viewer).Top(), bar.Top() + bar.Height());
  EXPECT_EQ(Past(viewer).Width(), width);
  EXPECT_EQ(Past(viewer).Height(), height - Past(viewer).Top());
  const auto& logo = Find<memory::PictureBox>(viewer, u"picLogo");
  EXPECT_EQ(logo.Top(), bar.Top());
  EXPECT_EQ(logo.Left(), width - logo.Width());
}

TEST_F(ViewLogLoadTest, TheTextFollowsTheWindow) {
  const auto viewer = ViewOf({});
  Bar(viewer).Top(3 * Pixel);
  Past(viewer).Left(70);
  viewer->Resize(9000, 8000);
  EXPECT_EQ(Past(viewer).Left(), 0);
  EXPECT_EQ(Past(viewer).Top(), 3 * Pixel + Bar(viewer).Height());
  EXPECT_EQ(Past(viewer).Width(), viewer->ScaleWidth());
  EXPECT_EQ(Past(viewer).Height(), viewer->ScaleHeight() - Past(viewer).Top());
  auto& logo = Find<memory::PictureBox>(viewer, u"picLogo");
  EXPECT_EQ(logo.Top(), 3 * Pixel);
  EXPECT_EQ(logo.Left(), viewer->ScaleWidth() - logo.Width());
}

TEST_F(ViewLogLoadTest, AMinimizedWindowLeavesItsTextAlone) {
  const auto viewer = ViewOf({});
  Past(viewer).Left(70);
  viewer->WindowState(WindowState::Minimized);
  EXPECT_EQ(Past(viewer).Left(), 70);
  viewer->WindowState(WindowState::Normal);
  EXPECT_EQ(Past(viewer).Left(), 0);
}

TEST_F(ViewLogLoadTest, AWindowTooSmallForItsTextDisturbsNobody) {
  const auto viewer = ViewOf({});
  const double before = Past(viewer).Height();
  viewer->Resize(3000, 0);
  EXPECT_EQ(Past(viewer).Width(), 3000 - memory::FrameWidth);
  EXPECT_EQ(Past(viewer).Height(), before);
  auto& logo = Find<memory::PictureBox>(viewer, u"picLogo");
  EXPECT_EQ(logo.Left(), viewer->ScaleWidth() - logo.Width());
}

TEST_F(ViewLogLoadTest, AFileThatIsNoLogEndsInAMessageAndAnEmptyWindow) {
  Write("run.log", "no log at all");
  Platform.MessageBox->Answer();
  const auto viewer = View("run.log");
  ExpectBox(u"An error occured while loading.", u"frmViewLog.Form_Load",
            u"The file, " + NameOf("run.log") + u", is not a valid data store.");
  ASSERT_TRUE(bool(viewer));
  EXPECT_TRUE(viewer->IsShown());
  EXPECT_EQ(Past(viewer).Text(), u"");
  EXPECT_EQ(viewer->Caption(), u"Log Viewer");
  EXPECT_FALSE(Menu(viewer, u"mnuFilePrint").Enabled());
  EXPECT_TRUE(Menu(viewer, u"mnuFileClose").Choose());
  EXPECT_FALSE(viewer->IsLoaded());
}

TEST_F(ViewLogLoadTest, AFailedReadingPassesEveryStep) {
  Write("run.log", "no log at all");
  Platform.MessageBox->Answer();
  View("run.log");
  const auto labels = Labels(Platform.MessageBox->Calls().front().Prompt);
  ASSERT_GE(labels.size(), 2U);
  EXPECT_EQ(labels[labels.size() - 2], u"frmViewLog.LoadLog()");
}

TEST_F(ViewLogLoadTest, NeedsAFactory) {
  MakeLog("run.log", {});
  gObjectFactory = {};
  Platform.MessageBox->Answer();
  View("run.log");
  ExpectBox(u"An error occured while loading.", u"frmViewLog.Form_Load", u"This operation requires an object factory.");
  EXPECT_NE(Platform.MessageBox->Calls().front().Prompt.find(u"Number: 31004 "), String::npos);
}

TEST_F(ViewLogLoadTest, APlaceThatIsNoNumberFailsTheLoading) {
  Store(u"MainTop", u"high");
  Platform.MessageBox->Answer();
  const auto viewer = ViewOf({u"*IDN?\r\n"});
  ExpectBox(u"An error occured while loading.", u"frmViewLog.Form_Load", u"Type mismatch.");
  EXPECT_EQ(Past(viewer).Text(), u"");
}

TEST_F(ViewLogLoadTest, NothingRemainsOfAViewerThatIsClosed) {
  MakeLog("run.log", {u"*IDN?\r\n"});
  auto viewer = frmViewLog::Make();
  const std::weak_ptr<frmViewLog> logic = viewer.Shared();
  viewer->FileName(NameOf("run.log"));
  viewer->Show(&Main->Form());
  viewer = {};
  EXPECT_FALSE(logic.expired());
  std::weak_ptr<memory::Form> form = Platform.Screen->Find(u"frmViewLog").Shared();
  form.lock()->Close();
  EXPECT_TRUE(logic.expired());
  EXPECT_TRUE(form.expired());
}

} // namespace
} // namespace portico::test
