#include "document/reports/ReportSubscribers.h"

#include "document/reports/ReportEntities.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/Guards.h"
#include "framework/shared/IConfiguration.h"

namespace portico {
void CReportDisplayer::Initialize(const Ref<IInstructionQueue>& Target) try {
  HuntERR::Check(bool(Target), ErrorNumber::InvalidArgument, u"Target cannot be nothing.");
  CheckFactory();
  const auto publisher = Create(Class::CmdSubscriptionAgent);
  publisher->Subscribe(Ref<ISubscriber>(shared_from_this()));
  m_target = Target;
  m_initialized = true;
} catch (...) {
  PassOn(u"CReportDisplayer.Initialize()");
}

void CReportDisplayer::DisplayDataEntity(const Ref<IDataEntity>& DataEntity) {
  m_target->Instructions()->Enqueue(DataEntity);
}

void CReportDisplayer::Update(const Ref<IObject>& Subject) try {
  CheckInitialized(m_initialized);
  DisplayDataEntity(modAppGlobals::Report2DataEntity(Cast<IReport>(Subject)));
} catch (...) {
  PassOn(u"CReportDisplayer.ISubscriber_Update(Subject)", {Subject});
}

void CReportLogger::Initialize(const Ref<IDataStore>& DataStore) try {
  HuntERR::Check(bool(DataStore), ErrorNumber::InvalidArgument, u"Data store cannot be nothing.");
  CheckFactory();
  m_store = DataStore;
  m_initialized = true;
} catch (...) {
  PassOn(u"CReportLogger.Initialize()");
}

bool CReportLogger::IsLogging() const try {
  CheckInitialized(m_initialized);
  CheckConfiguration();
  return gConfiguration->IsOn(Item::Logging);
} catch (...) {
  PassOn(u"CReportLogger.IsLogging()");
}

void CReportLogger::DisableLogging() try {
  CheckInitialized(m_initialized);
  CheckConfiguration();
  gConfiguration->Set(Item::Logging, false);
  m_store->CloseSession();
} catch (...) {
  PassOn(u"CReportLogger.DisableLogging()");
}

void CReportLogger::EnableLogging() try {
  CheckInitialized(m_initialized);
  CheckConfiguration();
  gConfiguration->Set(Item::Logging, true);
  m_store->OpenSession();
} catch (...) {
  PassOn(u"CReportLogger.EnableLogging()");
}

Refusal CReportLogger::LogDataEntity(const Ref<IDataEntity>& DataEntity) { return m_store->Offer(DataEntity); }

void CReportLogger::Update(const Ref<IObject>& Subject) {
  if (const Refusal refusal = Offer(Subject)) refusal.Raise();
}

Refusal CReportLogger::Offer(const Ref<IObject>& Subject) {
  return Refusable(
      {{}, u"CReportLogger.ISubscriber_Update(Subject)"},
      [&]() -> Refusal {
        CheckInitialized(m_initialized);
        if (!IsLogging()) return {};
        return LogDataEntity(modAppGlobals::Report2DataEntity(Cast<IReport>(Subject)));
      },
      Subject);
}

const CreatorRow CtorReportDisplayer = {
    .Name = u"CtorReportDisplayer",
    .Specification = Class::ReportDisplayer,
    .ParamCount = Class::ReportDisplayer.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto displayer = New<CReportDisplayer>();
          displayer->Initialize(Parameters[0].ToObject<IInstructionQueue>());
          return Ref<IObject>(displayer);
        },
};

const CreatorRow CtorReportLogger = {
    .Name = u"CtorReportLogger",
    .Specification = Class::ReportLogger,
    .ParamCount = Class::ReportLogger.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto logger = New<CReportLogger>();
          logger->Initialize(Parameters[0].ToObject<IDataStore>());
          return Ref<IObject>(logger);
        },
};

} // namespace portico
