#include "ui/dialogs/OptionsFixture.h"

namespace portico::test {

OptionsFixture::OptionsFixture() {
  gObjectFactory->Add(MakeCreator(CtorConfigOptions));
  for (const auto& [item, value] : Stored) Configuration->Items[item] = value;
  Configuration->Items[u"ProtocolName"] = u"SCPI";
}

void OptionsFixture::Show(const std::function<void(memory::Form&)>& act) {
  Platform.Screen->OnShowModal(u"frmTVSCPIOptions", [&](memory::Form& form) {
    act(form);
    if (form.IsShown()) Press(form, u"cmdCancel");
  });
  Create<ICommand>(u"ConfigOptions")->Execute();
}

void OptionsFixture::With(StringView item, const String& value) { Configuration->Items[String(item)] = value; }

bool OptionsFixture::IsChecked(memory::Form& form, StringView box) {
  return Find<CheckBox>(form, box).Value() == Checked;
}

void OptionsFixture::Click(memory::Form& form, StringView box) {
  EXPECT_TRUE(Find<CheckBox>(form, box).Press()) << ToUtf8(box);
}

std::string OptionsFixture::TextOf(memory::Form& form, StringView box) {
  return ToUtf8(Find<TextBox>(form, box).Text());
}

double OptionsFixture::LeftOf(memory::Form& form, StringView page) { return Find<IPage>(form, page).Left(); }

OptionsFixture::List OptionsFixture::Written(const std::map<String, String>& others) {
  List lines;
  const auto add = [&](const String& item, const String& value) {
    const auto other = others.find(item);
    lines.push_back(ToUtf8(item) + "=" + ToUtf8(other == others.end() ? value : other->second));
  };
  for (const auto& [item, value] : Stored) add(item, value);
  add(u"ProtocolName", u"SCPI");
  return lines;
}

} // namespace portico::test
