#include "ui/commands/ReadingCommands.h"

#include "framework/shared/UserCommand.h"
#include "platform/IForm.h"
#include "platform/IReadingAids.h"
#include "ui/base/UserCommands.h"

namespace portico {
namespace {

struct ReadingAid {
  StringView Name;
  void (*Use)(IReadingAids& box);
};

template <const ReadingAid& aid>
class ReadingCommand final : public PlainCommand {
public:
  StringView ClassName() const override { return aid.Name; }

private:
  void Act() override {
    if (auto* box = dynamic_cast<IReadingAids*>(gForms->ActiveControl())) aid.Use(*box);
  }
};

constexpr ReadingAid Find{u"Find", [](IReadingAids& box) { box.OpenFind(); }};
constexpr ReadingAid FindNext{u"FindNext", [](IReadingAids& box) { box.FindNext(); }};
constexpr ReadingAid FindPrevious{u"FindPrevious", [](IReadingAids& box) { box.FindPrevious(); }};
constexpr ReadingAid ZoomIn{u"ZoomIn", [](IReadingAids& box) { box.ChangeZoom(ZoomChange::In); }};
constexpr ReadingAid ZoomOut{u"ZoomOut", [](IReadingAids& box) { box.ChangeZoom(ZoomChange::Out); }};
constexpr ReadingAid ActualSize{u"ActualSize", [](IReadingAids& box) { box.ChangeZoom(ZoomChange::ActualSize); }};

template <const ReadingAid& aid>
constexpr CreatorRow Row(StringView name, const ClassKey<ICommand>& key) {
  return {
      .Name = name, .Specification = key, .ParamCount = key.ParamCount, .Make = MakePlainCommand<ReadingCommand<aid>>};
}

} // namespace

const CreatorRow CtorFind = Row<Find>(u"CtorFind", Class::Find);
const CreatorRow CtorFindNext = Row<FindNext>(u"CtorFindNext", Class::FindNext);
const CreatorRow CtorFindPrevious = Row<FindPrevious>(u"CtorFindPrevious", Class::FindPrevious);
const CreatorRow CtorZoomIn = Row<ZoomIn>(u"CtorZoomIn", Class::ZoomIn);
const CreatorRow CtorZoomOut = Row<ZoomOut>(u"CtorZoomOut", Class::ZoomOut);
const CreatorRow CtorActualSize = Row<ActualSize>(u"CtorActualSize", Class::ActualSize);

} // namespace portico
