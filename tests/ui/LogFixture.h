#pragma once

#include "document/log/CXMLDataStore.h"
#include "document/reports/ReportSubscribers.h"
#include "framework/shared/modAppGlobals.h"
#include "memory/forms/RichTextControl.h"
#include "platform/IScratchArea.h"
#include "support/fixtures/DocumentFixture.h"
#include "support/fixtures/WindowPlatform.h"
#include "ui/DesktopDoubles.h"
#include "ui/base/IMainFormParts.h"
#include "ui/commands/EditCommands.h"
#include "ui/commands/LogCommands.h"
#include "ui/commands/MergeCommands.h"
#include "ui/commands/PrintCommands.h"
#include "views/CSCPIView.h"

#include <fstream>
#include <iterator>

namespace portico::test {

inline constexpr ControlDesign MainControls[] = {
    {.Kind = ControlKind::RichTextBox, .Name = u"txtPast"},
    {.Kind = ControlKind::RichTextBox, .Name = u"txtFuture"},
    {.Kind = ControlKind::CommandButton, .Name = u"cmdNone"},
};
inline constexpr FormDesign MainDesign = {.Name = u"frmMain", .Caption = u"Main", .Controls = MainControls};

/// A main window with two boxes, that subscribes a logger as the real one does.
class MainFormDouble final : public IMainWindow, public IScratchArea, public IMainFormParts {
public:
  explicit MainFormDouble(const Ref<IForm>& form) : m_form(form) {}
  StringView ClassName() const override { return u"MainFormDouble"; }

  std::int32_t MousePointer() const override { return m_form->MousePointer(); }
  void MousePointer(std::int32_t shape) override { m_form->MousePointer(shape); }
  bool Executing() const override { return false; }
  void Executing(bool) override {}
  bool StopRequested() const override { return false; }
  void StopRequested(bool) override {}
  void UpdateUI(const String&, const String&) override {}

  Ref<IRichTextBox> rtfScratchArea() const override { return m_scratch; }
  String FontName() const override { return u"Window Font"; }
  double FontSize() const override { return 8.25; }

  IForm& Form() override { return *m_form; }
  Ref<IRichTextControl> txtFuture() const override { return Box(u"txtFuture"); }
  Ref<IRichTextControl> txtPast() const override { return Box(u"txtPast"); }
  Ref<ISubscriber> Logger() const override { return m_logger; }
  void Logger(const Ref<ISubscriber>& newValue) override {
    if (OnLogger) OnLogger();
    const auto agent = Create<IPublisher>(u"CmdSubscriptionAgent", modGlobals::VarArray());
    if (newValue) {
      agent->Subscribe(newValue);
    } else if (m_logger) {
      agent->Unsubscribe(m_logger);
    }
    m_logger = newValue;
  }

  /// Before the logger is set; may raise.
  std::function<void()> OnLogger;

private:
  Ref<IRichTextControl> Box(StringView name) const {
    return Ref<IRichTextControl>(
        std::shared_ptr<IRichTextControl>(m_form.Shared(), &FindControl<IRichTextControl>(*m_form, name)));
  }

  Ref<IForm> m_form;
  Ref<memory::RichTextBox> m_scratch = New<memory::RichTextBox>();
  Ref<ISubscriber> m_logger;
};

/// The window's platform, the classes of document, view and commands, a main window, and a directory for logs. The
/// journal gets what is written to the configuration, and what dialogs are shown.
class LogFixture : public DocumentFixture {
protected:
  LogFixture() {
    gXMLParserAvailable = true;
    gMainForm = Main;
    gMainFormParts = Main;
    gScratchArea = Main;
    gCommonDialog = Dialog;
    for (const CreatorRow* row :
         {&CtorXMLDataStore, &CtorReportLogger, &CtorNewLogFile, &CtorToggleLogging, &CtorViewLogFile, &CtorSCPIView,
          &CtorMerge, &CtorMergeFrom, &CtorCopy, &CtorPrint, &CtorPrintSetup}) {
      gObjectFactory->Add(MakeCreator(*row));
    }
    Configuration->Items = {{u"LogFileName", u""}, {u"Logging", u"On"}};
    Main->Form().Show();
    std::filesystem::remove_all(Directory); // what a test that was killed has left
    std::filesystem::create_directories(Directory);
  }
  ~LogFixture() override {
    gMainForm = {};
    gMainFormParts = {};
    gScratchArea = {};
    Main = {};
    gCommonDialog = {};
    std::filesystem::remove_all(Directory);
  }

  std::string PathOf(const std::string& name) const { return (Directory / name).string(); }
  String NameOf(const std::string& name) const { return FromUtf8(PathOf(name)).Text; }
  std::string Read(const std::string& name) const {
    std::ifstream file(PathOf(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(PathOf(name), std::ios::binary) << bytes;
  }
  static std::size_t CountOf(const std::string& bytes, const std::string& what) {
    std::size_t count = 0;
    for (auto at = bytes.find(what); at != std::string::npos; at = bytes.find(what, at + 1)) ++count;
    return count;
  }
  /// A log of one closed session.
  void MakeLog(const std::string& name, std::initializer_list<StringView> texts,
               StringView type = u"Instruction") const {
    const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(NameOf(name), true));
    store->OpenSession();
    for (StringView text : texts) store->AppendDataEntityToStore(Entity(text, type));
    store->CloseSession();
  }
  static void Run(const String& specification) { modAppGlobals::ExecutionEventHandler(specification, {}); }
  /// Replaces a creator by one that hands this out.
  static void Replace(const String& specification, const Ref<IObject>& product) {
    gObjectFactory->Substitue(New<CreatorOfOne>(specification, product));
  }

  WindowPlatform Platform;
  Ref<MainFormDouble> Main = New<MainFormDouble>(gForms->Load(MainDesign));
  Ref<CommonDialogDouble> Dialog = New<CommonDialogDouble>(Calls);
  std::filesystem::path Directory =
      std::filesystem::path(::testing::TempDir()) /
      (std::string("portico-") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

} // namespace portico::test
