#include "ui/main/MainWindowFixture.h"

namespace portico::test {

void MainWindowFixture::Start(const String& commandLine) {
  const auto makeDocument = [this] {
    if (!HasParser) throw std::runtime_error("no parser");
  };
  const auto makeWindow = [this](const std::function<void()>& makeFactory) {
    const std::function<void()> make = [this, makeFactory] {
      makeFactory();
      if (OnFactory) OnFactory();
      if (HasSpies) OfferSpies();
    };
    Window = HasHelp ? New<frmMain>(make) : New<frmMain>(make, StringView());
    return modAppGlobals::MainForm{Window, Window, Window};
  };
  modAppGlobals::Main({makeDocument, makeWindow, commandLine});
}

void MainWindowFixture::OfferSpies() {
  for (const char16_t* name : {u"OpenInstrument", u"CloseInstrument", u"ToggleLogFile", u"ViewLogFile",
                               u"ToggleLogging", u"Print", u"PrintSetup", u"Cut", u"Copy", u"Paste", u"Copyto",
                               u"Pastefrom", u"ReadInstrumentData", u"WaitforOPC", u"QueryStatus", u"ConfigOptions"}) {
    Offer(name, [this, name](const Params& parameters) {
      Commands.push_back(ToUtf8(name));
      LastParameters = parameters;
      PointerInside = Window->MousePointer();
      if (OnCommand) OnCommand(ToUtf8(name));
    });
  }
}

void MainWindowFixture::Offer(const String& specification, const std::function<void(const Params&)>& execute) {
  const Ref<ICreator> creator = New<SpyCreator>(specification, execute);
  try {
    gObjectFactory->Remove(creator);
  } catch (const Error&) { // it is a new one
    HuntERR::Reset();
  }
  gObjectFactory->Add(creator);
}

void MainWindowFixture::ClickButton(StringView key, std::int32_t value) {
  auto& bar = FindControl<memory::ToolBar>(Form(), ToolBarName);
  auto& button = bar.Buttons(key);
  button.Value(value);
  const Event<IToolButton&> click = bar.ButtonClick();
  click(button);
}

void MainWindowFixture::ExpectOneBox(StringView sentence, StringView label, StringView text) {
  ASSERT_EQ(Box->Calls().size(), m_boxesSeen + 1) << ToUtf8(sentence);
  const memory::MessageBox::Call& call = Box->Calls().back();
  m_boxesSeen = Box->Calls().size();
  const String head = String(sentence).append(NewLine);
  EXPECT_EQ(ToUtf8(call.Prompt.substr(0, head.size())), ToUtf8(head));
  EXPECT_EQ(ToUtf8(call.Title), "Tolvane Portico");
  EXPECT_EQ(call.Buttons, MessageBoxButtons::OKOnly);
  EXPECT_EQ(call.Icon, MessageBoxIcon::None);
  const String report = call.Prompt.substr(std::min(head.size(), call.Prompt.size()));
  EXPECT_EQ(ToUtf8(FirstDescription(report)), ToUtf8(text));
  const auto calls = CallStack(report);
  ASSERT_FALSE(calls.empty()) << ToUtf8(report);
  EXPECT_TRUE(Bears(calls.back(), label)) << ToUtf8(calls.back()) << "\ninstead of\n" << ToUtf8(label);
  LastTrail = calls;
}

} // namespace portico::test
