#include "ui/commands/PlotCommands.h"

#include "framework/shared/UserCommand.h"
#include "ui/base/UserCommands.h"
#include "ui/plot/PlotWindow.h"

namespace portico {
namespace {

class ShowPlot final : public UserCommand {
public:
  StringView ClassName() const override { return u"ShowPlot"; }
  void Initialize(const Ref<PlotSource>& source, const Ref<IForm>& window) {
    m_source = source;
    m_window = window;
    SetInitialized();
  }

private:
  void Act() override { New<PlotWindow>(m_source)->Show(*m_window); }

  Ref<PlotSource> m_source;
  Ref<IForm> m_window;
};

} // namespace

const CreatorRow CtorShowPlot = {
    .Name = u"CtorShowPlot",
    .Specification = Class::ShowPlot,
    .ParamCount = Class::ShowPlot.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto command = New<ShowPlot>();
          command->Initialize(Parameters[0].ToObject<PlotSource>(), Parameters[1].ToObject<IForm>());
          return Ref<IObject>(command);
        },
};

} // namespace portico
