#include "ui/dialogs/OptionsFixture.h"

namespace portico::test {
namespace {

class OptionsFailureTest : public OptionsFixture {};

TEST_F(OptionsFailureTest, StateThatIsNeitherOnNorOffIsFiledAndTheDialogShows) {
  With(u"SCPIProtocolIntervalPacing", u"on");
  Show([](memory::Form& form) { EXPECT_TRUE(form.IsShown()); });
  EXPECT_EQ(Filed(), List{"on is not a valid state for a check box."});
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.Form_Load()"});
}

TEST_F(OptionsFailureTest, GrayedCheckBoxIsFiledAndTheDialogStays) {
  Show([](memory::Form& form) {
    Find<CheckBox>(form, u"chkSCPITimed").Value(Grayed);
    Press(form, u"cmdOK");
    EXPECT_TRUE(form.IsShown());
  });
  EXPECT_EQ(Filed(), List{"A check box must be checked or unchecked."});
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.cmdOK_Click()"});
}

TEST_F(OptionsFailureTest, HandlersFileTheirFailures) {
  Dialog->OnCall = [](const std::string&) { HuntERR::Check(false, 53, u"no help"); };
  Show([](memory::Form& form) { Press(form, u"cmdHelp"); });
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.cmdHelp_Click()"});
  Show([](memory::Form& form) {
    form.Events().Unload.Connect([] { HuntERR::Check(false, 5, u"unload"); });
    Press(form, u"cmdCancel");
  });
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.cmdCancel_Click()"});
}

TEST_F(OptionsFailureTest, CheckBoxesFileTheirFailures) {
  With(u"SCPIProtocolAutoReadAfterQuery", u"Off");
  for (const auto& [box, label] : std::vector<std::pair<StringView, String>>{
           {u"chkSCPIOPC", u"frmTVSCPIOptions.chkSCPIOPC_Click()"},
           {u"chkSCPIGetStatus", u"frmTVSCPIOptions.chkSCPIGetStatus_Click()"}}) {
    Show([&, name = box](memory::Form& form) {
      Find<CheckBox>(form, u"chkSCPIAutoRead").Click().Connect([] { HuntERR::Check(false, 5, u"auto-read"); });
      Click(form, name);
    });
    EXPECT_EQ(FiledTrail(), std::vector<String>{label});
  }
}

TEST_F(OptionsFailureTest, TabsFileTheirFailures) {
  Show([](memory::Form& form) {
    auto& tabs = Find<TabStrip>(form, u"tbsOptions");
    tabs.AddTab(u"third", u"");
    tabs.Choose(3); // it has no page
  });
  EXPECT_EQ(HuntERR::ErrNumber(), 9);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmTVSCPIOptions.tbsOptions_Click()"});
}

TEST_F(OptionsFailureTest, KeysFileTheirFailures) {
  Show([](memory::Form& form) {
    Find<TabStrip>(form, u"tbsOptions").Click().Connect([] { HuntERR::Check(false, 5, u"tab"); });
    form.PressKey(9, 2);
  });
  EXPECT_EQ(Filed(), List{"tab"});
  const auto trail = FiledTrail();
  ASSERT_EQ(trail.size(), 1U);
  EXPECT_TRUE(Bears(trail[0], u"frmTVSCPIOptions.Form_KeyDown(KeyCode,Shift)"));
}

TEST_F(OptionsFailureTest, DialogThatCannotBeMadeRaises17) {
  gForms.reset();
  const auto error = Raised([] { Create<ICommand>(u"ConfigOptions")->Execute(); });
  gForms = Platform.Screen;
  ExpectError(error, 17, u"Failed to create option dialog box.");
  ExpectTrail(error, {u"CConfigOptions.ICommand_Execute"});
}

TEST_F(OptionsFailureTest, CannotBeExecutedBeforeInitialize) {
  const auto error = Raised([] { CConfigOptions().Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CConfigOptions.ICommand_Execute"});
}

TEST_F(OptionsFailureTest, EndOfTheProgramEndsTheDialogWithoutATrace) {
  Platform.Screen->OnShowModal(u"frmTVSCPIOptions", [this](memory::Form&) { Platform.Loop->RequestQuit(); });
  EXPECT_THROW(Create<ICommand>(u"ConfigOptions")->Execute(), Quit);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
  EXPECT_EQ(Calls, List{});
  EXPECT_FALSE(Platform.Screen->Find(u"frmTVSCPIOptions"));
}

/// A screen whose forms lack a control.
class LackingForms final : public IForms {
public:
  LackingForms(std::shared_ptr<IForms> forms, StringView lacking) : m_forms(std::move(forms)), m_lacking(lacking) {}
  Ref<IForm> Load(const FormDesign& design) override {
    FormDesign other = design;
    for (const ControlDesign& control : design.Controls) {
      if (control.Name != m_lacking) m_controls.push_back(control);
    }
    other.Controls = m_controls;
    return m_forms->Load(other);
  }
  std::vector<Ref<IForm>> Forms() const override { return m_forms->Forms(); }
  IControl* ActiveControl() const override { return m_forms->ActiveControl(); }

private:
  std::shared_ptr<IForms> m_forms;
  StringView m_lacking;
  std::vector<ControlDesign> m_controls;
};

TEST_F(OptionsFailureTest, TabOrderThatCannotBeChangedIsFiled) {
  gForms = std::make_shared<LackingForms>(Platform.Screen, u"txtErrQueryCmd");
  Show([](memory::Form& form) { Find<TabStrip>(form, u"tbsOptions").Choose(2); });
  ASSERT_EQ(Filed().size(), 2U); // the first while loading
  EXPECT_EQ(HuntERR::ErrNumber(), 730);
  const auto trail = FiledTrail();
  ASSERT_EQ(trail.size(), 2U);
  EXPECT_TRUE(Bears(trail[0], u"frmTVSCPIOptions.ChangeTabState(i,State)")) << ToUtf8(trail[0]);
  EXPECT_EQ(trail[1], u"frmTVSCPIOptions.tbsOptions_Click()");
}

} // namespace
} // namespace portico::test
