#include "memory/forms/DialogControls.h"
#include "ui/main/MainWindowFixture.h"

#include <gmock/gmock.h>

namespace portico::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// What the menu Data has beside the conversation, in the window.
class DeviceTest : public MainWindowFixture {
protected:
  DeviceTest() { HasSpies = false; }

  /// Clicks "Time-out..." and answers its dialog.
  void AskTimeout(const std::function<void(memory::Form&, memory::TextBox&)>& act) {
    Screen->OnShowModal(u"TimeoutDialog", [act](memory::Form& form) {
      act(form, FindControl<memory::TextBox>(form, u"txtTimeout"));
      if (form.IsShown()) form.PressKey(EscapeKey);
    });
    Click(u"mnuTimeout");
  }
  void SetTimeout(const String& milliseconds) {
    AskTimeout([&](memory::Form& form, memory::TextBox& field) {
      field.Text(milliseconds);
      form.PressKey(ReturnKey);
    });
  }
  std::vector<std::string> Told() {
    std::vector<std::string> prompts;
    for (const auto& call : Box->Calls()) prompts.push_back(ToUtf8(call.Prompt));
    return prompts;
  }
};

TEST_F(DeviceTest, ADeviceIsClearedAndGoesToLocalWhileItIsOpenAndNothingRuns) {
  Start();
  EXPECT_FALSE(Menu(u"mnuClearDevice").Enabled());
  EXPECT_FALSE(Menu(u"mnuGoToLocal").Enabled());
  EXPECT_TRUE(Menu(u"mnuTimeout").Enabled());
  SetOpened();
  Window->UpdateUI({}, {});
  EXPECT_TRUE(Menu(u"mnuClearDevice").Enabled());
  EXPECT_TRUE(Menu(u"mnuGoToLocal").Enabled());
  Window->Executing(true);
  Window->UpdateUI({}, {});
  EXPECT_FALSE(Menu(u"mnuClearDevice").Enabled());
  EXPECT_FALSE(Menu(u"mnuGoToLocal").Enabled());
  Window->Executing(false);
}

TEST_F(DeviceTest, EachIsOneCallOfTheDriverAndNoLineOfTheConversation) {
  Start(u"DMM");
  Wire.clear();
  const String before = Past().Text();
  Click(u"mnuClearDevice");
  Click(u"mnuGoToLocal");
  EXPECT_THAT(Wire, ElementsAre("clear", "local"));
  EXPECT_EQ(ToUtf8(Past().Text()), ToUtf8(before));
  ExpectNoBox();
}

TEST_F(DeviceTest, WhatFailsIsToldInABox) {
  Start(u"DMM");
  Driver->Statuses = {{"clear", -1151013}, {"local", -1151021}};
  Click(u"mnuClearDevice");
  Click(u"mnuGoToLocal");
  EXPECT_THAT(Told(), ElementsAre("failure -1151013", "failure -1151021"));
}

TEST_F(DeviceTest, ATimeoutIsInForceAtOnceAndKept) {
  Start(u"DMM");
  SetTimeout(u" 20000 ");
  EXPECT_THAT(Wire, Contains("timeout 20000"));
  EXPECT_EQ(Setting(u"Timeout", u"Data"), "20000");
  ExpectNoBox();
}

TEST_F(DeviceTest, AKeptTimeoutIsInForceBeforeAnInstrumentIsOpen) {
  Store->SaveSetting(u"Tolvane Portico", u"Data", u"Timeout", u"70");
  Start(u"DMM");
  ASSERT_GE(Wire.size(), 2U);
  EXPECT_EQ(Wire[0], "timeout 70");
  EXPECT_EQ(Wire[1], "init DMM");
  AskTimeout([](memory::Form&, memory::TextBox& field) { EXPECT_EQ(field.Text(), u"70"); });
}

TEST_F(DeviceTest, WithoutAKeptTimeoutTheDriverHasItsOwn) {
  Start(u"DMM");
  EXPECT_EQ(Wire.front(), "init DMM");
  AskTimeout([](memory::Form&, memory::TextBox& field) { EXPECT_EQ(field.Text(), u"5000"); });
}

TEST_F(DeviceTest, WhatIsKeptAndIsNoTimeoutCountsForNothing) {
  Store->SaveSetting(u"Tolvane Portico", u"Data", u"Timeout", u"3600001");
  Start(u"DMM");
  EXPECT_EQ(Wire.front(), "init DMM");
  AskTimeout([](memory::Form&, memory::TextBox& field) { EXPECT_EQ(field.Text(), u"5000"); });
}

TEST_F(DeviceTest, WhatIsNoTimeoutIsRefusedAndTheDialogStays) {
  Start();
  AskTimeout([this](memory::Form& form, memory::TextBox& field) {
    for (const char16_t* bad : {u"", u"x", u"0", u"-1", u"1.5", u"3600001", u"5 s", u"1e99"}) {
      field.Text(bad);
      form.PressKey(ReturnKey);
      EXPECT_TRUE(form.IsShown()) << ToUtf8(bad);
    }
    EXPECT_EQ(Box->Calls().size(), 8U);
    field.Text(u"3600000");
    form.PressKey(ReturnKey);
    EXPECT_FALSE(form.IsShown());
  });
  EXPECT_THAT(Told(), testing::Each("Use 1 to 3600000 milliseconds."));
  EXPECT_THAT(Wire, ElementsAre("timeout 3600000"));
}

TEST_F(DeviceTest, ACancelledDialogChangesNothing) {
  Start();
  AskTimeout([](memory::Form& form, memory::TextBox& field) {
    field.Text(u"70");
    form.PressKey(EscapeKey);
  });
  EXPECT_THAT(Wire, IsEmpty());
  EXPECT_EQ(Setting(u"Timeout", u"Data"), "(none)");
}

TEST_F(DeviceTest, ATimeoutThatTheDriverRefusesIsToldAndKept) {
  Start();
  Driver->Statuses = {{"SetTimeout", -1151021}};
  SetTimeout(u"70");
  EXPECT_THAT(Told(), ElementsAre("failure -1151021"));
  EXPECT_EQ(Setting(u"Timeout", u"Data"), "70");
}

} // namespace
} // namespace portico::test
