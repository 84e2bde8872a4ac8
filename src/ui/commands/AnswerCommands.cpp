#include "ui/commands/AnswerCommands.h"

#include "answers/AnswerFile.h"
#include "framework/shared/Application.h"
#include "framework/shared/IMainWindow.h"
#include "framework/shared/UserCommand.h"
#include "instructions/InstrumentAccess.h"
#include "platform/IDesktop.h"
#include "platform/IProgress.h"
#include "ui/base/CommandWindow.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/ResourceStrings.h"
#include "ui/base/UserCommands.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/FileQuestions.h"
#include "ui/dialogs/QueryDialog.h"
#include "views/AnswerAtCaret.h"
#include "views/LineMarks.h"
#include "views/recall/CaretLine.h"

namespace portico {
namespace {

void Tell(const String& sentence) { Wired(gMessageBox).Show(sentence, ApplicationTitle); }

void TellFault(const answers::AnswerFile& file) {
  if (!file.Fault().empty()) Tell(file.Fault() + u".");
}

class SaveAnswer final : public UserCommand {
public:
  StringView ClassName() const override { return u"SaveAnswer"; }
  void Initialize(const Ref<AnswerAtCaret>& answers) {
    m_answers = answers;
    SetInitialized();
  }

private:
  void Act() override {
    const auto answer = m_answers->Find();
    if (!answer) return;
    const String name = AskWhereToSave(LoadResString(10702));
    if (name.empty()) return;
    answers::AnswerFile file(ToUtf8(name));
    if (file.Open() && file.Add(ToCodePage(*answer))) file.Finish();
    TellFault(file);
  }

  Ref<AnswerAtCaret> m_answers;
};

/// The query that the command window's caret is in; empty if that line holds none.
String QueryAtCaret() {
  if (!CommandWindow::TakesText()) return {};
  String line = CaretLineOf(*gMainFormParts->txtFuture()).Text;
  if (BeginsWith(line, AutomaticMarker)) line.erase(0, 1);
  const bool isNone = BeginsWith(line, ResponseMarker) || TrimLeft(line).starts_with(RemarkWord);
  return isNone || line.find(u'?') == String::npos ? String() : String(Trim(line));
}

String AskForQuery() {
  const auto dialog = MakeDialog<QueryDialog>(u"Failed to create the query dialog box.");
  dialog->Offer(QueryAtCaret());
  dialog->ShowModal(&gMainFormParts->Form());
  return dialog->Query();
}

/// While it lasts the window counts as running, so that nothing else reaches the instrument, and shows how far the work
/// has come, with a way to give it up.
class Fetching {
public:
  explicit Fetching(const String& query) {
    gMainForm->Executing(true);
    gMainForm->StopRequested(false);
    if (gProgress) gProgress->Begin(query);
  }
  Fetching(const Fetching&) = delete;
  Fetching& operator=(const Fetching&) = delete;
  ~Fetching() {
    if (gProgress) gProgress->End();
    gMainForm->Executing(false);
    gMainForm->StopRequested(false);
  }

  /// False once the user has given it up.
  bool Show(const answers::AnswerFile& file) {
    const bool goesOn =
        !gProgress || gProgress->Step(static_cast<double>(file.Done()), static_cast<double>(file.Total()));
    m_isGivenUp = !goesOn || gMainForm->StopRequested();
    return !m_isGivenUp;
  }
  bool IsGivenUp() const { return m_isGivenUp; }

private:
  bool m_isGivenUp = false;
};

class FetchAnswer final : public PlainCommand {
public:
  StringView ClassName() const override { return u"FetchAnswer"; }

private:
  void Act() override {
    if (!CommandWindow::TakesLines()) return;
    const String query = AskForQuery();
    if (query.empty()) return;
    const String name = AskWhereToSave(LoadResString(10703));
    if (name.empty()) return;
    answers::AnswerFile file(ToUtf8(name));
    String failure;
    if (file.Open()) failure = Fetch(query, file);
    TellFault(file);
    if (!failure.empty()) Tell(failure);
    gMainForm->UpdateUI({}, {});
  }

  /// What the instrument or the driver has failed with.
  static String Fetch(const String& query, answers::AnswerFile& file) {
    Fetching fetching(query);
    const auto response =
        InstrumentAccess::Fetch(query, [&](std::string_view piece) { return file.Add(piece) && fetching.Show(file); });
    if (response->ErrorCode() == 0) file.Finish();
    const bool isTold = response->ErrorCode() == 0 || !file.Fault().empty() || fetching.IsGivenUp();
    return isTold ? String() : response->ErrorMessage();
  }
};

} // namespace

const CreatorRow CtorSaveAnswer = {
    .Name = u"CtorSaveAnswer",
    .Specification = Class::SaveAnswer,
    .ParamCount = Class::SaveAnswer.ParamCount,
    .Make = [](const Params& Parameters) -> Ref<IObject> {
      auto command = New<SaveAnswer>();
      command->Initialize(Parameters[0].ToObject<AnswerAtCaret>());
      return command;
    },
};

const CreatorRow CtorFetchAnswer = {
    .Name = u"CtorFetchAnswer",
    .Specification = Class::FetchAnswer,
    .ParamCount = Class::FetchAnswer.ParamCount,
    .Make = MakePlainCommand<FetchAnswer>,
};

} // namespace portico
