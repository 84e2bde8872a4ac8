#include "terminal/RunLog.h"

#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"

namespace portico::terminal {

RunLog::RunLog(const String& path, bool overwrite, std::function<void(StringView)> onFailure,
               std::function<void()> onWait)
    : m_store(CreateAs<CXMLDataStore>(Class::DataStore, path, overwrite)) {
  m_store->AboutToWait().Connect(std::move(onWait));
  const auto logger = CreateAs<CReportLogger>(Class::ReportLogger, m_store);
  logger->EnableLogging();
  m_store->SaveFailed.Connect(std::move(onFailure));
  Create(Class::CmdSubscriptionAgent)->Subscribe(logger);
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
  Create(Class::CmdSubscriptionAgent)->Unsubscribe(logger);
  logger->DisableLogging();
}

} // namespace portico::terminal
