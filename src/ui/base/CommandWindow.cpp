#include "ui/base/CommandWindow.h"

#include "framework/shared/IConfiguration.h"
#include "framework/shared/IMainWindow.h"
#include "ui/base/IMainFormParts.h"

namespace portico::CommandWindow {

bool TakesText() {
  if (gMainForm->Executing()) return false;
  if (gConfiguration->IsTrue(Item::InstrumentOpened)) return true;
  const Ref<IRichTextControl> box = gMainFormParts->txtFuture();
  const bool mayBePlaceholder = box->TextLength() == static_cast<std::int32_t>(ClosedPlaceholder.size());
  return !mayBePlaceholder || box->Text() != ClosedPlaceholder;
}

bool TakesLines() { return !gMainForm->Executing() && gConfiguration->IsTrue(Item::InstrumentOpened); }

bool TakesQuestions() { return TakesLines() && gConfiguration->ItemValue(Item::ProtocolName) == ItemText::SCPI; }

} // namespace portico::CommandWindow
