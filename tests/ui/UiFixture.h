#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/Quit.h"
#include "instructions/IInstProcessor.h"
#include "memory/forms/DialogControls.h"
#include "memory/forms/RichTextControl.h"
#include "platform/IInstrumentList.h"
#include "support/ErrorReports.h"
#include "support/fixtures/DocumentFixture.h"
#include "support/fixtures/WindowPlatform.h"
#include "ui/DesktopDoubles.h"
#include "ui/MainFormDouble.h"

#include <map>

namespace portico::test {

/// A processor that writes down the instructions that it is sent, and answers as it is told.
class InstructionRecorder final : public IInstProcessor, public Writer {
public:
  using Writer::Writer;
  StringView ClassName() const override;
  std::int32_t Send(const Ref<CInstContainer>& Instruction) override;
  std::int32_t Answer = Done;
};

/// A window in memory with a main window, the server and the client of the configuration, and an instruction processor.
/// What is written to the client stands in `Calls`, whatever else is done to the system in `Deeds`.
class UiFixture : public DocumentFixture {
protected:
  UiFixture();
  ~UiFixture() override;

  template <class Control>
  static Control& Find(IForm& form, StringView name) {
    return FindControl<Control>(form, name);
  }
  static void Press(memory::Form& form, StringView button);
  /// The reports that were filed, as first descriptions.
  List Filed() const;
  /// The trail of the report that was filed last.
  std::vector<String> FiledTrail() const;

  WindowPlatform Platform;
  Journal Deeds;
  Ref<CommonDialogDouble> Dialog = New<CommonDialogDouble>(Deeds);
  Ref<ConfigurationDouble> Server = New<ConfigurationDouble>(Deeds);
  Ref<InstructionRecorder> Processor = New<InstructionRecorder>(Deeds);
  Journal WindowCalls;
  Ref<MainFormDouble> MainForm;
};

/// What a menu command raises that was not initialized.
template <class Command>
void ExpectGuard(StringView label) {
  const auto error = Raised([] { Command().Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {label});
  HuntERR::Reset();
}

} // namespace portico::test
