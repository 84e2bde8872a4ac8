#include "ui/main/MainPicture.h"
#include "ui/main/MainWindowFixture.h"

#include <tuple>

namespace portico::test {
namespace {

using ActiveControl = UpdateInputs::Control;

/// Calls `visit` with every combination of the members of `inputs` that are not surroundings.
template <class Visit>
void ForAll(UpdateInputs in, Visit&& visit) {
  constexpr bool both[] = {false, true};
  for (in.Opened = false;; in.Opened = true) {
    for (const StringView protocol : {u"SCPI", u"Other", u"Neither"}) {
      in.Protocol = protocol;
      for (const StringView log : {u"", u"C:\\first.log"}) {
        in.LogFile = log;
        for (in.Active = ActiveControl::None;;
             in.Active = static_cast<ActiveControl>(static_cast<int>(in.Active) + 1)) {
          // The other yes-or-no inputs, as the bits of a number.
          for (unsigned bits = 0; bits < 128; ++bits) {
            in.Logging = both[bits & 1U];
            in.ModeOff = both[bits >> 1U & 1U];
            in.Executing = both[bits >> 2U & 1U];
            in.HasSelection = both[bits >> 3U & 1U];
            in.HasClipboard = both[bits >> 4U & 1U];
            in.WasSCPI = both[bits >> 5U & 1U];
            in.TabStop = both[bits >> 6U & 1U];
            visit(in);
          }
          if (in.Active == ActiveControl::HistoryWindow) break;
        }
      }
    }
    if (in.Opened) break;
  }
}

class UpdateUITable : public MainWindowFixture,
                      public ::testing::WithParamInterface<std::tuple<StringView, StringView, bool>> {
protected:
  UpdateUITable() {
    Start();
    gForms = Focus;
  }
  ~UpdateUITable() override { gForms = Screen; }

  static void Select(IRichTextControl& box, bool hasSelection) {
    box.SelStart(0);
    box.SelLength(hasSelection ? 1 : 0);
  }

  void Arrange(const UpdateInputs& in) {
    // First to where no update touches the text.
    SetItem(u"InstrumentOpened", u"True");
    Future().TabStop(true);
    if (Future().Text() != in.CommandText) Future().Text(in.CommandText);
    SetItem(u"InstrumentOpened", in.Opened ? u"True" : u"False");
    SetItem(u"InstrumentName", in.Opened ? OpenName : StringView{});
    SetItem(u"ProtocolName", in.Protocol);
    SetItem(u"LogFileName", in.LogFile);
    SetItem(u"Logging", in.Logging ? u"On" : u"Off");
    SetItem(u"RunningMode", in.ModeOff ? u"Off" : u"Continuous");
    Window->Executing(in.Executing);
    Clipboard->Text = in.HasClipboard ? u"text" : u"";
    Select(Future(), in.Active == ActiveControl::CommandWindow && in.HasSelection);
    Select(Past(), in.Active == ActiveControl::HistoryWindow && in.HasSelection);
    IControl* const controls[] = {nullptr, &FindControl<IPictureBox>(Form(), u"picLogo"), &Future(), &Past()};
    Focus->Active = controls[static_cast<std::size_t>(in.Active)];
    Menu(u"mnuSCPI").Checked(in.WasSCPI);
    Menu(u"mnuDDC").Checked(!in.WasSCPI);
    Future().TabStop(in.TabStop);
  }

  std::shared_ptr<FocusDouble> Focus = std::make_shared<FocusDouble>(Screen);
};

TEST_P(UpdateUITable, ShowsWhatEveryCombinationCallsFor) {
  UpdateInputs surroundings;
  std::tie(surroundings.CommandText, surroundings.HistoryText, surroundings.CommandHadFocus) = GetParam();
  const Event<> gotFocus = surroundings.CommandHadFocus ? Future().GotFocus() : Past().GotFocus();
  gotFocus();
  Past().Text(surroundings.HistoryText);
  int seen = 0;
  int faults = 0;
  ForAll(surroundings, [&](const UpdateInputs& in) {
    ++seen;
    if (faults >= 5) return;
    Arrange(in);
    const Picture expected = AfterUpdate(in, TakePicture(Form()));
    Window->UpdateUI(u"", u"");
    const Picture actual = TakePicture(Form());
    if (actual == expected) return;
    ++faults;
    ADD_FAILURE() << Described(in) << "\n" << Differences(expected, actual);
  });
  EXPECT_EQ(seen, 2 * 3 * 2 * 4 * 128);
  ExpectNoBox();
}

/// With that text in the command window. Each has a suite of its own, as they take long.
auto Over(StringView commands) {
  return ::testing::Combine(::testing::Values(commands), ::testing::Values(StringView(u""), StringView(u"answer\r\n")),
                            ::testing::Bool());
}
INSTANTIATE_TEST_SUITE_P(NoCommand, UpdateUITable, Over(u""));
INSTANTIATE_TEST_SUITE_P(Command, UpdateUITable, Over(u"*IDN?\r\n"));
INSTANTIATE_TEST_SUITE_P(Placeholder, UpdateUITable, Over(u"OPEN AN INSTRUMENT!"));
INSTANTIATE_TEST_SUITE_P(PlaceholderLine, UpdateUITable, Over(u"OPEN AN INSTRUMENT!\r\n"));

/// A text that is put into the command window updates the window, which gives the loop a turn within the update.
class UpdateTurnTest : public MainWindowFixture {
protected:
  UpdateTurnTest() { Start(); }

