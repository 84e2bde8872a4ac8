// A list as the user has it.

#include "platform/IDialogControls.h"
#include "platform/IListView.h"
#include "qt/ScreenFixture.h"
#include "qt/controls/ListWidget.h"

#include <QAccessible>
#include <QClipboard>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>

namespace portico::test {
namespace {

class Lines final : public IListRows {
public:
  explicit Lines(std::int32_t count) : m_count(count) {}
  std::int32_t Count() const override { return m_count; }
  String Cell(std::int32_t row, std::int32_t column) const override {
    return column == 0 ? ToText(std::int64_t{row} + 1) : u"first\r\nsecond\nthird";
  }

private:
  std::int32_t m_count;
};

constexpr std::array ListControls{
    ControlDesign{.Kind = ControlKind::Label, .Name = u"label", .Caption = u"&Errors:"},
    ControlDesign{.Kind = ControlKind::ListView, .Name = u"list"},
    ControlDesign{.Kind = ControlKind::CommandButton, .Name = u"ok", .Caption = u"OK", .IsDefault = true},
};
constexpr FormDesign ListDialog{
    .Name = u"frmList", .Caption = u"List", .Style = FormStyle::Dialog, .Controls = ListControls};

class ListViewTest : public ScreenTest {
protected:
  ListViewTest() {
    list.Columns({{.Heading = u"Line", .Characters = 8, .IsNumber = true}, {.Heading = u"Answer", .Characters = 40}});
    list.Rows(std::make_shared<Lines>(1000));
    list.Click().Connect([this] { calls.push_back("click " + std::to_string(list.ListIndex())); });
    list.Choose().Connect([this] { calls.push_back("choose " + std::to_string(list.ListIndex())); });
    FindControl<ICommandButton>(*form, u"ok").Click().Connect([this] { calls.emplace_back("ok"); });
    loop.DoEvents();
    widget.setFocus();
  }
  QPoint PlaceOf(int row) const { return widget.visualRect(widget.model()->index(row, 1)).center(); }

  Ref<IForm> form = Shown(ListDialog);
  IListView& list = FindControl<IListView>(*form, u"list");
  qt::ListWidget& widget = *Find<qt::ListWidget>(form, "list");
  std::vector<std::string> calls;
};

TEST_F(ListViewTest, TheArrowKeysSelectAndReturnChoosesWithoutTheDefaultButton) {
  list.ListIndex(3);
  QTest::keyClick(&widget, Qt::Key_Down);
  QTest::keyClick(&widget, Qt::Key_Return);
  EXPECT_EQ(calls, (std::vector<std::string>{"click 3", "click 4", "choose 4"}));
}

TEST_F(ListViewTest, ReturnWithNothingSelectedPressesTheDefaultButton) {
  QTest::keyClick(&widget, Qt::Key_Return);
  EXPECT_EQ(calls, (std::vector<std::string>{"ok"}));
}

TEST_F(ListViewTest, AllIsCopiedWithItsHeadingsAndTabsBetweenTheCells) {
  list.Rows(std::make_shared<Lines>(2));
  QTest::keyClick(&widget, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            "Line\tAnswer\n1\tfirst second third\n2\tfirst second third\n");
}

TEST_F(ListViewTest, ADoubleClickChooses) {
  QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, PlaceOf(2));
  QTest::mouseDClick(widget.viewport(), Qt::LeftButton, {}, PlaceOf(2));
  EXPECT_EQ(calls, (std::vector<std::string>{"click 2", "choose 2"}));
  QTest::mouseDClick(widget.viewport(), Qt::RightButton, {}, PlaceOf(2));
  EXPECT_EQ(calls.size(), 2U);
}

TEST_F(ListViewTest, TabLeavesIt) {
  QTest::keyClick(&widget, Qt::Key_Tab);
  EXPECT_FALSE(widget.hasFocus());
}

TEST_F(ListViewTest, ASelectedRowIsInSight) {
  list.ListIndex(900);
  EXPECT_TRUE(widget.viewport()->rect().contains(PlaceOf(900)));
  EXPECT_TRUE(widget.selectionModel()->isRowSelected(900));
}

TEST_F(ListViewTest, ShowsItsCellsInOneLineUnderTheirHeadings) {
  const QAbstractItemModel& model = *widget.model();
  EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "Answer");
  EXPECT_EQ(model.index(4, 0).data().toString(), "5");
  EXPECT_EQ(model.index(4, 1).data().toString(), "first second third");
  EXPECT_EQ(model.index(4, 0).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
  EXPECT_GE(widget.width(), widget.columnWidth(0) + widget.columnWidth(1));
}

TEST_F(ListViewTest, AColumnHasRoomForItsHeading) {
  list.Columns({{.Heading = u"Overloads", .Characters = 7, .IsNumber = true}, {.Heading = u"Curve"}});
  EXPECT_GE(widget.columnWidth(0), widget.horizontalHeader()->sectionSizeHint(0));
}

TEST_F(ListViewTest, AColumnOfNumbersHasRoomForItsDigits) {
  class Numbers final : public IListRows {
  public:
    std::int32_t Count() const override { return 1; }
    String Cell(std::int32_t /*row*/, std::int32_t /*column*/) const override { return u"-1.23457e-05"; }
  };
  list.Columns({{.Heading = u"Mean", .Characters = 12, .IsNumber = true}, {.Heading = u"Curve"}});
  list.Rows(std::make_shared<Numbers>());
  const QAbstractItemView& view = widget;
  EXPECT_GE(widget.columnWidth(0), view.sizeHintForIndex(widget.model()->index(0, 0)).width());
}

TEST_F(ListViewTest, ItsDialogFitsTheScreenHoweverMuchThereIsToSee) {
  list.Columns({{.Heading = u"Line", .Characters = 1000}, {.Heading = u"Answer", .Characters = 1000}});
  QFont large = widget.font();
  large.setPointSize(100);
  widget.setFont(large);
  loop.DoEvents();
  const QSize room = widget.screen()->availableSize();
  const QSize dialog = widget.window()->frameSize();
  EXPECT_LE(dialog.width(), room.width());
  EXPECT_LE(dialog.height(), room.height());
  EXPECT_GT(widget.horizontalScrollBar()->maximum(), 0) << "the rest can be reached";
}

TEST_F(ListViewTest, IsReadToWhoeverCannotSeeIt) {
  EXPECT_EQ(widget.accessibleName(), "Errors:");
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&widget);
  ASSERT_NE(accessible, nullptr);
  ASSERT_NE(accessible->tableInterface(), nullptr);
  EXPECT_EQ(accessible->tableInterface()->rowCount(), 1000);
  EXPECT_EQ(accessible->tableInterface()->columnDescription(1), "Answer");
  EXPECT_EQ(accessible->tableInterface()->cellAt(7, 0)->text(QAccessible::Name), "8");
}

} // namespace
} // namespace portico::test
