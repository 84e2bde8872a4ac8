#include "framework/containers/KeyedList.h"

#include "support/ErrorReports.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using test::Raised;

/// Lists of up to eight items are searched in order, longer ones by an index; both must behave alike.
class KeyedListTest : public test::FrameworkTest, public ::testing::WithParamInterface<int> {
protected:
  /// Items 1, 2, … under the keys "Key1", "Key2", …
  KeyedListTest() {
    for (int i = 1; i <= GetParam(); ++i) List.Add(i, KeyOf(i));
  }
  static String KeyOf(int i) { return u"Key" + ToText(std::int64_t{i}); }
  std::size_t Size() const { return static_cast<std::size_t>(GetParam()); }

  KeyedList<int> List;
};

INSTANTIATE_TEST_SUITE_P(AroundTheIndexThreshold, KeyedListTest, ::testing::Values(1, 7, 8, 9, 10, 40));

TEST_P(KeyedListTest, ItemsStayInInsertionOrderAndPositionsCountFromOne) {
  ASSERT_EQ(List.Count(), Size());
  for (int i = 1; i <= GetParam(); ++i) EXPECT_EQ(List.Item(static_cast<std::size_t>(i)), i);
}

TEST_P(KeyedListTest, KeysAreFoundWithoutRegardToCase) {
  for (int i = 1; i <= GetParam(); ++i) {
    EXPECT_EQ(List.Item(KeyOf(i)), i);
    EXPECT_EQ(List.Item(ToUpper(KeyOf(i))), i);
  }
}

TEST_P(KeyedListTest, KeysKeepTheirFirstSpelling) { EXPECT_EQ(List.Key(Size()), KeyOf(GetParam())); }

TEST_P(KeyedListTest, AnAbsentKeyRaises5) {
  EXPECT_EQ(Raised([&] { List.Item(u"Nope"); }).Number, 5);
  EXPECT_EQ(Raised([&] { List.Item(u""); }).Number, 5);
  EXPECT_EQ(Raised([&] { List.Remove(u"Nope"); }).Number, 5);
  EXPECT_EQ(Raised([&] { std::as_const(List).Item(u"Nope"); }).Number, 5);
  EXPECT_EQ(List.Count(), Size());
}

TEST_P(KeyedListTest, AnAbsentPositionRaises5) {
  for (const std::size_t position : {std::size_t{0}, Size() + 1, static_cast<std::size_t>(-1)}) {
    EXPECT_EQ(Raised([&] { List.Item(position); }).Number, 5);
    EXPECT_EQ(Raised([&] { List.Remove(position); }).Number, 5);
    EXPECT_EQ(Raised([&] { List.Key(position); }).Number, 5);
    EXPECT_EQ(Raised([&] { std::as_const(List).Item(position); }).Number, 5);
  }
  EXPECT_EQ(List.Count(), Size());
}

TEST_P(KeyedListTest, AKeyThatIsPresentRaises457AndAddsNothing) {
  EXPECT_EQ(Raised([&] { List.Add(99, u"Key1"); }).Number, 457);
  EXPECT_EQ(Raised([&] { List.Add(99, u"kEY1"); }).Number, 457);
  EXPECT_EQ(List.Count(), Size());
  EXPECT_EQ(List.Item(u"Key1"), 1);
}

TEST_P(KeyedListTest, ItemsWithoutKeyAreReachedByPosition) {
  List.Add(98);
  List.Add(99);
  EXPECT_EQ(List.Item(Size() + 1), 98);
  EXPECT_EQ(List.Item(Size() + 2), 99);
  EXPECT_EQ(List.Key(Size() + 1), u"");
}

TEST_P(KeyedListTest, RemovingByPositionMovesLaterItemsUp) {
  List.Add(99, u"Last");
  List.Remove(std::size_t{1});
  EXPECT_EQ(List.Count(), Size());
  EXPECT_EQ(List.Item(Size()), 99);
  EXPECT_EQ(List.Item(u"Last"), 99);
  EXPECT_EQ(Raised([&] { List.Item(u"Key1"); }).Number, 5);
}

TEST_P(KeyedListTest, ARemovedKeyMayBeAddedAgain) {
  List.Remove(u"KEY1");
  EXPECT_EQ(List.Find(u"Key1"), nullptr);
  List.Add(99, u"Key1");
  EXPECT_EQ(List.Item(u"Key1"), 99);
  EXPECT_EQ(List.Item(Size()), 99);
}

TEST_P(KeyedListTest, RemovingAllLeavesAnEmptyList) {
  for (int i = GetParam(); i >= 1; --i) {
    List.Remove(KeyOf(i));
    for (int left = 1; left < i; ++left) EXPECT_EQ(List.Item(KeyOf(left)), left);
  }
  EXPECT_EQ(List.Count(), 0U);
}

TEST_P(KeyedListTest, FindGivesTheItemItself) {
  ASSERT_NE(List.Find(u"key1"), nullptr);
  *List.Find(u"key1") = 42;
  EXPECT_EQ(List.Item(std::size_t{1}), 42);
  EXPECT_EQ(List.Find(u"Nope"), nullptr);
  EXPECT_EQ(List.Find(u""), nullptr);
}

} // namespace
} // namespace portico