  /// Does that in the next turn.
  void InTheNextTurn(const std::function<void()>& act) {
    m_timer = Loop->MakeTimer();
    m_timer->Interval(1);
    m_timer->Enabled(true);
    m_timer->Timer().Connect([this, act] {
      m_timer->Enabled(false);
      act();
    });
    Clock.Advance(std::chrono::milliseconds(1));
  }

private:
  std::unique_ptr<ITimer> m_timer;
};

TEST_F(UpdateTurnTest, AFocusThatMovesWithinTheUpdateCounts) {
  SetOpened();
  Clipboard->Text = u"text";
  Window->txtPast()->SetFocus();
  SetItem(u"InstrumentOpened", u"False");
  InTheNextTurn([this] { Window->txtFuture()->SetFocus(); });
  Window->UpdateUI({}, {});
  EXPECT_EQ(ToUtf8(Future().Text()), "OPEN AN INSTRUMENT!");
  EXPECT_TRUE(Future().HasFocus());
  EXPECT_TRUE(Menu(u"mnuEditPaste").Enabled());
  EXPECT_TRUE(Menu(u"mnuPasteFrom").Enabled());
}

TEST_F(UpdateTurnTest, ARunThatBeginsWithinTheUpdateCounts) {
  SetItem(u"InstrumentOpened", u"True");
  InTheNextTurn([this] { Window->Executing(true); });
  Window->UpdateUI({}, {});
  EXPECT_EQ(ToUtf8(Future().Text()), "REM Enter commands here.\r\n");
  EXPECT_TRUE(Menu(u"mnuStop").Enabled());
  EXPECT_FALSE(Menu(u"mnuRun").Enabled());
}

TEST_F(UpdateTurnTest, WhetherThereIsTextIsReadOnce) {
  SetItem(u"InstrumentOpened", u"True");
  InTheNextTurn([this] { Future().Text(u""); });
  Window->UpdateUI({}, {});
  EXPECT_TRUE(Menu(u"mnuRun").Enabled());
  Window->UpdateUI({}, {});
  EXPECT_FALSE(Menu(u"mnuRun").Enabled()) << "the next update sees it";
}

TEST_F(UpdateTurnTest, TheConfigurationIsRequiredFirstAlsoWithoutACommandView) {
  Window->Form_Unload();
  gConfiguration = nullptr;
  const ErrorRecord error = Raised([this] { Window->UpdateUI({}, {}); });
  ExpectError(error, 424, u"The configuration server is required for this operation, but it does not exist.");
  ExpectTrail(error, {u"frmMain.UpdateUI()"});
}

} // namespace
} // namespace portico::test
