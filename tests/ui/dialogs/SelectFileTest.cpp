#include "ui/dialogs/frmSelectFile.h"

#include "support/Labels.h"
#include "support/fixtures/FrameworkTest.h"
#include "ui/DesktopDoubles.h"

namespace portico::test {
namespace {

class SelectFileTest : public FrameworkTest {
protected:
  SelectFileTest() { gCommonDialog = Dialog; }
  ~SelectFileTest() override { gCommonDialog = {}; }

  /// How the dialog is shown for a set of filters.
  const FileDialogSettings& ShownFor(std::int32_t filterSet) {
    frmSelectFile::Make()->SelectedFileName(1, u"", filterSet);
    return Dialog->Shown;
  }

  Journal Calls;
  Ref<CommonDialogDouble> Dialog = New<CommonDialogDouble>(Calls);
};

constexpr StringView AllFilters =
    u"Log (*.log)|*.log|Command (*.cmd)|*.cmd|Rich Text (*.rtf)|*.rtf|Text (*.txt)|*.txt|All (*.*)|*.*";

TEST_F(SelectFileTest, FilterSet0LeavesTheFilterListOfFormLoad) {
  for (const std::int32_t set : {0, 7, -1}) {
    EXPECT_EQ(ShownFor(set).Filter, AllFilters);
    EXPECT_EQ(ShownFor(set).DefaultExt, u".log");
  }
}

TEST_F(SelectFileTest, FormLoadSetsTheDialogUp) {
  const FileDialogSettings& shown = ShownFor(0);
  EXPECT_EQ(shown.FileName, u"");
  EXPECT_FALSE(shown.CancelError);
  EXPECT_EQ(shown.FilterIndex, 1);
  EXPECT_EQ(shown.Flags, 32772);
}

TEST_F(SelectFileTest, EachFilterSetHasItsFiltersAndExtension) {
  const auto expect = [&](std::int32_t set, StringView filter, StringView extension) {
    EXPECT_EQ(ShownFor(set).Filter, filter);
    EXPECT_EQ(ShownFor(set).DefaultExt, extension);
    EXPECT_EQ(ShownFor(set).FilterIndex, 1);
  };
  expect(1, u"Log (*.log)|*.log|Command (*.cmd)|*.cmd|Rich Text (*.rtf)|*.rtf|Text (*.txt)|*.txt", u".log");
  expect(2, u"Command (*.cmd)|*.cmd|Rich Text (*.rtf)|*.rtf|Text (*.txt)|*.txt|All (*.*)|*.*", u".cmd");
  expect(3, u"Log (*.log)|*.log|Command (*.cmd)|*.cmd|Text (*.txt)|*.txt|All (*.*)|*.*", u".log");
  expect(4, u"Log (*.log)|*.log|All (*.*)|*.*", u".log");
  expect(5, u"Log (*.log)|*.log", u".log");
  expect(6, u"Command (*.cmd)", u".cmd");
}

TEST_F(SelectFileTest, CancelReturnsTheEmptyStringAndNoErrorIsRaised) {
  EXPECT_EQ(frmSelectFile::Make()->SelectedFileName(1, u"Copy to file...", 1), u"");
  EXPECT_EQ(frmSelectFile::Make()->SelectedFileName(0, u"", 0), u"");
}

TEST_F(SelectFileTest, ReturnsWhatWasChosen) {
  Dialog->FileName = u"/tmp/a.log";
  EXPECT_EQ(frmSelectFile::Make()->SelectedFileName(1, u"Open a log file", 5), u"/tmp/a.log");
}

TEST_F(SelectFileTest, Mode1OpensAndEveryOtherSaves) {
  for (const std::int32_t mode : {1, 0, 2}) frmSelectFile::Make()->SelectedFileName(mode, u"T", 0);
  EXPECT_EQ(Calls, (Journal{"ShowOpen 'T'", "ShowSave 'T'", "ShowSave 'T'"}));
}

TEST_F(SelectFileTest, EmptyTitleKeepsTheDialogsOwn) {
  const auto form = frmSelectFile::Make();
  form->SelectedFileName(1, u"", 0);
  form->SelectedFileName(1, u"Select a log file", 0);
  form->SelectedFileName(1, u"", 0);
  EXPECT_EQ(Calls, (Journal{"ShowOpen ''", "ShowOpen 'Select a log file'", "ShowOpen 'Select a log file'"}));
}

TEST_F(SelectFileTest, IsLoadedOnce) {
  const auto form = frmSelectFile::Make();
  Dialog->FileName = u"/tmp/a.log";
  form->SelectedFileName(1, u"", 6);
  form->SelectedFileName(1, u"", 0);
  EXPECT_EQ(Dialog->Shown.Filter, u"Command (*.cmd)");
  EXPECT_EQ(Dialog->Shown.FileName, u"/tmp/a.log");
}

TEST_F(SelectFileTest, IsNotMadeWithoutADialog) {
  gCommonDialog = {};
  EXPECT_FALSE(frmSelectFile::Make());
}

} // namespace
} // namespace portico::test
