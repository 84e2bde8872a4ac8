// Where windows come up, and in what size.

#include "qt/ScreenFixture.h"
#include "qt/forms/WindowPlace.h"

#include <QScreen>

namespace portico::test {
namespace {

class FormPlaceTest : public ScreenTest {};

TEST_F(FormPlaceTest, PlacesThatWereReadPutTheWindowWhereItWas) {
  const Ref<IForm> form = screen.Load(SampleWindow);
  form->Left(1000);
  form->Top(1000);
  form->Width(6500);
  form->Height(6500);
  EXPECT_EQ(form->Left(), 1005);
  EXPECT_EQ(form->Width(), 6495);
  form->Show();
  loop.DoEvents();
  const Ref<IForm> other = screen.Load(SampleWindow);
  other->Left(form->Left());
  other->Top(form->Top());
  other->Width(form->Width());
  other->Height(form->Height());
  other->Show();
  loop.DoEvents();
  EXPECT_EQ(AsForm(other).Window().geometry(), AsForm(form).Window().geometry());
}

TEST_F(FormPlaceTest, ShowsInTheSizeThatItIsGivenThoughItHasItAlready) {
  const Ref<IForm> form = screen.Load(SampleWindow);
  form->Width(9600); // 640 by 480 pixels, as the toolkit begins
  form->Height(7200);
  form->Show();
  loop.DoEvents();
  EXPECT_EQ(form->Width(), 9600);
  EXPECT_EQ(form->Height(), 7200);
}

TEST_F(FormPlaceTest, AWindowThatIsOnNoScreenComesBack) {
  const Ref<IForm> form = screen.Load(SampleWindow);
  form->Move(-900000, -900000, 6000, 4500);
  form->Show();
  EXPECT_TRUE(qApp->primaryScreen()->geometry().intersects(AsForm(form).Window().geometry()));
}

TEST_F(FormPlaceTest, TheFrameIsWithinTheScreenToo) {
  const QRect all = qApp->primaryScreen()->availableGeometry();
  for (const WindowState state : {WindowState::Normal, WindowState::Maximized}) {
    const Ref<IForm> form = screen.Load(SampleWindow);
    form->Move(0, 0, all.width() * FormUnitsPerPixel, all.height() * FormUnitsPerPixel);
    form->WindowState(state);
    form->Show();
    loop.DoEvents();
    form->WindowState(WindowState::Normal);
    loop.DoEvents();
    const QWidget& window = AsForm(form).Window();
    ASSERT_NE(window.frameGeometry(), window.geometry());
    EXPECT_TRUE(all.contains(window.frameGeometry()));
    EXPECT_EQ(window.frameGeometry().size(), all.size());
    form->Unload();
  }
}

TEST_F(FormPlaceTest, AWindowThatTheUserMovesOverTheEdgeStaysThere) {
  const Ref<IForm> form = Shown(SampleWindow);
  QWidget& window = AsForm(form).Window();
  window.move(-40, -30);
  window.resize(500, 2000);
  loop.DoEvents();
  window.repaint();
  EXPECT_LT(window.x(), -20);
  EXPECT_GT(window.height(), 1900);
}

TEST_F(FormPlaceTest, ADialogComesUpInTheMiddleOfTheScreen) {
  const Ref<IForm> form = Shown({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog});
  const QPoint middle = AsForm(form).Window().geometry().center();
  EXPECT_LE((middle - qApp->primaryScreen()->availableGeometry().center()).manhattanLength(), 60);
}

TEST_F(FormPlaceTest, ADialogComesUpOverItsOwnerUnlessItsTableCentresIt) {
  const Ref<IForm> owner = Shown(SampleWindow);
  owner->Move(0, 0, 4500, 3000);
  loop.DoEvents();
  const QPoint middleOfScreen = qApp->primaryScreen()->availableGeometry().center();
  const QPoint middleOfOwner = AsForm(owner).Window().geometry().center();
  ASSERT_GT((middleOfScreen - middleOfOwner).manhattanLength(), 200);
  for (const bool isCentred : {false, true}) {
    const Ref<IForm> form =
        screen.Load({.Name = u"frmDialog", .Caption = u"Dialog", .Style = FormStyle::Dialog, .IsCentred = isCentred});
    form->Owner(owner.Get());
    form->Show();
    const QPoint middle = AsForm(form).Window().geometry().center();
    EXPECT_LE((middle - (isCentred ? middleOfScreen : middleOfOwner)).manhattanLength(), 60) << isCentred;
    form->Unload();
  }
}

TEST(WindowPlaceTest, AWindowStaysWhereAllOfItIsSeen) {
  const std::vector<QRect> areas{{0, 0, 800, 600}, {800, 0, 1000, 900}};
  for (const QRect place : {QRect(0, 0, 800, 600), QRect(10, 20, 300, 200), QRect(900, 500, 900, 400),
                            QRect(700, 100, 500, 300)}) { // the last on both
    EXPECT_EQ(qt::PlaceWithin(place, areas), place);
  }
}

TEST(WindowPlaceTest, AWindowGoesWhollyToTheScreenThatHasMostOfIt) {
  const std::vector<QRect> areas{{0, 0, 800, 600}, {800, 30, 1000, 870}};
  EXPECT_EQ(qt::PlaceWithin({700, 500, 400, 300}, areas), QRect(800, 500, 400, 300));
  EXPECT_EQ(qt::PlaceWithin({450, 500, 400, 300}, areas), QRect(400, 300, 400, 300));
  EXPECT_EQ(qt::PlaceWithin({900, 0, 2000, 2000}, areas), QRect(800, 30, 1000, 870));
  EXPECT_EQ(qt::PlaceWithin({-10, -20, 801, 300}, areas), QRect(0, 0, 800, 300));
}

TEST(WindowPlaceTest, AWindowOnNoScreenGoesToTheMiddleOfTheFirst) {
  const std::vector<QRect> areas{{100, 50, 800, 600}, {900, 0, 1000, 900}};
  EXPECT_EQ(qt::PlaceWithin({5000, -5000, 400, 200}, areas), QRect(300, 250, 400, 200));
  EXPECT_EQ(qt::PlaceWithin({5000, -5000, 900, 200}, areas), QRect(100, 250, 800, 200));
}

} // namespace
} // namespace portico::test
