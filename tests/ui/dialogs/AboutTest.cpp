#include "ui/dialogs/frmAbout.h"

#include "framework/shared/Application.h"
#include "ui/UiFixture.h"

namespace portico::test {
namespace {

constexpr StringView DriverKey = u"SOFTWARE\\Tolvane Instruments Inc.\\TolvaneIOLayer\\InstalledDrivers\\TVSCPI";

class AboutTest : public UiFixture {
protected:
  AboutTest() {
    gRegistry = Registry;
    Registry->KeyName = DriverKey;
  }

  struct Box {
    String Caption, Title, Version, Disclaimer;
  };
  /// What the box shows, which the user then closes by OK.
  Box Show() {
    Box box;
    Platform.Screen->OnShowModal(u"frmAbout", [&](memory::Form& form) {
      const auto caption = [&](StringView name) { return Find<IControl>(form, name).Caption(); };
      box = {form.Caption(), caption(u"lblTitle"), caption(u"lblVersion"), caption(u"lblDisclaimer")};
      Press(form, u"cmdOK");
    });
    ShowAbout(&MainForm->Form());
    return box;
  }
  void Install(std::int32_t type, const std::string& bytes) { Registry->Values[u"Version"] = {type, bytes}; }
  /// What a value of that kind reads as.
  std::string Read(std::int32_t type, const std::string& bytes) {
    Install(type, bytes);
    String value = u"before";
    EXPECT_TRUE(frmAbout::GetKeyValue(HKEY_LOCAL_MACHINE, String(DriverKey), u"Version", value));
    return ToUtf8(value);
  }

