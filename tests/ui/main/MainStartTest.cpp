#include "framework/objects/IPublisher.h"
#include "ui/FormSpy.h"
#include "ui/main/MainButtons.h"
#include "ui/main/MainTables.h"
#include "ui/main/MainWindowFixture.h"

#include <cmath>

namespace portico::test {
namespace {

class MainStartTest : public MainWindowFixture {
protected:
  MainStartTest() { HasSpies = false; }

  /// While the window loads, calls `note` whenever the object is asked for.
  static void Watch(StringView specification, const std::function<void(const Params&)>& note) {
    gObjectFactory->Substitue(New<NotingCreator>(gObjectFactory->GetCreator(specification), note));
  }
  memory::Form& Loading() { return *Screen->Find(u"frmMain"); }
  IMenuItem& LoadingMenu(StringView name) { return FindControl<IMenuItem>(Loading(), name); }
};

TEST_F(MainStartTest, WithNothingOpenItAsksForAnInstrument) {
  Start();
  ExpectNoBox();
  EXPECT_TRUE(MemoryForm().IsShown());
  EXPECT_EQ(ToUtf8(Future().Text()), "OPEN AN INSTRUMENT!");
  EXPECT_FALSE(Future().TabStop());
  EXPECT_EQ(ToUtf8(Panel(1).Text()), "Open an instrument. ");
  EXPECT_EQ(ToUtf8(Panel(1).ToolTipText()), "Please open an instrument.");
  EXPECT_EQ(ToUtf8(Panel(2).Text()), "SCPI");
  EXPECT_EQ(ToUtf8(Panel(2).ToolTipText()), "Instrument Protocol");
  EXPECT_EQ(ToUtf8(Form().Caption()), "Tolvane Portico");
  EXPECT_FALSE(Menu(u"mnuFilePrint").Enabled());
  EXPECT_TRUE(Menu(u"mnuFileOpenInstrument").Enabled());
  EXPECT_FALSE(Menu(u"mnuFileCloseInstrument").Enabled());
  EXPECT_FALSE(Window->Executing());
  EXPECT_FALSE(Window->StopRequested());
  EXPECT_EQ(Window->MousePointer(), 0);
  EXPECT_EQ(Wire, test::Journal{}) << "nothing is sent at the start";
}

TEST_F(MainStartTest, PrintIsOffUntilTheHistoryHasText) {
  Start();
  Past().Text(u"x");
  Window->UpdateUI({}, {});
  EXPECT_TRUE(Menu(u"mnuFilePrint").Enabled());
}

TEST_F(MainStartTest, MakesItsObjectsInOrder) {
  std::vector<std::string> made;
  OnFactory = [&] {
    for (const char16_t* name :
         {u"SCPIView", u"InstructionRunner", u"Configuration", u"SCPIViewHistory", u"ReportDisplayer"}) {
      Watch(name, [&made, name](const Params& parameters) {
        made.push_back(ToUtf8(name) + "(" + std::to_string(parameters.size()) + ")");
      });
    }
  };
  Start();
  EXPECT_EQ(made, (std::vector<std::string>{"SCPIView(1)", "InstructionRunner(1)", "Configuration(0)",
                                            "SCPIViewHistory(1)", "ReportDisplayer(1)"}));
}

TEST_F(MainStartTest, GivesTheViewsTheirBoxes) {
  OnFactory = [&] {
    Watch(u"SCPIView", [&](const Params& parameters) {
      EXPECT_TRUE(
          IsSameObject(parameters[0].ToObject<IObject>(), Window ? Window->txtFuture() : Ref<IRichTextControl>()));
    });
    Watch(u"SCPIViewHistory", [&](const Params& parameters) {
      EXPECT_TRUE(IsSameObject(parameters[0].ToObject<IObject>(), Window->txtPast()));
    });
  };
  Start();
  ExpectNoBox();
}

TEST_F(MainStartTest, NoTextIsLoadedBeforeTheViewStands) {
  OnFactory = [&] {
    Watch(u"InstructionRunner", [&](const Params&) {
      EXPECT_FALSE(gConfiguration);
      EXPECT_EQ(LoadingMenu(u"mnuFile").Caption(), u"1000");
    });
  };
  Start();
  EXPECT_TRUE(gConfiguration);
  EXPECT_EQ(gConfiguration->ClassName(), u"CConfigurationClient");
}

TEST_F(MainStartTest, HasItsTextsItsPlaceAndItsItemsBeforeTheHistoryStands) {
  Save(u"MainLeft", u"300");
  OnFactory = [&] {
    Watch(u"SCPIViewHistory", [&](const Params&) {
      EXPECT_EQ(LoadingMenu(u"mnuFile").Caption(), u"&File");
      EXPECT_EQ(FindControl<IStatusBar>(Loading(), StatusBarName).Panels(2).ToolTipText(), u"Instrument Protocol");
      EXPECT_EQ(Loading().Left(), 300);
      EXPECT_FALSE(LoadingMenu(u"mnuCopyTo").Visible());
      EXPECT_EQ(Loading().Caption(), u"Tolvane Portico");
      EXPECT_TRUE(FindControl<IStatusBar>(Loading(), StatusBarName).Panels(1).Text().empty()) << "not updated yet";
    });
  };
  Start();
  ExpectNoBox();
}

TEST_F(MainStartTest, LoadsItsTextsAsIfExecutingAndRestoresItsPlaceBeforeItsState) {
  std::vector<std::string> noted;
  gForms = std::make_shared<SpiedForms>(Screen, [&](const std::string& what) {
    noted.push_back(what + (Window && Window->Executing() ? ", executing" : ""));
  });
  Start();
  EXPECT_EQ(noted, (std::vector<std::string>{"strings, executing", "Left", "Top", "Width", "Height", "WindowState"}));
  ExpectNoBox();
}

TEST_F(MainStartTest, ThePanelIsSplitOnlyAfterTheDisplayerStands) {
  OnFactory = [&] {
    Watch(u"ReportDisplayer",
          [&](const Params&) { EXPECT_EQ(FindControl<IRichTextControl>(Loading(), u"txtPast").Height(), 0); });
  };
  Start();
  EXPECT_GT(Past().Height(), 0);
}

TEST_F(MainStartTest, TextsStandInPlaceOfTheirIds) {
  Start();
  for (const ExpectedMenu& expected : ExpectedMenus) {
    EXPECT_EQ(ToUtf8(Menu(expected.Name).Caption()), ToUtf8(expected.Caption));
  }
  for (const ExpectedButton& expected : ExpectedButtons) {
    if (expected.Key == u"Logger") continue; // has none until the update
    EXPECT_EQ(ToUtf8(Button(expected.Key).ToolTipText()), ToUtf8(expected.ToolTip));
  }
  EXPECT_EQ(ToUtf8(Button(u"Logger").ToolTipText()), "New Log File...");
  EXPECT_EQ(ToUtf8(Future().ToolTipText()), "Enter commands to process here.");
  EXPECT_EQ(ToUtf8(Past().ToolTipText()), "Commands and results that have been processed.");
}

TEST_F(MainStartTest, WhatIsBuiltAndNotOfferedIsOutOfSight) {
  Start();
  for (const StringView item : {u"mnuCopyTo", u"mnuPasteFrom", u"mnuEditBar1"}) EXPECT_FALSE(Menu(item).Visible());
  for (const StringView key : {u"Copy to", u"Paste from"}) EXPECT_FALSE(Button(key).Visible());
  EXPECT_TRUE(Menu(u"mnuEditBar2").Visible());
}

class MainLogVisibilityTest : public MainStartTest, public ::testing::WithParamInterface<bool> {};

TEST_P(MainLogVisibilityTest, LogItemsAreInSightWithAParserAndEnabledWithoutRegardToIt) {
  HasParser = GetParam();
  Start();
  for (const StringView item : {u"mnuFileBar0", u"mnuFileNewLog", u"mnuFilePause", u"mnuFileViewLog", u"mnuCloseLog"}) {
    EXPECT_EQ(Menu(item).Visible(), HasParser) << ToUtf8(item);
  }
  for (const StringView key : {u"Logger", u"Pause", u"View Log", u"Sep1"}) {
    EXPECT_EQ(Button(key).Visible(), HasParser) << ToUtf8(key);
  }
  EXPECT_TRUE(Button(u"Sep0").Visible());
  EXPECT_TRUE(Menu(u"mnuFileBar1").Visible());
  EXPECT_TRUE(Menu(u"mnuFileNewLog").Enabled());
  EXPECT_FALSE(Menu(u"mnuCloseLog").Enabled());
  EXPECT_FALSE(Menu(u"mnuFilePause").Enabled());
  EXPECT_FALSE(Button(u"Pause").Enabled());
  SetItem(u"LogFileName", u"first.log");
  Window->UpdateUI({}, {});
  EXPECT_FALSE(Menu(u"mnuFileNewLog").Enabled());
  EXPECT_TRUE(Menu(u"mnuCloseLog").Enabled());
  EXPECT_TRUE(Menu(u"mnuFilePause").Enabled());
  EXPECT_TRUE(Button(u"Pause").Enabled());
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutAParser, MainLogVisibilityTest, ::testing::Bool());

TEST_F(MainStartTest, TheHistoryTakesThreeQuartersAboveABarOfThreePixels) {
  Start();
  auto& area = FindControl<ISplitArea>(Form(), u"splitterNow");
  EXPECT_EQ(area.Left(), Form().ScaleLeft());
  EXPECT_EQ(area.Top(), FindControl<IToolBar>(Form(), ToolBarName).Height() + Form().ScaleTop());
  EXPECT_EQ(area.Splitter().Height(), 3 * FormUnitsPerPixel);
  EXPECT_EQ(area.Splitter().Width(), area.ScaleWidth());
  const double rest = area.ScaleHeight() - 3 * FormUnitsPerPixel;
  ASSERT_GT(rest, 0);
  EXPECT_NEAR(Past().Height(), 0.75 * rest, 1);
  EXPECT_EQ(Past().Top(), 0);
  EXPECT_EQ(Past().Width(), area.ScaleWidth());
  EXPECT_NEAR(Future().Top(), Past().Height() + 3 * FormUnitsPerPixel, 1);
  EXPECT_NEAR(Future().Height(), 0.25 * rest, 1);
}

TEST_F(MainStartTest, AFailureWhileInitializingIsShownAndEndsTheProgram) {
  OnFactory = [] { Fail(); };
  EXPECT_TRUE(Quits([this] { Start(); }));
  EXPECT_FALSE(Window);
  ExpectOneBox(u"An error occured while initializing.", u"frmMain.Form_Initialize");
  EXPECT_TRUE(Loop->IsQuitting());
}

class MainLoadFailureTest : public MainStartTest, public ::testing::WithParamInterface<StringView> {};

TEST_P(MainLoadFailureTest, IsShownAndUnloadsTheWindow) {
  OnFactory = [] {
    gObjectFactory->Substitue(
        New<NotingCreator>(gObjectFactory->GetCreator(GetParam()), [](const Params&) { Fail(); }));
  };
  EXPECT_TRUE(Quits([this] { Start(); }));
  ASSERT_TRUE(Window);
  EXPECT_FALSE(MemoryForm().IsShown());
  ExpectOneBox(u"An error occured while loading.", u"frmMain.Form_Load");
}

INSTANTIATE_TEST_SUITE_P(OfEachObject, MainLoadFailureTest,
                         ::testing::Values(u"SCPIView", u"InstructionRunner", u"SCPIViewHistory", u"ReportDisplayer"));

// A window that could not load ends like any other.
TEST_F(MainStartTest, AWindowThatCouldNotLoadStillSavesItsPlaceAndItsShare) {
  OnFactory = [] {
    gObjectFactory->Substitue(
        New<NotingCreator>(gObjectFactory->GetCreator(u"SCPIViewHistory"), [](const Params&) { Fail(); }));
  };
  HasSpies = true;
  EXPECT_TRUE(Quits([this] { Start(); }));
  ExpectOneBox(u"An error occured while loading.", u"frmMain.Form_Load");
  End();
  ExpectNoBox();
  EXPECT_EQ(Commands, std::vector<std::string>{"CloseInstrument"});
  EXPECT_EQ(Setting(u"MainLeft"), "1000");
  EXPECT_EQ(Setting(u"SplitPercent"), "75");
}

} // namespace
} // namespace portico::test
