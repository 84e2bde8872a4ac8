#include "ui/MainFormDouble.h"

#include "framework/objects/IObjectFactory.h"
#include "framework/objects/modGlobals.h"

namespace portico::test {
namespace {

constexpr ControlDesign MainControls[] = {
    {.Kind = ControlKind::RichTextBox, .Name = u"txtPast"},
    {.Kind = ControlKind::RichTextBox, .Name = u"txtFuture"},
    {.Kind = ControlKind::CommandButton, .Name = u"cmdNone"},
};
constexpr FormDesign MainDesign = {.Name = u"frmMain", .Caption = u"Main", .Controls = MainControls};

} // namespace

MainFormDouble::MainFormDouble(Journal& journal) : WindowDouble(journal), m_form(gForms->Load(MainDesign)) {}

StringView MainFormDouble::ClassName() const { return u"MainFormDouble"; }

std::int32_t MainFormDouble::MousePointer() const { return m_form->MousePointer(); }
void MainFormDouble::MousePointer(std::int32_t shape) { m_form->MousePointer(shape); }

IForm& MainFormDouble::Form() { return *m_form; }

Ref<IRichTextControl> MainFormDouble::txtFuture() const { return Box(u"txtFuture"); }

Ref<IRichTextControl> MainFormDouble::txtPast() const { return Box(u"txtPast"); }

Ref<ISubscriber> MainFormDouble::Logger() const { return m_logger; }

void MainFormDouble::Logger(const Ref<ISubscriber>& newValue) {
  if (OnLogger) OnLogger();
  const auto agent = Create<IPublisher>(u"CmdSubscriptionAgent", modGlobals::VarArray());
  if (newValue) {
    agent->Subscribe(newValue);
  } else if (m_logger) {
    agent->Unsubscribe(m_logger);
  }
  m_logger = newValue;
}

Ref<IRichTextControl> MainFormDouble::Box(StringView name) const {
  return Ref<IRichTextControl>(std::shared_ptr<IRichTextControl>(m_form.Shared(), // the form owns its controls
                                                                 &FindControl<IRichTextControl>(*m_form, name)));
}

} // namespace portico::test
