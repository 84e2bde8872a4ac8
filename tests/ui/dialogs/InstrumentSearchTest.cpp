#include "ui/UiFixture.h"
#include "ui/dialogs/frmInstrumentDialog.h"

namespace portico::test {
namespace {

/// The dialog, with instruments that answer while it is shown. The time is the test's.
class InstrumentSearchTest : public UiFixture {
protected:
  InstrumentSearchTest() { Platform.InstrumentList->Items({u"Visa->a", u"Visa->b"}); }

  using Act = std::function<void(memory::Form&, memory::ComboBox&)>;

  /// What the dialog answers when the user has done that.
  std::string Ask(const Act& act) {
    Platform.Screen->OnShowModal(u"frmInstrumentDialog", [&](memory::Form& form) {
      act(form, Find<memory::ComboBox>(form, u"txtInstrument"));
      if (form.IsShown()) Press(form, u"OKButton");
    });
    const auto dialog = MakeDialog<frmInstrumentDialog>();
    dialog->ShowModal(&MainForm->Form());
    return ToUtf8(dialog->InstrumentName());
  }
  /// They answer, and time goes by.
  void Find(std::initializer_list<StringView> names) {
    for (StringView name : names) Platform.InstrumentSearch->Find(String(name));
    Pass();
  }
  void Pass() {
    Platform.Time.Advance(std::chrono::seconds(1));
    Platform.Loop->DoEvents();
  }
  using UiFixture::Find;

