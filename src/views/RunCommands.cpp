#include "views/RunCommands.h"

#include "framework/shared/Guards.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/InstrumentAccess.h"

namespace portico {

void CStep::Initialize(const Ref<CInstContainer>& Instruction) {
  m_instruction = Instruction;
  SetInitialized();
}

void CStep::Act() { InstrumentAccess::Send(m_instruction); }

void CStop::Act() {
  CheckConfiguration();
  gConfiguration->ItemValue(Item::RunningMode, ItemText::Off);
}

const CreatorRow CtorStep = {
    .Name = u"CtorStep",
    .Specification = Class::Step,
    .ParamCount = Class::Step.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto step = New<CStep>();
          step->Initialize(Parameters[0].ToObject<CInstContainer>());
          return Ref<IObject>(step);
        },
};

const CreatorRow CtorStop = {
    .Name = u"CtorStop",
    .Specification = Class::Stop,
    .ParamCount = Class::Stop.ParamCount,
    .Make = MakePlainCommand<CStop>,
};

} // namespace portico
