// The list that a box offers at its caret.

#include "contract/UserEditBench.h"

#include "platform/KeyCodes.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using ::testing::ElementsAre;

class OfferListContract : public testing::TestWithParam<UserEditBenchKind> {
protected:
  OfferListContract() {
    Box.OfferTaken().Connect([this](std::int32_t offer) {
      Taken.push_back(offer);
      EXPECT_TRUE(Box.Offers().empty()) << "it is closed by then";
    });
    Box.CaretMoved().Connect([this] { ++Moves; });
    Bench->Type(u"meas:vo");
  }

  void Show(std::size_t count) {
    std::vector<String> offers;
    for (std::size_t i = 0; i < count; ++i) offers.push_back(u"offer " + ToText(static_cast<std::int64_t>(i)));
    Box.ShowOffers(offers, 5);
  }
  std::string Text() const { return ToUtf8(Box.Text()); }
  bool IsOpen() const { return !Box.Offers().empty(); }

  const std::unique_ptr<UserEditBench> Bench = GetParam().make();
  IRichTextControl& Box = Bench->Box();
  std::vector<std::int32_t> Taken;
  int Moves = 0;
};

INSTANTIATE_TEST_SUITE_P(AllPlatforms, OfferListContract, testing::ValuesIn(AllUserEditBenches()), UserEditBenchName);

TEST_P(OfferListContract, IsClosedAtFirstAndTakesNoKey) {
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Box.ChosenOffer(), -1);
  Bench->Press(ReturnKey);
  EXPECT_EQ(Text(), "meas:vo\r\n");
  EXPECT_THAT(Taken, ElementsAre());
}

TEST_P(OfferListContract, KeysChooseAndReturnTakes) {
  Show(3);
  EXPECT_EQ(Box.ChosenOffer(), 0);
  Bench->Press(DownKey);
  Bench->Press(DownKey);
  EXPECT_EQ(Box.ChosenOffer(), 2);
  Bench->Press(DownKey);
  EXPECT_EQ(Box.ChosenOffer(), 0) << "round";
  Bench->Press(UpKey);
  Bench->Press(UpKey);
  EXPECT_EQ(Box.ChosenOffer(), 1);
  Bench->Press(ReturnKey);
  EXPECT_THAT(Taken, ElementsAre(1));
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Text(), "meas:vo") << "the box inserts nothing";
}

TEST_P(OfferListContract, TabTakesAndTheFocusStays) {
  Show(1);
  Bench->Press(TabKey);
  EXPECT_THAT(Taken, ElementsAre(0));
  EXPECT_TRUE(Bench->HasFocus());
  EXPECT_EQ(Text(), "meas:vo");
}

TEST_P(OfferListContract, EscapeClosesAndTakesNothing) {
  Show(3);
  Bench->Press(EscapeKey);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Box.ChosenOffer(), -1);
  EXPECT_THAT(Taken, ElementsAre());
  EXPECT_EQ(Text(), "meas:vo");
  EXPECT_TRUE(Bench->HasFocus());
}

TEST_P(OfferListContract, APageEndsAtTheEnds) {
  Show(40);
  Bench->Press(PageDownKey);
  EXPECT_GT(Box.ChosenOffer(), 0);
  for (int i = 0; i < 40; ++i) Bench->Press(PageDownKey);
  EXPECT_EQ(Box.ChosenOffer(), 39);
  for (int i = 0; i < 41; ++i) Bench->Press(PageUpKey);
  EXPECT_EQ(Box.ChosenOffer(), 0);
  EXPECT_EQ(Text(), "meas:vo");
}

TEST_P(OfferListContract, HoldsTwoHundredAtMost) {
  Show(201);
  EXPECT_EQ(Box.Offers().size(), 200U);
  Bench->Press(UpKey);
  EXPECT_EQ(Box.ChosenOffer(), 199);
}

TEST_P(OfferListContract, KeepsWhatIsChosenWhereItIsStillOffered) {
  Box.ShowOffers({u"a", u"b", u"c"}, 5);
  Bench->Press(DownKey);
  Box.ShowOffers({u"x", u"y", u"b"}, 5);
  EXPECT_EQ(Box.ChosenOffer(), 2);
  Box.ShowOffers({u"x", u"y"}, 5);
  EXPECT_EQ(Box.ChosenOffer(), 0);
  Box.ShowOffers({}, 5);
  EXPECT_FALSE(IsOpen());
}

TEST_P(OfferListContract, OtherKeysGoToTheBoxAndTellOfTheCaret) {
  Show(3);
  Bench->Type(u"l");
  EXPECT_EQ(Text(), "meas:vol");
  EXPECT_TRUE(IsOpen());
  Moves = 0;
  Bench->Left();
  EXPECT_EQ(Box.SelStart(), 7);
  EXPECT_EQ(Moves, 1);
  EXPECT_TRUE(IsOpen()) << "whoever offers decides";
  Box.CloseOffers();
  EXPECT_FALSE(IsOpen());
  Bench->Left();
  EXPECT_EQ(Moves, 1) << "that is told only while it is shown";
}

TEST_P(OfferListContract, NeedsTheFocus) {
  Show(3);
  Bench->Leave();
  EXPECT_FALSE(IsOpen());
  Show(3);
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(Bench->HasFocus());
}

TEST_P(OfferListContract, IsNoPartOfTextAndLooks) {
  int changes = 0;
  Box.Change().Connect([&] { ++changes; });
  const String whole = Box.TextRTF();
  Show(3);
  Bench->Press(DownKey);
  EXPECT_EQ(Box.TextRTF(), whole);
  EXPECT_EQ(Box.SelStart(), 7);
  EXPECT_EQ(Box.SelLength(), 0);
  Bench->Press(EscapeKey);
  Bench->Undo();
  EXPECT_EQ(Text(), "") << "the step is what was typed";
  EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace portico::test
