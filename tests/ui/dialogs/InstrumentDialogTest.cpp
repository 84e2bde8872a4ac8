#include "ui/dialogs/frmInstrumentDialog.h"

#include "platform/IInstrumentList.h"
#include "ui/UiFixture.h"

namespace portico::test {
namespace {

/// A list of items that writes down what is asked of it.
class ListDouble final : public IInstrumentList {
public:
  ListDouble(Journal& journal, std::vector<String> items) : m_journal(journal), m_items(std::move(items)) {}
  std::unique_ptr<IInstrumentTree> OpenTree(std::int32_t Kind) override {
    m_journal.push_back("tree " + std::to_string(Kind));
    return std::make_unique<Tree>(*this);
  }

private:
  struct Tree final : IInstrumentTree {
    explicit Tree(ListDouble& list) : List(list) {}
    std::unique_ptr<IInstrumentIterator> SelectBranch(std::int32_t Branch) override {
      List.m_journal.push_back("branch " + std::to_string(Branch));
      return std::make_unique<Iterator>(List);
    }
    ListDouble& List;
  };
  struct Iterator final : IInstrumentIterator {
    explicit Iterator(ListDouble& list) : List(list) {}
    void First() override { At = 0; }
    bool IsDone() const override { return At >= List.m_items.size(); }
    void Next() override { ++At; }
    String ItemName() const override { return List.m_items.at(At); }
    ListDouble& List;
    std::size_t At = 99; // nowhere until `First`
  };

  Journal& m_journal;
  std::vector<String> m_items;
};

class InstrumentDialogTest : public UiFixture {
protected:
  using Act = std::function<void(memory::Form&, memory::ComboBox&)>;

