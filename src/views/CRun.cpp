#include "views/CRun.h"

#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"
#include "framework/shared/modAppGlobals.h"

namespace portico {

CRun::~CRun() {
  if (m_runner) m_runner->ReadyForInstruction.Disconnect(m_ready);
}

void CRun::Initialize(const Ref<CInstructionRunner>& Runner, const String& Mode) try {
  HuntERR::Check(bool(Runner), ErrorNumber::InvalidArgument, u"Runner cannot be nothing.");
  if (m_runner) m_runner->ReadyForInstruction.Disconnect(m_ready);
  m_runner = Runner;
  m_ready = m_runner->ReadyForInstruction.Connect([this] { m_Runner_ReadyForInstruction(); });
  m_mode = Mode;
  SetInitialized();
} catch (...) {
  PassOn(u"CRun.Initialize(Runner, Mode)", {Runner, Mode});
}

void CRun::Act() {
  CheckConfiguration();
  gConfiguration->ItemValue(Item::RunningMode, m_mode);
  while (gConfiguration->ItemValue(Item::RunningMode) != ItemText::Off) {
    m_runner->Update(Ref<IObject>(shared_from_this()));
  }
}

const CreatorRow CtorRun = {
    .Name = u"CtorRun",
    .Specification = Class::Run,
    .ParamCount = Class::Run.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto run = New<CRun>();
          run->Initialize(Parameters[0].ToObject<CInstructionRunner>(), Parameters[1].ToString());
          return Ref<IObject>(run);
        },
};

} // namespace portico
