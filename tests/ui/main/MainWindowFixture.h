#pragma once

#include "application/Startup.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/Quit.h"
#include "framework/shared/ICommand.h"
#include "memory/EventLoop.h"
#include "memory/SettingsStore.h"
#include "memory/desktop/MessageBox.h"
#include "memory/desktop/Screen.h"
#include "memory/forms/Areas.h"
#include "memory/forms/RichTextControl.h"
#include "support/Labels.h"
#include "support/doubles/DriverDouble.h"
#include "support/doubles/ManualClock.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"
#include "ui/DesktopDoubles.h"
#include "ui/main/MainDoubles.h"
#include "ui/main/frmMain.h"

#include <stdexcept>

namespace portico::test {

/// The main window on the platform in memory, with the real factory. The commands of the user are substituted by ones
/// that only write down that they ran, unless a test takes the real ones.
class MainWindowFixture : public FrameworkTest {
protected:
  MainWindowFixture();
  ~MainWindowFixture() override;

  /// Runs the program's entry. `Quit` ends it as it ends the program: with what the bottom of the stack does.
  void Start(const String& commandLine = {});
  /// Runs something that ends the program; true if it did.
  static bool Quits(const std::function<void()>& body);
  /// What the bottom of the stack does when `Quit` has come down to it.
  void End();
  void LetGo();

  /// From now on the factory makes a command that does this.
  void Offer(const String& specification, const std::function<void(const Params&)>& execute);
  void OfferFailure(const String& specification);
  void OfferSpies();
  [[noreturn]] static void Fail();

  IForm& Form();
  memory::Form& MemoryForm();
  memory::MenuItem& Menu(StringView name);
  memory::ToolButton& Button(StringView key);
  memory::RichTextControl& Future();
  memory::RichTextControl& Past();
  IStatusPanel& Panel(std::int32_t index);
  /// The click of an item, enabled or not.
  void Click(StringView name);
  /// The click of a button, enabled or not; a button of check style has this value then.
  void ClickButton(StringView key, std::int32_t value = 0);

  /// The configuration's server, whose writes tell the window nothing.
  static void SetItem(StringView name, StringView value);
  static std::string Item(StringView name);
  /// An instrument is open, as far as the window can tell.
  void SetOpened(bool opened = true);
  std::string Setting(const String& key, const String& section = u"frmMain");
  void Save(const String& key, const String& value);

  /// One box has come up: this sentence, a line end and the report, whose trail ends with the label.
  void ExpectOneBox(StringView sentence, StringView label, StringView text = u"It broke.");
  void ExpectNoBox();

  bool HasParser = true;
  bool HasHelp = true;
  bool HasSpies = true;
  std::function<void()> OnFactory;
  std::vector<std::string> Commands;
  Params LastParameters;
  std::int32_t PointerInside = 0;
  std::function<void(const std::string&)> OnCommand;
  std::vector<String> LastTrail;

  ManualClock Clock;
  std::shared_ptr<memory::EventLoop> Loop = std::make_shared<memory::EventLoop>(Clock);
  std::shared_ptr<memory::SettingsStore> Store = std::make_shared<memory::SettingsStore>();
  std::shared_ptr<memory::Screen> Screen = std::make_shared<memory::Screen>([this] { return Loop->IsQuitting(); });
  std::shared_ptr<memory::MessageBox> Box = std::make_shared<memory::MessageBox>([this] { return Loop->IsQuitting(); });
  std::shared_ptr<ClipboardDouble> Clipboard = std::make_shared<ClipboardDouble>();
  std::shared_ptr<HelpViewerDouble> HelpViewer = std::make_shared<HelpViewerDouble>();
  Journal Dialogs;
  Ref<CommonDialogDouble> CommonDialog = New<CommonDialogDouble>(Dialogs);
  test::Journal Wire;
  std::shared_ptr<test::DriverDouble> Driver = std::make_shared<test::DriverDouble>(Wire);
  Ref<frmMain> Window;

private:
  std::size_t m_boxesSeen = 0;
};

} // namespace portico::test
