#include "memory/forms/RichTextControl.h"

#include "memory/FormBench.h"
#include "memory/forms/DeviceContext.h"
#include "platform/IPictureBox.h"

namespace portico::memory {
namespace {

using ::testing::ElementsAre;

constexpr ControlDesign RichTextParts[] = {
    {.Kind = ControlKind::RichTextBox, .Name = u"box", .Caption = u"first text", .ToolTipText = u"tip"},
    {.Kind = ControlKind::RichTextBox, .Name = u"other"},
    {.Kind = ControlKind::PictureBox, .Name = u"picture", .Image = u"Logo"},
    {.Kind = ControlKind::SplitPanel, .Name = u"split"},
};
constexpr FormDesign RichTextWindow = {.Name = u"frmMain", .Caption = u"", .Controls = RichTextParts};

class RichTextControlTest : public FormBench {
protected:
  Ref<IForm> Loaded = gForms->Load(RichTextWindow);
  Form& TheForm = Shown(Loaded);
  RichTextControl& Box = Find<RichTextControl>(Loaded, u"box");
  RichTextControl& Other = Find<RichTextControl>(Loaded, u"other");
};

TEST_F(RichTextControlTest, BeginsWithItsDesign) {
  EXPECT_EQ(Box.ClassName(), u"RichTextBox");
  EXPECT_EQ(Box.Kind(), ControlKind::RichTextBox);
  EXPECT_EQ(Box.Text(), u"first text");
  EXPECT_EQ(Box.Caption(), u"");
  EXPECT_EQ(Box.ToolTipText(), u"tip");
  EXPECT_TRUE(Box.TabStop());
  EXPECT_FALSE(Box.Locked());
}

TEST_F(RichTextControlTest, IsARichTextBoxToo) {
  const Ref<IRichTextBox> box(std::shared_ptr<IRichTextBox>(Loaded.Shared(), &Box));
  box->Change().Connect(Note("change"));
  box->Text(u"one\r\ntwo");
  EXPECT_EQ(box->TextLength(), 8);
  EXPECT_EQ(box->Find(u"two", 0), 5);
  EXPECT_EQ(box->GetLineFromChar(5), 1);
  EXPECT_EQ(box->SelText(), u"two");
  box->SelLength(1);
  box->Span(u"w");
  EXPECT_EQ(box->SelText(), u"tw");
  SelectionFormat bold;
  bold.SelBold = true;
  box->SelFormat(bold);
  EXPECT_EQ(box->SelFormat().SelBold, true);
  const String fragment = box->SelRTF();
  box->SelStart(0);
  box->SelRTF(fragment);
  EXPECT_EQ(box->Text(), u"twone\r\ntwo");
  box->TextRTF(box->TextRTF());
  EXPECT_EQ(box->SelStart(), 0);
  EXPECT_EQ(box->SelLength(), 0);
  EXPECT_THAT(Calls, ElementsAre("change", "change", "change"));
}

TEST_F(RichTextControlTest, UserTypesIntoTheSelection) {
  Box.SelStart(0);
  Box.SelLength(5);
  Other.SetFocus();
  EXPECT_TRUE(Box.Type(u"new"));
  EXPECT_EQ(Box.Text(), u"new text");
  EXPECT_TRUE(Box.HasFocus());
  EXPECT_TRUE(TheForm.PressKey(ReturnKey));
  EXPECT_EQ(Box.Text(), u"new\r\n text");
}

TEST_F(RichTextControlTest, UserCannotTypeIntoABoxThatIsLockedOrDisabled) {
  Box.Locked(true);
  EXPECT_FALSE(Box.Type(u"new"));
  Box.SelText(u"the program's "); // which may
  Box.Locked(false);
  Box.Enabled(false);
  EXPECT_FALSE(Box.Type(u"new"));
  EXPECT_EQ(Box.Text(), u"the program's first text");
}

TEST_F(RichTextControlTest, MouseTellsItsPlaceAndTheLeftButtonGivesTheFocus) {
  const auto note = [&](const std::string& name) {
    return [this, name](const MouseEvent& event) {
      Calls.push_back(name + " " + std::to_string(event.Button) + " " + std::to_string(static_cast<int>(event.X)));
    };
  };
  Other.MouseDown().Connect(note("down"));
  Other.MouseUp().Connect(note("up"));
  WatchFocus(Other);
  EXPECT_TRUE(Other.PressMouse({.Button = RightButton, .X = 15}));
  EXPECT_TRUE(Other.ReleaseMouse({.Button = RightButton, .X = 30}));
  EXPECT_FALSE(Other.ReleaseMouse({.Button = RightButton}));
  EXPECT_TRUE(Other.PressMouse({.Button = LeftButton}));
  Other.Enabled(false);
  EXPECT_FALSE(Other.PressMouse({.Button = LeftButton}));
  EXPECT_THAT(Calls, ElementsAre("down 2 15", "up 2 30", "other got", "down 1 0"));
}

TEST_F(RichTextControlTest, PrintsTheSelectionIfAskedForAndElseTheWholeText) {
  Box.SelStart(0);
  Box.SelLength(5);
  const auto selection = New<DeviceContext>(true);
  const auto whole = New<DeviceContext>(false);
  Box.SelPrint(selection);
  Box.SelPrint(whole);
  Box.SelLength(0);
  Box.SelPrint(selection);
  EXPECT_THAT(selection->Printed(), ElementsAre(u"first", u"first text"));
  EXPECT_THAT(whole->Printed(), ElementsAre(u"first text"));
}

TEST_F(RichTextControlTest, NoContextRaises91) {
  EXPECT_EQ(NumberOf([&] { Box.SelPrint({}); }), ErrorNumber::MissingObject);
}

TEST_F(RichTextControlTest, PlaceIsWhatWasPut) {
  Box.Move(15, 30, 150, 300);
  EXPECT_EQ(Box.Left(), 15);
  EXPECT_EQ(Box.Top(), 30);
  EXPECT_EQ(Box.Width(), 150);
  EXPECT_EQ(Box.Height(), 300);
  Box.Left(-15);
  Box.Top(-30);
  Box.Width(0);
  Box.Height(15);
  EXPECT_EQ(Box.Left(), -15);
  EXPECT_EQ(Box.Top(), -30);
  EXPECT_EQ(Box.Width(), 0);
  EXPECT_EQ(Box.Height(), 15);
}

TEST_F(RichTextControlTest, SizeBelowZeroRaises380AndMovesNothing) {
  Box.Move(15, 30, 150, 300);
  EXPECT_EQ(NumberOf([&] { Box.Width(-1); }), ErrorNumber::BadPropertyValue);
  EXPECT_EQ(NumberOf([&] { Box.Height(-1); }), ErrorNumber::BadPropertyValue);
  EXPECT_EQ(NumberOf([&] { Box.Move(0, 0, 10, -1); }), ErrorNumber::BadPropertyValue);
  EXPECT_EQ(NumberOf([&] { Box.Move(0, 0, -1, 10); }), ErrorNumber::BadPropertyValue);
  EXPECT_EQ(Box.Left(), 15);
  EXPECT_EQ(Box.Width(), 150);
  EXPECT_EQ(Box.Height(), 300);
}

TEST_F(RichTextControlTest, PictureBoxRemembersItsLook) {
  auto& picture = Find<PictureBox>(Loaded, u"picture");
  EXPECT_EQ(picture.Design().Image, u"Logo");
  EXPECT_GT(picture.Width(), 0);
  picture.BackColor(SystemWindowText);
  picture.MousePointer(SizeVerticalPointer);
  EXPECT_EQ(picture.TimesInFront(), 0);
  picture.BringToFront();
  EXPECT_EQ(picture.BackColor(), SystemWindowText);
  EXPECT_EQ(picture.MousePointer(), SizeVerticalPointer);
  EXPECT_EQ(picture.TimesInFront(), 1);
  EXPECT_EQ(NumberOf([&] { picture.Caption(u"none"); }), ErrorNumber::PropertyNotFound);
}

TEST_F(RichTextControlTest, DragStaysWithThePictureBoxThatItBeganIn) {
  auto& picture = Find<PictureBox>(Loaded, u"picture");
  const auto note = [&](const std::string& name) {
    return [this, name](const MouseEvent& event) {
      Calls.push_back(name + " " + std::to_string(static_cast<int>(event.Y)));
    };
  };
  picture.MouseDown().Connect(note("down"));
  picture.MouseMove().Connect(note("move"));
  picture.MouseUp().Connect(note("up"));
  EXPECT_FALSE(picture.ReleaseMouse({}));
  EXPECT_TRUE(picture.MoveMouse({.Y = 1}));
  EXPECT_TRUE(picture.PressMouse({.Button = LeftButton, .Y = 2}));
  picture.Enabled(false);
  EXPECT_FALSE(picture.PressMouse({.Button = LeftButton}));
  EXPECT_TRUE(picture.MoveMouse({.Button = LeftButton, .Y = 3}));
  EXPECT_TRUE(picture.ReleaseMouse({.Button = LeftButton, .Y = 4}));
  EXPECT_FALSE(picture.MoveMouse({.Y = 5}));
  EXPECT_THAT(Calls, ElementsAre("move 1", "down 2", "move 3", "up 4"));
}

TEST_F(RichTextControlTest, SplitAreaResizesOnlyWithItsSize) {
  auto& area = Find<SplitArea>(Loaded, u"split");
  area.Resize().Connect(Note("resize"));
  area.Left(15);
  area.Top(15);
  EXPECT_THAT(Calls, ElementsAre());
  area.Width(150);
  area.Height(300);
  area.Height(300);
  area.Move(0, 0, 150, 300);
  EXPECT_THAT(Calls, ElementsAre("resize", "resize"));
  EXPECT_EQ(area.ScaleWidth(), 150);
  EXPECT_EQ(area.ScaleHeight(), 300);
  EXPECT_EQ(area.Splitter().Kind(), ControlKind::PictureBox);
  EXPECT_EQ(area.Splitter().Container(), &area);
}

TEST_F(RichTextControlTest, LooksForATextBothWaysAndRoundTheEnd) {
  Box.Text(u"one Two\r\ntwo three");
  Box.LookFor(u"two");
  EXPECT_EQ(Box.SelStart(), 4);
  EXPECT_EQ(Box.SelText(), u"Two");
  std::vector<std::int32_t> starts;
  for (const bool isNext : {true, true, false, false}) {
    isNext ? Box.FindNext() : Box.FindPrevious();
    starts.push_back(Box.SelStart());
  }
  EXPECT_THAT(starts, ElementsAre(9, 4, 9, 4));
  Box.LookFor(u"absent");
  EXPECT_EQ(Box.SelText(), u"Two");
}

TEST_F(RichTextControlTest, TheFieldTakesTheSelectionWithinALine) {
  EXPECT_EQ(Box.SoughtText(), std::nullopt);
  Box.FindNext();
  EXPECT_EQ(Box.SoughtText(), u"") << "the field is open, and nothing stands there";
  Box.Text(u"one\r\ntwo");
  Box.SelLength(3);
  Box.OpenFind();
  EXPECT_EQ(Box.SoughtText(), u"one");
  Box.SelLength(8);
  Box.OpenFind();
  EXPECT_EQ(Box.SoughtText(), u"one");
}

TEST_F(RichTextControlTest, UnderlinesWhatCannotBeSentIfItIsToldTo) {
  Box.Text(u"5 k\u03A9 \u00B5V\r\n\u0394T");
  EXPECT_EQ(Box.Underlined(), std::vector<String>{});
  Box.UnderlinesUnsendable(true);
  EXPECT_EQ(Box.Underlined(), (std::vector<String>{u"\u03A9", u"\u0394"}));
  EXPECT_EQ(Box.Text(), u"5 k\u03A9 \u00B5V\r\n\u0394T");
}

TEST_F(RichTextControlTest, ZoomsByTenths) {
  Box.ChangeZoom(ZoomChange::In);
  EXPECT_DOUBLE_EQ(Box.ZoomFactor(), 1.1);
  Box.ChangeZoom(ZoomChange::ActualSize);
  Box.ChangeZoom(ZoomChange::Out);
  EXPECT_DOUBLE_EQ(Box.ZoomFactor(), 1 / 1.1);
  for (int i = 0; i < 50; ++i) Box.ChangeZoom(ZoomChange::Out);
  EXPECT_DOUBLE_EQ(Box.ZoomFactor(), 0.3);
  for (int i = 0; i < 50; ++i) Box.ChangeZoom(ZoomChange::In);
  EXPECT_DOUBLE_EQ(Box.ZoomFactor(), 8);
}

} // namespace
} // namespace portico::memory
