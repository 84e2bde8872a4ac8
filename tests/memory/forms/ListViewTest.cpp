#include "memory/forms/ListView.h"

#include "memory/FormBench.h"

namespace portico::memory {
namespace {

using ::testing::ElementsAre;

class Letters final : public IListRows {
public:
  std::int32_t Count() const override { return 3; }
  String Cell(std::int32_t row, std::int32_t column) const override {
    return String(1, static_cast<char16_t>((column == 0 ? u'a' : u'A') + row));
  }
};

constexpr ControlDesign ListParts[] = {
    {.Kind = ControlKind::ListView, .Name = u"list"},
    {.Kind = ControlKind::CommandButton, .Name = u"ok", .Caption = u"OK", .IsDefault = true},
};
constexpr FormDesign ListDialog = {
    .Name = u"frmDialog", .Caption = u"A Dialog", .Style = FormStyle::Dialog, .Controls = ListParts};

class ListViewTest : public FormBench {
protected:
  ListViewTest() {
    List.Columns({{.Heading = u"Small"}, {.Heading = u"Large"}});
    List.Rows(std::make_shared<Letters>());
    List.Click().Connect([this] { Calls.push_back("click " + std::to_string(List.ListIndex())); });
    List.Choose().Connect([this] { Calls.push_back("choose " + std::to_string(List.ListIndex())); });
    OK.Click().Connect(Note("ok"));
  }

  Ref<IForm> Loaded = gForms->Load(ListDialog);
  Form& Window = Shown(Loaded);
  ListView& List = Find<ListView>(Loaded, u"list");
  CommandButton& OK = Find<CommandButton>(Loaded, u"ok");
};

TEST_F(ListViewTest, TellsWhatItShows) {
  EXPECT_EQ(List.Columns()[1].Heading, u"Large");
  EXPECT_EQ(List.Row(2), u"c | C");
}

TEST_F(ListViewTest, TheUserSelectsAndChooses) {
  EXPECT_TRUE(List.Select(1));
  EXPECT_TRUE(List.HasFocus());
  EXPECT_TRUE(List.DoubleClick(2));
  EXPECT_FALSE(List.Select(3));
  EXPECT_THAT(Calls, ElementsAre("click 1", "click 2", "choose 2"));
}

TEST_F(ListViewTest, ReturnChoosesTheSelectedRowAndPressesTheDefaultButtonWithout) {
  List.TakeFocus();
  EXPECT_TRUE(Window.PressKey(ReturnKey));
  List.Select(1);
  EXPECT_TRUE(Window.PressKey(ReturnKey));
  EXPECT_THAT(Calls, ElementsAre("ok", "click 1", "choose 1"));
}

TEST_F(ListViewTest, IsOfNoUseWhileItIsDisabled) {
  List.Enabled(false);
  EXPECT_FALSE(List.Select(1));
  EXPECT_FALSE(List.DoubleClick(1));
  EXPECT_THAT(Calls, ElementsAre());
}

} // namespace
} // namespace portico::memory
