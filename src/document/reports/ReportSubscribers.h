#pragma once

#include "document/entities/IDataStore.h"
#include "document/entities/IInstructionQueue.h"
#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "framework/objects/IPublisher.h"

#include <memory>

namespace portico {

// Each converts a report for itself, so that a report becomes two entities with two stamps. Members raise
// `NotInitialized` before `Initialize`.

/// Puts what a report shows into a view's queue. Subscribes itself, for its whole life.
class CReportDisplayer final : public ISubscriber, public std::enable_shared_from_this<CReportDisplayer> {
public:
  StringView ClassName() const override { return u"CReportDisplayer"; }

  /// A null target raises `InvalidArgument`, a missing factory `ObjectRequired`.
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

  /// A null store raises `InvalidArgument`, a missing factory `ObjectRequired`.
  void Initialize(const Ref<IDataStore>& DataStore);
  /// This and the next two raise `ObjectRequired` if there is no configuration server.
  bool IsLogging() const;
  /// Closes the store's session.
  void DisableLogging();
  /// Opens a session.
  void EnableLogging();
  /// A report that shows nothing reaches the store as a null entity, which the store refuses. So it does with the one
  /// that ends an instruction, since an entity without a type cannot be logged.
  void Update(const Ref<IObject>& Subject) override;
  Refusal Offer(const Ref<IObject>& Subject) override;

private:
  Refusal LogDataEntity(const Ref<IDataEntity>& DataEntity);

  bool m_initialized = false;
  Ref<IDataStore> m_store;
};

namespace Class {

/// The target.
inline constexpr ClassKey<ISubscriber, Ref<IInstructionQueue>> ReportDisplayer{u"ReportDisplayer"};
/// The store.
inline constexpr ClassKey<ISubscriber, Ref<IDataStore>> ReportLogger{u"ReportLogger"};

} // namespace Class

extern const CreatorRow CtorReportDisplayer;
extern const CreatorRow CtorReportLogger;

} // namespace portico