  /// The name that the dialog has when the user has done that.
  std::string Ask(const Act& act) {
    Platform.Screen->OnShowModal(u"frmInstrumentDialog", [&](memory::Form& form) {
      act(form, Find<memory::ComboBox>(form, u"txtInstrument"));
      if (form.IsShown()) Press(form, u"OKButton");
    });
    const auto dialog = MakeDialog<frmInstrumentDialog>();
    dialog->ShowModal(&MainForm->Form());
    return ToUtf8(dialog->InstrumentName());
  }
  List Listed(std::vector<String> items) {
    gInstrumentList = std::make_shared<ListDouble>(Deeds, std::move(items));
    List listed;
    Ask([&](memory::Form&, memory::ComboBox& list) {
      for (std::int32_t i = 0; i < list.ListCount(); ++i) listed.push_back(ToUtf8(list.List(i)));
    });
    return listed;
  }
};

TEST_F(InstrumentDialogTest, IsMadeUpOfThese) {
  Ask([](memory::Form& form, memory::ComboBox& list) {
    EXPECT_EQ(form.Caption(), u"Open an Instrument");
    EXPECT_EQ(Find<IControl>(form, u"lblInstrument").Caption(), u"Instrument:");
    EXPECT_EQ(Find<IControl>(form, u"lblInstrument").Kind(), ControlKind::Label);
    EXPECT_EQ(Find<IControl>(form, u"OKButton").Caption(), u"&OK");
    EXPECT_EQ(Find<IControl>(form, u"CancelButton").Caption(), u"Cancel");
    EXPECT_EQ(Find<IControl>(form, u"cmdHelp").Caption(), u"&Help");
    EXPECT_TRUE(list.IsTyped());
  });
}

TEST_F(InstrumentDialogTest, ReturnOpensAndEscapeCancels) {
  EXPECT_EQ(Ask([](memory::Form& form, memory::ComboBox& list) {
              list.Type(u"one");
              form.PressKey(ReturnKey);
            }),
            "one");
  EXPECT_EQ(Ask([](memory::Form& form, memory::ComboBox& list) {
              list.Type(u"one");
              form.PressKey(EscapeKey);
            }),
            "");
}

TEST_F(InstrumentDialogTest, AsksForBranch0OfTree7) {
  Listed({});
  EXPECT_EQ(Deeds, (Journal{"tree 7", "branch 0"}));
}

TEST_F(InstrumentDialogTest, ListsVisaAndVInstr) { EXPECT_EQ(Listed({u"Visa->a", u"VInstr->b"}), (List{"a", "b"})); }

TEST_F(InstrumentDialogTest, EntryOfAnotherKindIsNotListed) {
  EXPECT_EQ(Listed({u"Serial->a", u"Visa ->b", u"->c", u"Visa->d"}), List{"d"});
}

TEST_F(InstrumentDialogTest, NameWithoutTheMarkIsNotListed) { EXPECT_EQ(Listed({u"Visa", u"Visa-a", u""}), List{}); }

TEST_F(InstrumentDialogTest, KindInOtherCapitalsIsListed) {
  EXPECT_EQ(Listed({u"VISA->a", u"visa->b", u"VINSTR->c"}), (List{"a", "b", "c"}));
}

TEST_F(InstrumentDialogTest, NameWithTwoMarksKeepsTheSecond) { EXPECT_EQ(Listed({u"Visa->a->b"}), List{"a->b"}); }

TEST_F(InstrumentDialogTest, FirstEntryIsSelectedAndIsTheName) {
  gInstrumentList = std::make_shared<ListDouble>(Deeds, std::vector<String>{u"Visa->a", u"Visa->b"});
  EXPECT_EQ(Ask([](memory::Form&, memory::ComboBox& list) {
              EXPECT_EQ(list.ListIndex(), 0);
              EXPECT_EQ(list.Text(), u"a");
            }),
            "a");
}

TEST_F(InstrumentDialogTest, AnotherEntryCanBeChosen) {
  gInstrumentList = std::make_shared<ListDouble>(Deeds, std::vector<String>{u"Visa->a", u"Visa->b"});
  EXPECT_EQ(Ask([](memory::Form&, memory::ComboBox& list) { list.Choose(u"b"); }), "b");
}

TEST_F(InstrumentDialogTest, WithoutAListTheNameCanBeTyped) {
  EXPECT_EQ(Ask([](memory::Form&, memory::ComboBox& list) {
              EXPECT_EQ(list.ListCount(), 0);
              EXPECT_EQ(list.ListIndex(), -1);
              list.Type(u"one");
            }),
            "one");
}

TEST_F(InstrumentDialogTest, NameWithSurroundingBlanksIsTrimmedByOK) {
  EXPECT_EQ(Ask([](memory::Form&, memory::ComboBox& list) { list.Type(u"  one two "); }), "one two");
}

TEST_F(InstrumentDialogTest, NameIsEmptyToBeginWith) {
  EXPECT_EQ(MakeDialog<frmInstrumentDialog>()->InstrumentName(), u"");
}

TEST_F(InstrumentDialogTest, EachChangeOfTheTextIsTheName) {
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [](memory::Form& form) {
    Find<memory::ComboBox>(form, u"txtInstrument").Type(u" one ");
    form.Hide();
  });
  const auto dialog = MakeDialog<frmInstrumentDialog>();
  dialog->ShowModal(&MainForm->Form());
  EXPECT_EQ(dialog->InstrumentName(), u" one ");
}

TEST_F(InstrumentDialogTest, CancelEmptiesTheName) {
  EXPECT_EQ(Ask([](memory::Form& form, memory::ComboBox& list) {
              list.Type(u"one");
              Press(form, u"CancelButton");
            }),
            "");
}

TEST_F(InstrumentDialogTest, HelpIsShownByAMacro) {
  Ask([](memory::Form& form, memory::ComboBox&) { Press(form, u"cmdHelp"); });
  EXPECT_EQ(Deeds, Journal{"ShowHelp 258 AL(`frmInstrumentDialog',1) TVPort.hlp"});
}

TEST_F(InstrumentDialogTest, FailureOfAHandlerIsFiledAndShowsNothing) {
  Dialog->OnCall = [](const std::string&) { HuntERR::Check(false, 53, u"no help"); };
  Ask([](memory::Form& form, memory::ComboBox&) {
    Press(form, u"cmdHelp");
    EXPECT_TRUE(form.IsShown());
  });
  EXPECT_EQ(Filed(), List{"no help"});
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmInstrumentDialog.cmdHelp_Click()"});
}

TEST_F(InstrumentDialogTest, ButtonsFileTheirFailures) {
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [&](memory::Form& form) {
    form.Events().Unload.Connect([] { HuntERR::Check(false, 5, u"unload"); });
    Press(form, u"OKButton");
  });
  MakeDialog<frmInstrumentDialog>()->ShowModal(nullptr);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmInstrumentDialog.OKButton_Click()"});
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [&](memory::Form& form) {
    form.Events().Unload.Connect([] { HuntERR::Check(false, 5, u"unload"); });
    Press(form, u"CancelButton");
  });
  MakeDialog<frmInstrumentDialog>()->ShowModal(nullptr);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmInstrumentDialog.CancelButton_Click()"});
}

TEST_F(InstrumentDialogTest, CloseBoxFilesItsFailure) {
  Platform.Screen->OnShowModal(u"frmInstrumentDialog", [&](memory::Form& form) {
    form.Events().Unload.Connect([] { HuntERR::Check(false, 5, u"unload"); });
    form.PressCloseBox();
  });
  MakeDialog<frmInstrumentDialog>()->ShowModal(nullptr);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmInstrumentDialog.Form_QueryUnload()"});
}

TEST_F(InstrumentDialogTest, FormThatCannotBeUnloadedDoesNotKeepTheDialog) {
  auto dialog = MakeDialog<frmInstrumentDialog>();
  const auto form = Platform.Screen->Find(u"frmInstrumentDialog");
  form->Events().Unload.Connect([] { HuntERR::Check(false, 5, u"unload"); });
  dialog = {};
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), std::vector<String>{u"DialogForm.Class_Terminate()"});
}

TEST_F(InstrumentDialogTest, ControlsOutliveTheDialogHarmlessly) {
  const auto form = [this] {
    const auto dialog = MakeDialog<frmInstrumentDialog>();
    return Platform.Screen->Find(u"frmInstrumentDialog");
  }();
  EXPECT_FALSE(form->IsLoaded());
  Find<memory::ComboBox>(*form, u"txtInstrument").Text(u"one");
  EXPECT_EQ(Filed(), List{});
}

} // namespace
} // namespace portico::test
