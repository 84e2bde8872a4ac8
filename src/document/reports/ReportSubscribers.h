#pragma once

#include "document/entities/IDataStore.h"
#include "document/entities/IInstructionQueue.h"
#include "framework/objects/Creator.h"
#include "framework/objects/IPublisher.h"

#include <memory>

namespace portico {

// Each converts a report for itself, so that a report becomes two entities with two stamps. Members raise 0x80041460
// before `Initialize`.

/// Puts what a report shows into a view's queue. Subscribes itself, for its whole life.
class CReportDisplayer final : public ISubscriber, public std::enable_shared_from_this<CReportDisplayer> {
public:
  StringView ClassName() const override { return u"CReportDisplayer"; }

  /// No target raises 5, no factory 424.
  void Initialize(const Ref<IInstructionQueue>& Target);
  void Update(const Ref<IObject>& Subject) override;

private:
  void DisplayDataEntity(const Ref<IDataEntity>& DataEntity);

  bool m_initialized = false;
  Ref<IInstructionQueue> m_target;
};

/// Appends what a report shows to a log while the configuration item "Logging" is "On". Does not subscribe itself.
class CReportLogger final : public ISubscriber {
public:
  StringView ClassName() const override { return u"CReportLogger"; }

  /// No store raises 5, no factory 424.
  void Initialize(const Ref<IDataStore>& DataStore);
  /// No configuration server raises 424, here and in the next two.
  bool IsLogging() const;
  /// Closes the store's session.
  void DisableLogging();
  /// Opens a session.
  void EnableLogging();
  /// A report that shows nothing reaches the store as nothing, which refuses it.
  void Update(const Ref<IObject>& Subject) override;

private:
  void LogDataEntity(const Ref<IDataEntity>& DataEntity);

  bool m_initialized = false;
  Ref<IDataStore> m_store;
};

/// "ReportDisplayer": the target.
extern const CreatorRow CtorReportDisplayer;
/// "ReportLogger": the store.
extern const CreatorRow CtorReportLogger;

} // namespace portico
