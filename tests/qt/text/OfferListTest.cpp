// The list of offers as the user sees it.

#include "qt/text/TextBench.h"

#include <QApplication>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>

namespace portico::test {
namespace {

class OfferListTest : public testing::Test, protected TextWindow {
protected:
  OfferListTest() {
    TakeFocus();
    Type(QStringLiteral("meas:vo"));
    Settle();
  }
  ~OfferListTest() override { QApplication::setPalette(m_palette); }

  void Show(std::size_t count) {
    std::vector<String> offers;
    for (std::size_t i = 0; i < count; ++i) offers.push_back(u"offer " + ToText(static_cast<std::int64_t>(i)));
    box.ShowOffers(offers, 5);
  }
  QListWidget& List() { return *View().findChild<QListWidget*>(QStringLiteral("offers")); }
  QRect Room() const { return View().viewport()->geometry(); }

private:
  const QPalette m_palette = QApplication::palette();
};

TEST_F(OfferListTest, StandsBelowTheWordInsideTheFrame) {
  Show(3);
  ASSERT_TRUE(List().isVisible());
  const QRect caret = View().cursorRect().translated(Room().topLeft());
  EXPECT_GT(List().y(), caret.bottom());
  EXPECT_LT(List().x(), caret.left()) << "where the word begins";
  EXPECT_GT(List().x(), Room().left());
  EXPECT_TRUE(Room().contains(List().geometry()));
}

TEST_F(OfferListTest, ScrollBarsThatGoLeaveItOpen) {
  Show(40);
  ASSERT_TRUE(List().isVisible());
  Show(3);
  EXPECT_EQ(box.Offers().size(), 3U);
  EXPECT_TRUE(List().isVisible());
}

TEST_F(OfferListTest, StandsAboveWhereThereIsNoRoomBelow) {
  String lines;
  for (int i = 0; i < 200; ++i) lines += u"\r\n";
  box.Text(lines);
  box.SelStart(box.TextLength());
  Settle();
  Show(40);
  const QRect caret = View().cursorRect().translated(Room().topLeft());
  EXPECT_LT(List().geometry().bottom(), caret.top() + 1);
  EXPECT_TRUE(Room().contains(List().geometry()));
}

TEST_F(OfferListTest, StaysInsideABoxThatIsSmall) {
  for (const int height : {300, 60, 30}) {
    View().resize(90, height);
    Show(40);
    EXPECT_TRUE(Room().contains(List().geometry())) << height;
    EXPECT_GT(List().height(), 5) << height;
  }
}

TEST_F(OfferListTest, WearsTheColoursOfTheDesktopAsTheyChange) {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::Text, QColor(230, 230, 230));
  QApplication::setPalette(dark);
  Show(3);
  EXPECT_EQ(List().palette().color(QPalette::Base), QColor(30, 30, 30));
  EXPECT_EQ(List().palette().color(QPalette::Text), QColor(230, 230, 230));
  EXPECT_EQ(View().palette().color(QPalette::Base), QColor(Qt::white));
  dark.setColor(QPalette::Base, QColor(50, 50, 50));
  QApplication::setPalette(dark);
  QEvent change(QEvent::ApplicationPaletteChange); // which an application sends that runs
  QApplication::sendEvent(&List(), &change);
  EXPECT_EQ(List().palette().color(QPalette::Base), QColor(50, 50, 50));
}

TEST_F(OfferListTest, ScreenReadersAreToldWhatIsChosen) {
  box.ShowOffers({u"VOLTage", u"VOLTage?"}, 5);
  EXPECT_EQ(View().accessibleDescription(), QStringLiteral("VOLTage, 1 of 2"));
  Key(Qt::Key_Down);
  EXPECT_EQ(View().accessibleDescription(), QStringLiteral("VOLTage?, 2 of 2"));
  Key(Qt::Key_Escape);
  EXPECT_EQ(View().accessibleDescription(), QString());
}

TEST_F(OfferListTest, TheMouseChoosesAndTakesNothing) {
  std::vector<std::int32_t> taken;
  box.OfferTaken().Connect([&](std::int32_t offer) { taken.push_back(offer); });
  Show(3);
  const QPoint place = List().visualItemRect(List().item(2)).center();
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
    QMouseEvent event(type, place, List().viewport()->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(List().viewport(), &event);
  }
  EXPECT_EQ(box.ChosenOffer(), 2);
  EXPECT_TRUE(taken.empty());
  EXPECT_TRUE(View().hasFocus());
  EXPECT_TRUE(List().isVisible());
}

TEST_F(OfferListTest, GoesWithTheBox) {
  Show(3);
  box.Text({});
  Settle();
  EXPECT_TRUE(List().isVisible()) << "closing it is up to whoever offers";
  box.CloseOffers();
  EXPECT_FALSE(List().isVisible());
}

} // namespace
} // namespace portico::test
