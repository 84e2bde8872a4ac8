#include "ui/commands/NoteCommands.h"

#include "framework/shared/UserCommand.h"
#include "ui/base/UserCommands.h"
#include "ui/viewer/LogNotes.h"

namespace portico {
namespace {

struct NoteKind {
  StringView Name;
  void (*Turn)(LogNotes& notes);
};

template <const NoteKind& kind>
class NoteCommand final : public UserCommand {
public:
  StringView ClassName() const override { return kind.Name; }
  void Initialize(const Ref<LogNotes>& notes) {
    m_notes = notes;
    SetInitialized();
  }

private:
  void Act() override { kind.Turn(*m_notes); }

  Ref<LogNotes> m_notes;
};

constexpr NoteKind SessionMarks{u"SessionMarks", [](LogNotes& notes) { notes.ShowsSessions(!notes.ShowsSessions()); }};
constexpr NoteKind TimeStamps{u"TimeStamps", [](LogNotes& notes) { notes.ShowsStamps(!notes.ShowsStamps()); }};

template <const NoteKind& kind>
constexpr CreatorRow Row(StringView name, const ClassKey<ICommand, Ref<LogNotes>>& key) {
  return {.Name = name,
          .Specification = key,
          .ParamCount = key.ParamCount,
          .Make = [](const Params& Parameters) -> Ref<IObject> {
            auto command = New<NoteCommand<kind>>();
            command->Initialize(Parameters[0].ToObject<LogNotes>());
            return command;
          }};
}

} // namespace

const CreatorRow CtorSessionMarks = Row<SessionMarks>(u"CtorSessionMarks", Class::SessionMarks);
const CreatorRow CtorTimeStamps = Row<TimeStamps>(u"CtorTimeStamps", Class::TimeStamps);

} // namespace portico
