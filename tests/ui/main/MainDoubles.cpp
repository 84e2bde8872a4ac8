#include "ui/main/MainDoubles.h"

namespace portico::test {

NotingCreator::NotingCreator(Ref<ICreator> inner, std::function<void(const Params&)> note,
                             std::function<void(const Ref<IObject>&)> made)
    : m_inner(std::move(inner)), m_note(std::move(note)), m_made(std::move(made)) {}

StringView NotingCreator::ClassName() const { return u"NotingCreator"; }

Value NotingCreator::Specification() const { return m_inner->Specification(); }

bool NotingCreator::IsMatch(const Value& Specification) const { return m_inner->IsMatch(Specification); }

Ref<IObject> NotingCreator::Create(const Params& Parameters) {
  if (m_note) m_note(Parameters);
  Ref<IObject> product = m_inner->Create(Parameters);
  if (m_made) m_made(product);
  return product;
}

String ClipboardDouble::GetText() const { return Text; }

void HelpViewerDouble::WinHelp(const String& HelpFile, std::int32_t Command, const String& Data) {
  Calls.push_back(ToUtf8(HelpFile) + " " + std::to_string(Command) + " '" + ToUtf8(Data) + "'");
  if (OnHelp) OnHelp();
}

FocusDouble::FocusDouble(std::shared_ptr<IForms> forms) : m_forms(std::move(forms)) {}

Ref<IForm> FocusDouble::Load(const FormDesign& design) { return m_forms->Load(design); }

std::vector<Ref<IForm>> FocusDouble::Forms() const { return m_forms->Forms(); }

IControl* FocusDouble::ActiveControl() const { return Active; }

} // namespace portico::test
