#include "ui/commands/RecallCommands.h"

#include "framework/shared/Application.h"
#include "framework/shared/IMainWindow.h"
#include "framework/shared/UserCommand.h"
#include "platform/IDesktop.h"
#include "ui/base/CommandWindow.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/UserCommands.h"
#include "ui/dialogs/SearchDialog.h"
#include "views/recall/LineRecall.h"
#include "views/recall/SentLines.h"
#include "views/recall/TakenLines.h"

namespace portico {
namespace {

void TellFault(SentLines& sent) {
  if (const auto fault = sent.TakeFault()) gMessageBox->Show(*fault, ApplicationTitle);
}

struct Recall {
  StringView Name;
  void (LineRecall::*Bring)(IRichTextControl& box, const std::deque<String>& lines);
};

template <const Recall& which>
class RecallCommand final : public PlainCommand {
public:
  StringView ClassName() const override { return which.Name; }

private:
  void Act() override {
    if (!CommandWindow::TakesText()) return;
    const auto sent = Create(Class::SentLines);
    const Ref<IRichTextControl> box = gMainFormParts->txtFuture();
    box->SetFocus();
    ((*Create(Class::LineRecall)).*which.Bring)(*box, sent->Lines());
    TellFault(*sent);
  }
};

class SearchSentLines final : public PlainCommand {
public:
  StringView ClassName() const override { return u"SearchSentLines"; }

private:
  void Act() override {
    if (!CommandWindow::TakesText()) return;
    const auto sent = Create(Class::SentLines);
    const auto dialog = MakeDialog<SearchDialog>(u"Failed to create the dialog box that searches.");
    dialog->Lines(sent->Lines());
    dialog->ShowModal(&gMainFormParts->Form());
    if (const auto chosen = dialog->Chosen(); chosen && CommandWindow::TakesText()) {
      const Ref<IRichTextControl> box = gMainFormParts->txtFuture();
      box->SetFocus();
      Create(Class::LineRecall)->Bring(*box, sent->Lines(), *chosen);
    }
    TellFault(*sent);
  }
};

class PutBackLastRun final : public PlainCommand {
public:
  StringView ClassName() const override { return u"PutBackLastRun"; }

private:
  void Act() override {
    const auto taken = Create(Class::TakenLines);
    if (!CommandWindow::TakesLines() || taken->IsEmpty()) return;
    const Ref<IRichTextControl> box = gMainFormParts->txtFuture();
    taken->PutBack(*box);
    box->SetFocus();
    gMainForm->UpdateUI({}, {});
  }
};

class KeepSentLines final : public PlainCommand {
public:
  StringView ClassName() const override { return u"KeepSentLines"; }

private:
  void Act() override {
    const auto sent = Create(Class::SentLines);
    sent->IsKept(!sent->IsKept());
    gMainForm->UpdateUI({}, {});
    TellFault(*sent);
  }
};

class ForgetSentLines final : public PlainCommand {
public:
  StringView ClassName() const override { return u"ForgetSentLines"; }

private:
  void Act() override {
    const auto sent = Create(Class::SentLines);
    sent->Forget();
    TellFault(*sent);
  }
};

constexpr Recall Earlier{u"EarlierLine", &LineRecall::Earlier};
constexpr Recall Later{u"LaterLine", &LineRecall::Later};

template <class Command>
constexpr CreatorRow Row(StringView name, const ClassKey<ICommand>& key) {
  return {.Name = name, .Specification = key, .ParamCount = key.ParamCount, .Make = MakePlainCommand<Command>};
}

} // namespace

const CreatorRow CtorEarlierLine = Row<RecallCommand<Earlier>>(u"CtorEarlierLine", Class::EarlierLine);
const CreatorRow CtorLaterLine = Row<RecallCommand<Later>>(u"CtorLaterLine", Class::LaterLine);
const CreatorRow CtorSearchSentLines = Row<SearchSentLines>(u"CtorSearchSentLines", Class::SearchSentLines);
const CreatorRow CtorPutBackLastRun = Row<PutBackLastRun>(u"CtorPutBackLastRun", Class::PutBackLastRun);
const CreatorRow CtorKeepSentLines = Row<KeepSentLines>(u"CtorKeepSentLines", Class::KeepSentLines);
const CreatorRow CtorForgetSentLines = Row<ForgetSentLines>(u"CtorForgetSentLines", Class::ForgetSentLines);

} // namespace portico
