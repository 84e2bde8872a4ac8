// A list with columns, as far as the program alone can tell.

#include "contract/FormsBench.h"

#include "platform/IListView.h"
#include "support/ErrorReports.h"

#include <array>
#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

/// As many rows as wanted, made when they are asked for.
class CountedRows final : public IListRows {
public:
  explicit CountedRows(std::int32_t count) : Rows(count) {}

  std::int32_t Count() const override { return Rows; }
  String Cell(std::int32_t row, std::int32_t column) const override {
    ++Asked;
    EXPECT_LT(row, Rows);
    EXPECT_LT(column, 2);
    return ToText(std::int64_t{row});
  }

  std::int32_t Rows;
  mutable std::int64_t Asked = 0;
};

constexpr std::array ListControls{ControlDesign{.Kind = ControlKind::ListView, .Name = u"list"},
                                  ControlDesign{.Kind = ControlKind::CommandButton, .Name = u"ok", .Caption = u"OK"}};
constexpr FormDesign ListDialog{
    .Name = u"frmDialog", .Caption = u"A Dialog", .Style = FormStyle::Dialog, .Controls = ListControls};
constexpr FormDesign ListWindow{.Name = u"frmWindow", .Caption = u"A Window", .Controls = ListControls};

class ListViewContract : public FormsContract {
protected:
  ListViewContract() {
    List.Columns({{.Heading = u"Line", .Characters = 8, .IsNumber = true}, {.Heading = u"Answer"}});
    List.Click().Connect([this] { Clicks.push_back(List.ListIndex()); });
    List.Choose().Connect([this] { ADD_FAILURE() << "the program chooses nothing"; });
  }
  std::shared_ptr<CountedRows> Fill(std::int32_t count) {
    auto rows = std::make_shared<CountedRows>(count);
    List.Rows(rows);
    return rows;
  }

  Ref<IForm> Loaded = Forms().Load(ListDialog);
  IListView& List = FindControl<IListView>(*Loaded, u"list");
  std::vector<std::int32_t> Clicks;
};

INSTANTIATE_TEST_SUITE_P(AllForms, ListViewContract, testing::ValuesIn(AllFormsBenches()), FormsBenchName);

TEST_P(ListViewContract, BeginsEmptyWithNothingSelected) {
  EXPECT_EQ(List.Kind(), ControlKind::ListView);
  EXPECT_EQ(List.ListCount(), 0);
  EXPECT_EQ(List.ListIndex(), -1);
  EXPECT_EQ(Raised([&] { List.ListIndex(0); }).Number, 380);
  EXPECT_THAT(Clicks, ElementsAre());
}

TEST_P(ListViewContract, RowsComeWithNothingSelected) {
  const auto rows = Fill(3);
  EXPECT_EQ(List.ListCount(), 3);
  EXPECT_EQ(List.ListIndex(), -1);
  EXPECT_THAT(Clicks, ElementsAre());
}

TEST_P(ListViewContract, SelectingAnotherRowIsAClick) {
  const auto rows = Fill(3);
  List.ListIndex(2);
  List.ListIndex(2);
  List.ListIndex(0);
  List.ListIndex(-1);
  EXPECT_EQ(List.ListIndex(), -1);
  EXPECT_THAT(Clicks, ElementsAre(2, 0, -1));
}

TEST_P(ListViewContract, ARowThatIsNotThereRaises380) {
  const auto rows = Fill(3);
  List.ListIndex(1);
  EXPECT_EQ(Raised([&] { List.ListIndex(3); }).Number, 380);
  EXPECT_EQ(Raised([&] { List.ListIndex(-2); }).Number, 380);
  EXPECT_EQ(List.ListIndex(), 1);
}

TEST_P(ListViewContract, OtherRowsTakeTheSelectionAway) {
  Fill(3);
  List.ListIndex(1);
  Fill(5);
  EXPECT_EQ(List.ListIndex(), -1);
  EXPECT_EQ(List.ListCount(), 5);
  List.ListIndex(4);
  List.Rows(nullptr);
  EXPECT_EQ(List.ListCount(), 0);
  EXPECT_EQ(List.ListIndex(), -1);
  EXPECT_THAT(Clicks, ElementsAre(1, -1, 4, -1));
}

TEST_P(ListViewContract, RowsThatComeAndGoAreSeenAtARefresh) {
  const auto rows = Fill(3);
  List.ListIndex(1);
  rows->Rows = 10;
  EXPECT_EQ(List.ListCount(), 3);
  List.Refresh();
  EXPECT_EQ(List.ListCount(), 10);
  EXPECT_EQ(List.ListIndex(), 1);
  List.ListIndex(9);
  rows->Rows = 2;
  List.Refresh();
  EXPECT_EQ(List.ListCount(), 2);
  EXPECT_EQ(List.ListIndex(), -1) << "the row that was selected has gone";
  EXPECT_THAT(Clicks, ElementsAre(1, 9, -1));
}

TEST_P(ListViewContract, OfAMillionRowsFewAreAskedFor) {
  const auto rows = Fill(1'000'000);
  Loaded->Show();
  Loop().DoEvents();
  List.ListIndex(999'999);
  List.Refresh();
  Loop().DoEvents();
  EXPECT_EQ(List.ListIndex(), 999'999);
  EXPECT_LT(rows->Asked, 1000);
}

TEST_P(ListViewContract, StandsInATabOrder) {
  EXPECT_EQ(List.TabIndex(), 0);
  EXPECT_TRUE(List.TabStop());
  List.TabStop(false);
  EXPECT_FALSE(List.TabStop());
}

TEST_P(ListViewContract, IsPlacedInAWindow) {
  const Ref<IForm> window = Forms().Load(ListWindow);
  auto& list = FindControl<IListView>(*window, u"list");
  list.Move(15, 30, 3000, 1500);
  EXPECT_EQ(list.Left(), 15);
  EXPECT_EQ(list.Top(), 30);
  EXPECT_EQ(list.Width(), 3000);
  EXPECT_EQ(list.Height(), 1500);
  EXPECT_EQ(Raised([&] { list.Width(-1); }).Number, 380);
}

TEST_P(ListViewContract, AnErrorInAHandlerReachesTheProgramThatSelects) {
  const auto rows = Fill(3);
  List.Click().Connect([] { HuntERR::RaiseStandard(ErrorNumber::InvalidArgument); });
  EXPECT_EQ(Raised([&] { List.ListIndex(1); }).Number, 5);
}

} // namespace
} // namespace portico::test
