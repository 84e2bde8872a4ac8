#pragma once

#include "document/entities/CDataFIFO.h"
#include "document/log/LogWatch.h"
#include "ui/viewer/LogNotes.h"

#include <optional>

namespace portico {

/// Shows how far work on a log has come, for as long as it lives, and keeps the windows from taking input.
class LogProgress final {
public:
  explicit LogProgress(const String& FileName);
  ~LogProgress();
  LogProgress(const LogProgress&) = delete;
  LogProgress& operator=(const LogProgress&) = delete;

  /// Of the work as a whole, from 0 to 1. Once the user has given it up, this raises the expected error `WorkGivenUp`,
  /// of which no report is made.
  static void Tell(double share);
};

/// Shows how far the opening of a log has come, up to its first lines on the screen: the file is read twice, first to
/// see whether it is a log, then its first entities are shown one by one. May raise `WorkGivenUp` at each step.
class LogLoading final : public ILogWatcher {
public:
  /// The notes are told of what is read; they must outlive this.
  LogLoading(const String& FileName, LogNotes& notes);
  ~LogLoading() override;
  LogLoading(const LogLoading&) = delete;
  LogLoading& operator=(const LogLoading&) = delete;

  /// All has been read: every entity that the container gets from now on has been shown.
  void Follow(const Ref<CDataFIFO>& container);

  /// What the user is to know of a log whose end is missing; empty for any other.
  const String& Warning() const { return m_warning; }

  void BytesRead(std::uint64_t done, std::uint64_t total) override;
  void SessionRead(const LogElement& session) override;
  void EntityRead(const LogElement& entity) override;
  void EndIsMissing(const LogReading& reading) override;

private:
  void EntityShown();

  LogProgress m_progress;
  LogNotes& m_notes;
  String m_fileName;
  String m_warning;
  std::optional<LogWatch> m_watch; // until all is read
  Ref<CDataFIFO> m_container;
  CDataFIFO::EntityEvent::Connection m_added = 0;
  int m_pass = 0;
  std::uint64_t m_read = 0;
  std::uint64_t m_shown = 0;
};

} // namespace portico
