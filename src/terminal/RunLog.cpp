#include "terminal/RunLog.h"

#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/objects/modGlobals.h"

namespace portico::terminal {
namespace {

Ref<IPublisher> Agent() { return Create<IPublisher>(u"CmdSubscriptionAgent", modGlobals::VarArray()); }

} // namespace

RunLog::RunLog(const String& path, bool overwrite, std::function<void(StringView)> onFailure)
    : m_store(Create<CXMLDataStore>(u"DataStore", modGlobals::VarArray(path, overwrite))) {
  const auto logger = Create<CReportLogger>(u"ReportLogger", modGlobals::VarArray(m_store));
  logger->EnableLogging();
  m_store->SaveFailed.Connect(std::move(onFailure));
  Agent()->Subscribe(logger);
  m_logger = logger;
}

RunLog::~RunLog() {
  try {
    Close();
  } catch (...) {
    SwallowInDestructor(u"RunLog.Close()");
  }
}

void RunLog::Close() {
  if (!m_logger) return;
  const auto logger = std::exchange(m_logger, {});
  m_store->SaveFailed = {}; // from here on what is raised tells it
  Agent()->Unsubscribe(logger);
  logger->DisableLogging();
}

} // namespace portico::terminal
