#pragma once

#include "document/log/CXMLDataStore.h"
#include "document/reports/ReportSubscribers.h"

#include <functional>

namespace portico::terminal {

/// The log of a run: a store with one session, and the logger that fills it.
class RunLog final {
public:
  /// Opens or makes the file and opens the session; raises what the store raises. `onFailure` is told of a save
  /// that fails; a later one carries what it could not write, unless another program had written there. `onWait` is
  /// told when another program keeps one waiting.
  RunLog(const String& path, bool overwrite, std::function<void(StringView)> onFailure, std::function<void()> onWait);
  ~RunLog();
  RunLog(const RunLog&) = delete;
  RunLog& operator=(const RunLog&) = delete;

  /// Closes the session; raises what the store raises.
  void Close();
  /// The log misses something that was to be in it: for good once it is closed.
  bool IsIncomplete() const { return m_store->IsAnythingUnwritten(); }

private:
  Ref<CXMLDataStore> m_store;
  Ref<CReportLogger> m_logger;
};

} // namespace portico::terminal
