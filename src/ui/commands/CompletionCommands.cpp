#include "ui/commands/CompletionCommands.h"

#include "completion/CommandList.h"
#include "completion/HelpHeaders.h"
#include "document/reports/FaultCollector.h"
#include "framework/shared/Application.h"
#include "framework/shared/ErrorAnswer.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/UserCommand.h"
#include "instructions/CInstGenerator.h"
#include "instructions/InstrumentAccess.h"
#include "platform/IDesktop.h"
#include "platform/IExtendedDriver.h"
#include "ui/base/CommandWindow.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/KeptTimeout.h"
#include "ui/base/UserCommands.h"
#include "ui/base/Wired.h"
#include "views/completion/CommandOffers.h"

#include <algorithm>

namespace portico {
namespace {

class Complete final : public UserCommand {
public:
  StringView ClassName() const override { return u"Complete"; }
  void Initialize(const Ref<CommandOffers>& offers) {
    m_offers = offers;
    SetInitialized();
  }

private:
  void Act() override {
    if (!CommandWindow::TakesText()) return;
    gMainFormParts->txtFuture()->SetFocus();
    m_offers->Known().Tree();
    String complaints;
    for (const String& complaint : m_offers->Known().TakeComplaints()) {
      complaints.append(complaints.empty() ? u"" : NewLine).append(complaint);
    }
    if (!complaints.empty()) Wired(gMessageBox).Show(complaints, ApplicationTitle);
    m_offers->Offer();
  }

  Ref<CommandOffers> m_offers;
};

/// Queries whose answers the program wants for itself; they stand in the history as any.
class Questions {
public:
  Questions() { m_reports->Subscribe(m_heard); }
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;
  ~Questions() { m_reports->Unsubscribe(m_heard); }

  /// None if there is no answer.
  std::optional<String> Ask(const String& query) {
    m_heard->Begin();
    InstrumentAccess::Send(CInstGenerator().ConstructXMLWriteCmdString(query));
    if (!m_heard->DriverFailures().empty()) return {};
    return Read();
  }
  std::optional<String> Read() {
    m_heard->Begin();
    InstrumentAccess::Send(CInstGenerator().ConstructXMLReadCmdString());
    return m_heard->LastAnswer();
  }

private:
  const Ref<IPublisher> m_reports = Create(Class::CmdSubscriptionAgent);
  const Ref<FaultCollector> m_heard = New<FaultCollector>();
};

/// While it lives a read ends soon where nothing comes.
class Impatience {
public:
  Impatience() { InstrumentAccess::SetTimeout(std::min(m_usual, Milliseconds)); }
  Impatience(const Impatience&) = delete;
  Impatience& operator=(const Impatience&) = delete;
  ~Impatience() { InstrumentAccess::SetTimeout(m_usual); }

private:
  static constexpr std::int32_t Milliseconds = 1000;
  const std::int32_t m_usual = KeptTimeout::Read().value_or(UsualTimeout);
};

class AskForCommands final : public PlainCommand {
public:
  StringView ClassName() const override { return u"AskForCommands"; }

private:
  static constexpr int MostErrors = 100;

  void Act() override {
    if (!CommandWindow::TakesQuestions()) return;
    Questions questions;
    if (!questions.Ask(u"*IDN?")) return Tell(u"The instrument does not say what it is.");
    const std::string told = ReadHeaders(questions);
    const std::optional<String> error = ReadErrors(questions);
    gMainFormParts->txtFuture()->SetFocus(); // what comes to the history takes it
    completion::HelpHeaders headers = completion::ReadHelpHeaders(told);
    if (!headers.Commands.empty()) {
      if (const auto fault = Create(Class::KnownCommands)->Tell(std::move(headers.Commands))) Tell(*fault);
    } else if (!told.empty()) {
      Tell(u"What the instrument answered is no list of commands.");
    } else {
      Tell(String(u"The instrument does not tell its commands").append(error ? u": " + *error : String(u".")));
    }
  }

  /// A block, which is one answer, or lines, which may be an answer each.
  static std::string ReadHeaders(Questions& questions) {
    std::optional<String> answer = questions.Ask(u"SYSTem:HELP:HEADers?");
    if (!answer) return {};
    std::string told = ToCodePage(*answer);
    const bool isWhole = told.starts_with('#') || told.find('\n') != std::string::npos;
    if (isWhole || told.empty()) return told;
    const Impatience impatience;
    for (std::size_t i = 1; i < completion::KnownCommand::Most && told.size() < completion::CommandList::MostBytes;
         ++i) {
      answer = questions.Read();
      if (!answer) break;
      told.append(1, '\n').append(ToCodePage(*answer));
    }
    return told;
  }

  /// The first of the errors, if there is one.
  static std::optional<String> ReadErrors(Questions& questions) {
    std::optional<String> first;
    for (int i = 0; i < MostErrors; ++i) {
      const auto error = questions.Ask(gConfiguration->ItemValue(Item::ErrorCheckingCommand));
      if (!error || !ReportsError(*error)) break;
      if (!first) first = String(Trim(*error));
    }
    return first;
  }

  static void Tell(const String& sentence) { Wired(gMessageBox).Show(sentence, ApplicationTitle); }
};

} // namespace

const CreatorRow CtorComplete = {
    .Name = u"CtorComplete",
    .Specification = Class::Complete,
    .ParamCount = Class::Complete.ParamCount,
    .Make = [](const Params& Parameters) -> Ref<IObject> {
      auto command = New<Complete>();
      command->Initialize(Parameters[0].ToObject<CommandOffers>());
      return command;
    },
};

const CreatorRow CtorAskForCommands = {
    .Name = u"CtorAskForCommands",
    .Specification = Class::AskForCommands,
    .ParamCount = Class::AskForCommands.ParamCount,
    .Make = MakePlainCommand<AskForCommands>,
};

} // namespace portico