  std::shared_ptr<RegistryDouble> Registry = std::make_shared<RegistryDouble>(Deeds);
};

TEST_F(AboutTest, ShowsTheVersionOfTheDriver) {
  Install(1, std::string("2.1.7\0", 6));
  const Box box = Show();
  EXPECT_EQ(box.Caption, u"About Tolvane Portico");
  EXPECT_EQ(box.Title, u"Tolvane Portico");
  EXPECT_EQ(box.Version, u"Version 2.1.7");
  EXPECT_EQ(box.Disclaimer, u"Provided as is, without warranty of any kind. See the file LICENSE.");
}

TEST_F(AboutTest, WithNoDriverInstalledShowsTheProgramsOwnVersion) {
  const String own = u"Version " + ApplicationVersion();
  EXPECT_EQ(Show().Version, own); // no such value
  Registry->KeyName = u"another";
  EXPECT_EQ(Show().Version, own); // no such key
  gRegistry.reset();
  EXPECT_EQ(Show().Version, own); // no registry
}

TEST_F(AboutTest, IsMadeUpOfThese) {
  Platform.Screen->OnShowModal(u"frmAbout", [](memory::Form& form) {
    const auto expect = [&](StringView name, ControlKind kind) {
      EXPECT_EQ(Find<IControl>(form, name).Kind(), kind) << ToUtf8(name);
    };
    expect(u"picLogo", ControlKind::PictureBox);
    expect(u"picIcon", ControlKind::PictureBox);
    expect(u"Line1(0)", ControlKind::Line);
    expect(u"Line1(1)", ControlKind::Line);
    expect(u"lblTitle", ControlKind::Label);
    expect(u"lblVersion", ControlKind::Label);
    expect(u"lblDisclaimer", ControlKind::Label);
    expect(u"cmdOK", ControlKind::CommandButton);
    EXPECT_EQ(Find<IControl>(form, u"cmdOK").Caption(), u"OK");
    form.PressKey(EscapeKey);
  });
  ShowAbout(nullptr);
}

TEST_F(AboutTest, IsUnloadedByOKAndByTheCloseBox) {
  Show();
  EXPECT_FALSE(Platform.Screen->Find(u"frmAbout"));
  Platform.Screen->OnShowModal(u"frmAbout", [](memory::Form& form) { form.PressCloseBox(); });
  ShowAbout(nullptr);
  EXPECT_FALSE(Platform.Screen->Find(u"frmAbout"));
}

TEST_F(AboutTest, AsksTheRegistryByThese) {
  Install(1, "2");
  Show();
  EXPECT_EQ(Deeds,
            (Journal{"open 80000002 " + ToUtf8(DriverKey) + " 2003F", "query 77 Version room 1024", "close 77"}));
}

TEST_F(AboutTest, ClosesTheKeyThoughItFails) {
  String value = u"before";
  EXPECT_FALSE(frmAbout::GetKeyValue(HKEY_LOCAL_MACHINE, u"another", u"Version", value));
  EXPECT_EQ(value, u"");
  EXPECT_EQ(Deeds.back(), "close 0");
  value = u"before";
  EXPECT_FALSE(frmAbout::GetKeyValue(HKEY_LOCAL_MACHINE, String(DriverKey), u"Version", value));
  EXPECT_EQ(value, u"");
  EXPECT_EQ(Deeds.back(), "close 77");
}

TEST_F(AboutTest, TextIsReadAsItIs) {
  EXPECT_EQ(Read(1, "1.0 \xE9"), "1.0 \xC3\xA9");
  EXPECT_EQ(Read(1, ""), "");
}

TEST_F(AboutTest, OneTerminatorIsCut) {
  EXPECT_EQ(Read(1, std::string("1.0\0", 4)), "1.0");
  EXPECT_EQ(Read(1, std::string("1.0\0\0", 5)), std::string("1.0\0", 4));
}

TEST_F(AboutTest, NumberIsReadInDecimalLowestByteFirst) {
  EXPECT_EQ(Read(4, std::string("\x05\x00\x00\x00", 4)), "5");
  EXPECT_EQ(Read(4, std::string("\x0A\x01\x00\x00", 4)), "266");
  EXPECT_EQ(Read(4, "\xFF\xFF\xFF\xFF"), "4294967295");
}

TEST_F(AboutTest, OtherKindsGiveNothing) { EXPECT_EQ(Read(3, "abc"), ""); }

TEST_F(AboutTest, ValueLongerThanTheRoomIsCut) {
  class Boasting final : public IRegistry {
  public:
    std::int32_t RegOpenKeyExA(std::int32_t, const String&, std::int32_t, std::int32_t&) override { return 0; }
    std::int32_t RegQueryValueExA(std::int32_t, const String&, std::int32_t& Type, std::string& Value,
                                  std::int32_t& Size) override {
      Type = RegistryText;
      Value.assign(1024, 'x');
      Size = 5000;
      return 0;
    }
    std::int32_t RegCloseKey(std::int32_t) override { return 0; }
  };
  gRegistry = std::make_shared<Boasting>();
  String value;
  EXPECT_TRUE(frmAbout::GetKeyValue(1, u"", u"", value));
  EXPECT_EQ(value.size(), 1024U);
}

TEST_F(AboutTest, FailureWhileLoadingIsFiledAndTheBoxShows) {
  Registry->OnCall = [](const std::string&) { HuntERR::Check(false, 5, u"no registry"); };
  EXPECT_EQ(Show().Title, u"");
  EXPECT_EQ(Filed(), List{"no registry"});
  const auto trail = FiledTrail();
  ASSERT_EQ(trail.size(), 2U);
  EXPECT_TRUE(Bears(trail[0], u"frmAbout.GetKeyValue(KeyRoot,KeyName,SubKeyRef,KeyVal)"));
  EXPECT_EQ(trail[1], u"frmAbout.Form_Load()");
}

TEST_F(AboutTest, FailureOfTheButtonIsFiled) {
  Platform.Screen->OnShowModal(u"frmAbout", [](memory::Form& form) {
    form.Events().Unload.Connect([] { HuntERR::Check(false, 5, u"unload"); });
    Press(form, u"cmdOK");
  });
  ShowAbout(nullptr);
  EXPECT_EQ(FiledTrail(), std::vector<String>{u"frmAbout.cmdOk_Click()"});
}

} // namespace
} // namespace portico::test
