#include "support/Allocation.h"

#include "support/Labels.h"
#include "support/fixtures/FrameworkTest.h"
#include "ui/DesktopDoubles.h"
#include "ui/dialogs/frmSelectFile.h"
#include "ui/dialogs/frmTVSCPIOptions.h"

namespace portico::test {
namespace {

// Tails that nothing but a lack of memory leads into.

class UiOutOfMemoryTest : public FrameworkTest {};

TEST_F(UiOutOfMemoryTest, FileDialogIsSetUpUnderItsLabel) {
  Journal calls;
  frmSelectFile form(New<CommonDialogDouble>(calls));
  const auto error = OutOfMemory(1, [&] { form.SelectedFileName(1, {}, 0); });
  ExpectError(error, 7, u"Out of memory.");
  ExpectTrail(error, {u"frmSelectFile.Form_Load"});
  EXPECT_EQ(calls, Journal{});
}

TEST_F(UiOutOfMemoryTest, OptionsSpecificationIsGivenUnderItsLabel) {
  const auto creator = MakeCreator(CtorConfigOptions);
  const auto error = OutOfMemory(1, [&] { creator->Specification(); });
  ExpectError(error, 7, u"Out of memory.");
  ExpectTrail(error, {u"CtorConfigOptions.ICreator_Specification"});
}

} // namespace
} // namespace portico::test
