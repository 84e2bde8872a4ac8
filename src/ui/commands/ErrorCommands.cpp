#include "ui/commands/ErrorCommands.h"

#include "framework/shared/UserCommand.h"
#include "ui/base/UserCommands.h"
#include "ui/dialogs/ErrorsDialog.h"
#include "views/faults/ErrorMarks.h"

namespace portico {
namespace {

struct ErrorWay {
  StringView Name;
  void (*Go)(const Ref<ErrorMarks>& errors, const Ref<IForm>& window);
};

template <const ErrorWay& way>
class ErrorCommand final : public UserCommand {
public:
  StringView ClassName() const override { return way.Name; }
  void Initialize(const Ref<ErrorMarks>& errors, const Ref<IForm>& window) {
    m_errors = errors;
    m_window = window;
    SetInitialized();
  }

private:
  void Act() override { way.Go(m_errors, m_window); }

  Ref<ErrorMarks> m_errors;
  Ref<IForm> m_window;
};

void List(const Ref<ErrorMarks>& errors, const Ref<IForm>& window) {
  const auto dialog = MakeDialog<ErrorsDialog>(u"Failed to create the list of errors.");
  dialog->Errors(errors);
  dialog->ShowModal(window.Get());
  if (const auto chosen = dialog->Chosen()) errors->GoTo(*chosen);
}

constexpr ErrorWay NextError{u"NextError",
                             [](const Ref<ErrorMarks>& errors, const Ref<IForm>&) { errors->GoToNext(); }};
constexpr ErrorWay PreviousError{u"PreviousError",
                                 [](const Ref<ErrorMarks>& errors, const Ref<IForm>&) { errors->GoToPrevious(); }};
constexpr ErrorWay ListErrors{u"ListErrors", List};

template <const ErrorWay& way>
constexpr CreatorRow Row(StringView name, const ClassKey<ICommand, Ref<ErrorMarks>, Ref<IForm>>& key) {
  return {.Name = name,
          .Specification = key,
          .ParamCount = key.ParamCount,
          .Make = [](const Params& Parameters) -> Ref<IObject> {
            auto command = New<ErrorCommand<way>>();
            command->Initialize(Parameters[0].ToObject<ErrorMarks>(), Parameters[1].ToObject<IForm>());
            return command;
          }};
}

} // namespace

const CreatorRow CtorNextError = Row<NextError>(u"CtorNextError", Class::NextError);
const CreatorRow CtorPreviousError = Row<PreviousError>(u"CtorPreviousError", Class::PreviousError);
const CreatorRow CtorListErrors = Row<ListErrors>(u"CtorListErrors", Class::ListErrors);

} // namespace portico
