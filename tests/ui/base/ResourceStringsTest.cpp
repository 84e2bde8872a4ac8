#include "ui/base/ResourceStrings.h"

#include "platform/IMenuItem.h"
#include "platform/IToolBar.h"
#include "ui/UiFixture.h"
#include "ui/base/ExpectedStrings.h"

#include <array>

namespace portico::test {
namespace {

class ResourceStringsTest : public FrameworkTest {
protected:
  /// A form of a design after its strings have been loaded.
  IForm& Loaded(const FormDesign& design) {
    m_form = gForms->Load(design);
    modAppGlobals::LoadResStrings(*m_form);
    return *m_form;
  }
  /// A control that has been designed so, after its strings have been loaded.
  const IControl& Loaded(const ControlDesign& control) {
    m_controls = {control};
    return FindControl<IControl>(Loaded(FormDesign{.Name = u"frm", .Caption = u"x", .Controls = m_controls}),
                                 control.Name);
  }

  WindowPlatform Platform;

private:
  std::vector<ControlDesign> m_controls;
  Ref<IForm> m_form;
};

TEST_F(ResourceStringsTest, TableIsThis) {
  const auto table = ResourceStrings();
  ASSERT_EQ(table.size(), ExpectedStrings.size());
  for (std::size_t i = 0; i < table.size(); ++i) {
    EXPECT_EQ(table[i].Id, ExpectedStrings[i].Id);
    EXPECT_EQ(ToUtf8(table[i].Text), ToUtf8(ExpectedStrings[i].Text));
    EXPECT_EQ(ToUtf8(LoadResString(table[i].Id)), ToUtf8(ExpectedStrings[i].Text));
  }
}

TEST_F(ResourceStringsTest, AbsentIdRaises) {
  for (const std::int32_t id : {0, 999, 1010, 9999, -1, 1001 + 0x10000}) {
    const auto error = Raised([&] { LoadResString(id); });
    ExpectError(error, 326, u"There is no resource string with the id " + ToText(std::int64_t{id}) + u".");
  }
}

TEST_F(ResourceStringsTest, FontHasNoStrings) {
  EXPECT_EQ(Raised([] { LoadResString(20); }).Number, 326);
  EXPECT_EQ(Raised([] { LoadResString(21); }).Number, 326);
}

TEST_F(ResourceStringsTest, CaptionOfTheFormStandsInItsTag) {
  EXPECT_EQ(Loaded(FormDesign{.Name = u"frm", .Caption = u"x", .Tag = u"1062"}).Caption(), u"Tolvane Portico");
}

TEST_F(ResourceStringsTest, FormWithoutAnIdKeepsItsCaption) {
  for (StringView tag : {u"", u"main", u"999", u"40000"}) {
    EXPECT_EQ(Loaded(FormDesign{.Name = u"frm", .Caption = u"x", .Tag = tag}).Caption(), u"x");
  }
}

TEST_F(ResourceStringsTest, MenusHaveTheirIdsForCaptions) {
  static constexpr std::array menus = {MenuDesign{.Name = u"mnuFile", .Caption = u"1000"},
                                       MenuDesign{.Name = u"mnuOpen", .Caption = u"1001", .Parent = u"mnuFile"}};
  IForm& form = Loaded(FormDesign{.Name = u"frm", .Caption = u"x", .Menus = menus});
  EXPECT_EQ(FindControl<IMenuItem>(form, u"mnuFile").Caption(), u"&File");
  EXPECT_EQ(FindControl<IMenuItem>(form, u"mnuOpen").Caption(), u"&Open Instrument...");
}

TEST_F(ResourceStringsTest, MenuWhoseCaptionIsNotANumberKeepsItsCaption) {
  static constexpr std::array menus = {
      MenuDesign{.Name = u"mnuFile", .Caption = u"1000"},
      MenuDesign{.Name = u"mnuFileBar0", .Caption = u"-", .Parent = u"mnuFile"},
      MenuDesign{.Name = u"mnuFileMRU", .Caption = u"1000 files", .Parent = u"mnuFile"},
      MenuDesign{.Name = u"mnuAbsent", .Caption = u"999", .Parent = u"mnuFile"},
      MenuDesign{.Name = u"mnuHuge", .Caption = u"1e99", .Parent = u"mnuFile"}};
  IForm& form = Loaded(FormDesign{.Name = u"frm", .Caption = u"x", .Menus = menus});
  EXPECT_EQ(FindControl<IMenuItem>(form, u"mnuFileBar0").Caption(), u"-");
  EXPECT_EQ(FindControl<IMenuItem>(form, u"mnuFileMRU").Caption(), u"1000 files");
  EXPECT_EQ(FindControl<IMenuItem>(form, u"mnuAbsent").Caption(), u"999");
  EXPECT_EQ(FindControl<IMenuItem>(form, u"mnuHuge").Caption(), u"1e99");
}

TEST_F(ResourceStringsTest, ToolbarButtonsHaveTheirIdsForToolTips) {
  static constexpr std::array buttons = {ToolButtonDesign{.Key = u"Open", .ToolTipText = u"8010"},
                                         ToolButtonDesign{.Key = u"Step", .ToolTipText = u"8120"}};
  IForm& form = Loaded(FormDesign{.Name = u"frm", .Caption = u"x", .ToolButtons = buttons});
  auto& bar = FindControl<IToolBar>(form, ToolBarName);
  EXPECT_EQ(bar.Buttons(u"Open").ToolTipText(), u"Open Instrument");
  EXPECT_EQ(bar.Buttons(u"Step").ToolTipText(), u"Step");
}

TEST_F(ResourceStringsTest, ToolbarButtonWithNoIdKeepsAnEmptyToolTip) {
  static constexpr std::array buttons = {ToolButtonDesign{.Key = u"Log"},
                                         ToolButtonDesign{.Key = u"Step", .ToolTipText = u"8120"}};
  IForm& form = Loaded(FormDesign{.Name = u"frm", .Caption = u"x", .ToolButtons = buttons});
  auto& bar = FindControl<IToolBar>(form, ToolBarName);
  EXPECT_EQ(bar.Buttons(u"Log").ToolTipText(), u"");
  EXPECT_EQ(bar.Buttons(u"Step").ToolTipText(), u"Step"); // the next one is not held up
}

TEST_F(ResourceStringsTest, LabelHasItsIdInTheTag) {
  EXPECT_EQ(Loaded({.Kind = ControlKind::Label, .Name = u"lbl", .Caption = u"x", .Tag = u"1061"}).Caption(),
            u"Version");
}

TEST_F(ResourceStringsTest, LabelTakesNoToolTipAndNoCaptionOfItsCaption) {
  const auto& label = Loaded({.Kind = ControlKind::Label, .Name = u"lbl", .Caption = u"1000", .ToolTipText = u"1001"});
  EXPECT_EQ(label.Caption(), u"1000");
  EXPECT_EQ(label.ToolTipText(), u"1001");
}

TEST_F(ResourceStringsTest, TabsHaveTheirIdsInTagAndToolTip) {
  static constexpr std::array controls = {ControlDesign{.Kind = ControlKind::TabStrip, .Name = u"tbs"}};
  const auto form = gForms->Load({.Name = u"frm", .Caption = u"x", .Controls = controls});
  auto& strip = FindControl<ITabStrip>(*form, u"tbs");
  strip.AddTab(u"a", u"8010", u"1054");
  strip.AddTab(u"b", u"tip", u"");
  modAppGlobals::LoadResStrings(*form);
  EXPECT_EQ(strip.Tabs()[0]->Caption(), u"&Apply");
  EXPECT_EQ(strip.Tabs()[0]->ToolTipText(), u"Open Instrument");
  EXPECT_EQ(strip.Tabs()[1]->Caption(), u"b");
  EXPECT_EQ(strip.Tabs()[1]->ToolTipText(), u"tip");
}

TEST_F(ResourceStringsTest, OtherControlsTakeCaptionByTagAndToolTipByToolTip) {
  const auto& button = Loaded(
      {.Kind = ControlKind::CommandButton, .Name = u"cmd", .Caption = u"1000", .ToolTipText = u"8060", .Tag = u"1055"});
  EXPECT_EQ(button.Caption(), u"&Cancel");
  EXPECT_EQ(button.ToolTipText(), u"Print");
}

TEST_F(ResourceStringsTest, OtherControlsReadTheNumberThatATextBeginsWith) {
  const auto& button =
      Loaded({.Kind = ControlKind::CommandButton, .Name = u"cmd", .ToolTipText = u" 8060x", .Tag = u"1055 or so"});
  EXPECT_EQ(button.Caption(), u"&Cancel");
  EXPECT_EQ(button.ToolTipText(), u"Print");
}

TEST_F(ResourceStringsTest, TheNumberThatATextBeginsWithEndsAtItsFirstOtherCharacter) {
  for (const StringView text : {u"9040 or so", u"9040:9041", u" 9040"}) {
    EXPECT_EQ(Loaded({.Kind = ControlKind::CommandButton, .Name = u"cmd", .Tag = text}).Caption(),
              u"&About Tolvane Portico...");
  }
}

TEST_F(ResourceStringsTest, OtherControlsWithoutANumberKeepWhatTheyHave) {
  for (StringView text : {u"", u"0", u"-1000", u"typed", u"999", u"99999999"}) {
    const auto& button =
        Loaded({.Kind = ControlKind::CommandButton, .Name = u"cmd", .Caption = u"x", .ToolTipText = text, .Tag = text});
    EXPECT_EQ(button.Caption(), u"x");
    EXPECT_EQ(button.ToolTipText(), text);
  }
}

TEST_F(ResourceStringsTest, ToolTipIsLoadedThoughTheCaptionFails) {
  const auto& button = Loaded(
      {.Kind = ControlKind::CommandButton, .Name = u"cmd", .Caption = u"x", .ToolTipText = u"8060", .Tag = u"1"});
  EXPECT_EQ(button.Caption(), u"x");
  EXPECT_EQ(button.ToolTipText(), u"Print");
}

TEST_F(ResourceStringsTest, LoadingLeavesNoReport) {
  Loaded(FormDesign{.Name = u"frm", .Caption = u"x"});
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

} // namespace
} // namespace portico::test
