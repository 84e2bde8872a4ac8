#pragma once

#include "framework/errors/Quit.h"
#include "instructions/IInstProcessor.h"
#include "memory/forms/DialogControls.h"
#include "memory/forms/RichTextControl.h"
#include "platform/IInstrumentList.h"
#include "support/fixtures/DocumentFixture.h"
#include "support/fixtures/WindowPlatform.h"
#include "ui/DesktopDoubles.h"
#include "ui/base/IMainFormParts.h"

#include <array>

namespace portico::test {

/// A main window of nothing but its two text boxes.
class MainFormDouble final : public IMainWindow, public IMainFormParts {
public:
  StringView ClassName() const override { return u"MainFormDouble"; }

  std::int32_t MousePointer() const override { return m_form->MousePointer(); }
  void MousePointer(std::int32_t shape) override { m_form->MousePointer(shape); }
  bool Executing() const override { return false; }
  void Executing(bool) override {}
  bool StopRequested() const override { return false; }
  void StopRequested(bool) override {}
  void UpdateUI(const String&, const String&) override {}

  IForm& Form() override { return *m_form; }
  Ref<IRichTextControl> txtFuture() const override { return Box(u"txtFuture"); }
  Ref<IRichTextControl> txtPast() const override { return Box(u"txtPast"); }
  Ref<ISubscriber> Logger() const override { return {}; }
  void Logger(const Ref<ISubscriber>&) override {}

private:
  Ref<IRichTextControl> Box(StringView name) const {
    return Ref<IRichTextControl>(std::shared_ptr<IRichTextControl>(m_form.Shared(), // the form owns its controls
                                                                   &FindControl<IRichTextControl>(*m_form, name)));
  }

  static constexpr std::array Controls = {ControlDesign{.Kind = ControlKind::RichTextBox, .Name = u"txtPast"},
                                          ControlDesign{.Kind = ControlKind::RichTextBox, .Name = u"txtFuture"}};
  static constexpr FormDesign Design = {.Name = u"frmMain", .Caption = u"Main", .Controls = Controls};
  Ref<IForm> m_form = gForms->Load(Design);
};

/// A processor that writes down the instructions that it is sent, and answers as it is told.
class InstructionRecorder final : public IInstProcessor, public Writer {
public:
  using Writer::Writer;
  StringView ClassName() const override { return u"InstructionRecorder"; }
  std::int32_t Send(const Ref<CInstContainer>& Instruction) override {
    std::string line = ToUtf8(Instruction->CmdType() + u"." + Instruction->FunctionName());
    for (StringView name : {u"ChannelName", u"Name", u"Value", u"Data"}) {
      if (!Has(*Instruction->Params(), name)) continue;
      line += " " + ToUtf8(name) + "='" + ToUtf8(Instruction->Params()->Item(name).ToString()) + "'";
    }
    Note(line);
    return Answer;
  }
  std::int32_t Answer = Done;

private:
  template <class List>
  static bool Has(const List& list, StringView name) {
    try {
      list.Item(name);
      return true;
    } catch (const Error&) {
      return false;
    }
  }
};

/// A window in memory with a main window, the server and the client of the configuration, and an instruction processor.
/// What is written to the client stands in `Calls`, whatever else is done to the system in `Deeds`.
class UiFixture : public DocumentFixture {
protected:
  UiFixture() {
    gCommonDialog = Dialog;
    gMainFormParts = MainForm = New<MainFormDouble>();
    gMainForm = MainForm;
    Offer(u"Configuration", Server);
    Offer(u"InstructionProcessor", Processor);
    Server->Items = {
        {u"OpenfromTree", u"False"}, {u"InstrumentName", u""}, {u"InstrumentOpened", u"False"}, {u"TERMCHAR", u"LF"}};
  }
  ~UiFixture() override {
    gMainForm = {};
    gMainFormParts = {};
    MainForm = {};
    gInstrumentList.reset();
    gRegistry.reset();
    gCommonDialog = {};
  }

  template <class Control>
  static Control& Find(IForm& form, StringView name) {
    return FindControl<Control>(form, name);
  }
  static void Press(memory::Form& form, StringView button) {
    EXPECT_TRUE(Find<memory::CommandButton>(form, button).Press()) << ToUtf8(button);
  }
  /// The reports that were filed, as first descriptions.
  List Filed() const {
    List texts;
    for (const auto& append : Environment.Appended) {
      EXPECT_EQ(append.Path, u"/opt/portico/SCPIComm.log");
      texts.push_back(ToUtf8(FirstDescription(append.Text)));
    }
    return texts;
  }
  /// The trail of the report that was filed last.
  std::vector<String> FiledTrail() const {
    return Environment.Appended.empty() ? std::vector<String>() : CallStack(Environment.Appended.back().Text);
  }

  WindowPlatform Platform;
  Journal Deeds;
  Ref<CommonDialogDouble> Dialog = New<CommonDialogDouble>(Deeds);
  Ref<ConfigurationDouble> Server = New<ConfigurationDouble>(Deeds);
  Ref<InstructionRecorder> Processor = New<InstructionRecorder>(Deeds);
  Ref<MainFormDouble> MainForm;
};

} // namespace portico::test