  static List Listed(const memory::ComboBox& list) {
    List names;
    for (std::int32_t i = 0; i < list.ListCount(); ++i) names.push_back(ToUtf8(list.List(i)));
    return names;
  }
};

TEST_F(InstrumentSearchTest, LateAnswersAreAppendedAsTheyCome) {
  Ask([this](memory::Form&, memory::ComboBox& list) {
    EXPECT_EQ(Listed(list), (List{"a", "b"}));
    Find({u"d", u"c"});
    EXPECT_EQ(Listed(list), (List{"a", "b", "d", "c"}));
    Find({u"aa"});
    EXPECT_EQ(Listed(list), (List{"a", "b", "d", "c", "aa"}));
  });
}

TEST_F(InstrumentSearchTest, LateAnswerIsShownWithinHalfASecond) {
  Ask([this](memory::Form&, memory::ComboBox& list) {
    Platform.InstrumentSearch->Find(u"c");
    Platform.Time.Advance(std::chrono::milliseconds(500));
    Platform.Loop->DoEvents();
    EXPECT_EQ(Listed(list), (List{"a", "b", "c"}));
  });
}

TEST_F(InstrumentSearchTest, WhatIsListedIsNotSearchedFor) {
  Ask([this](memory::Form&, memory::ComboBox&) {
    EXPECT_EQ(Platform.InstrumentSearch->Known(), (std::vector<String>{u"a", u"b"}));
  });
}

TEST_F(InstrumentSearchTest, TypedTextStaysAndIsOpened) {
  EXPECT_EQ(Ask([this](memory::Form&, memory::ComboBox& list) {
              list.Type(u"SIM::dm");
              Find({u"c"});
              EXPECT_EQ(Listed(list), (List{"a", "b", "c"}));
              EXPECT_EQ(list.Text(), u"SIM::dm");
              EXPECT_EQ(list.ListIndex(), -1);
            }),
            "SIM::dm");
}

TEST_F(InstrumentSearchTest, SelectionStaysAndIsOpened) {
  EXPECT_EQ(Ask([this](memory::Form&, memory::ComboBox& list) {
              list.Choose(u"b");
              list.Change().Connect([this] { Deeds.push_back("changed"); });
              list.Click().Connect([this] { Deeds.push_back("selected"); });
              Find({u"c"});
              EXPECT_EQ(Listed(list), (List{"a", "b", "c"}));
              EXPECT_EQ(list.ListIndex(), 1);
            }),
            "b");
  EXPECT_EQ(Deeds, Journal{});
}

TEST_F(InstrumentSearchTest, FirstOfAnEmptyListIsNotSelected) {
  Platform.InstrumentList->Items({});
  EXPECT_EQ(Ask([this](memory::Form&, memory::ComboBox& list) {
              Find({u"c"});
              EXPECT_EQ(Listed(list), List{"c"});
              EXPECT_EQ(list.ListIndex(), -1);
              EXPECT_EQ(list.Text(), u"");
            }),
            "");
}

TEST_F(InstrumentSearchTest, LateAnswerCanBeChosen) {
  EXPECT_EQ(Ask([this](memory::Form&, memory::ComboBox& list) {
              Find({u"c"});
              EXPECT_TRUE(list.Choose(u"c"));
            }),
            "c");
}

TEST_F(InstrumentSearchTest, SearchIsOnWhileTheDialogIsShownHoweverItEnds) {
  for (const Act& end : {Act([](memory::Form&form, memory::ComboBox&) { Press(form, u"OKButton"); }),
                         Act([](memory::Form&form, memory::ComboBox&) { Press(form, u"CancelButton"); }),
                         Act([](memory::Form&form, memory::ComboBox&) { form.PressCloseBox(); })}) {
    const auto dialog = MakeDialog<frmInstrumentDialog>();
    EXPECT_FALSE(Platform.InstrumentSearch->IsRunning());
    Platform.Screen->OnShowModal(u"frmInstrumentDialog", [&](memory::Form& form) {
      EXPECT_TRUE(Platform.InstrumentSearch->IsRunning());
      end(form, Find<memory::ComboBox>(form, u"txtInstrument"));
    });
    dialog->ShowModal(&MainForm->Form());
    EXPECT_FALSE(Platform.InstrumentSearch->IsRunning()) << "while the dialog still lives";
    const int taken = Platform.InstrumentSearch->TimesTaken();
    Pass();
    EXPECT_EQ(Platform.InstrumentSearch->TimesTaken(), taken);
  }
}

TEST_F(InstrumentSearchTest, EndOfTheProgramEndsTheSearch) {
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [this](memory::Form& form) {
    EXPECT_TRUE(Platform.InstrumentSearch->IsRunning());
    Platform.Loop->RequestQuit();
    form.Hide();
  });
  EXPECT_THROW(MakeDialog<frmInstrumentDialog>()->ShowModal(&MainForm->Form()), Quit);
  EXPECT_FALSE(Platform.InstrumentSearch->IsRunning());
}

TEST_F(InstrumentSearchTest, FailureIsFiledOnceAndTheListStays) {
  EXPECT_EQ(Ask([this](memory::Form&, memory::ComboBox& list) {
              Platform.InstrumentSearch->Fail(ErrorNumber::CannotCarryOut);
              Pass();
              Pass();
              EXPECT_EQ(Listed(list), (List{"a", "b"}));
            }),
            "a");
  EXPECT_EQ(Filed().size(), 1U);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmInstrumentDialog.tmrSearch_Timer()"});
}

TEST_F(InstrumentSearchTest, SearchThatDoesNotStartIsFiledAndTheDialogAppears) {
  Platform.InstrumentSearch->Fail(ErrorNumber::CannotCarryOut);
  EXPECT_EQ(Ask([this](memory::Form&, memory::ComboBox& list) {
              Pass();
              EXPECT_EQ(Listed(list), (List{"a", "b"}));
            }),
            "a");
  EXPECT_EQ(Filed().size(), 1U);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmInstrumentDialog.BeginSearch()"});
}

TEST_F(InstrumentSearchTest, WithoutASearchTheListIsWhatIsKnown) {
  gInstrumentSearch.reset();
  EXPECT_EQ(Ask([](memory::Form&, memory::ComboBox& list) { EXPECT_EQ(Listed(list), (List{"a", "b"})); }), "a");
}

} // namespace
} // namespace portico::test
