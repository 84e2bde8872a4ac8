#pragma once

#include "document/log/LogElement.h"
#include "framework/objects/Event.h"
#include "platform/ILineNotes.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace portico {

/// What a log tells beside its conversation: where each session begins, and when each entity was stamped. Whether they
/// are shown stays in the settings store. Memory goes with the sessions, and with the seconds in which something was
/// stamped. Needs `gSettingsStore`.
class LogNotes final : public ILineNotes {
public:
  /// Shows what was shown last.
  LogNotes();
  StringView ClassName() const override { return u"LogNotes"; }

  bool ShowsSessions() const { return m_showsSessions; }
  void ShowsSessions(bool newValue);
  bool ShowsStamps() const { return m_showsStamps; }
  void ShowsStamps(bool newValue);
  /// Fires when something else is to be shown.
  Event<> Changed;

  // What stands in the log, in its order.
  void SessionRead(const LogElement& session);
  /// A stamp of another form than this program's stands for none.
  void EntityRead(const LogElement& entity);
  /// The next of the entities that were read stands from the line `first` to in front of `end`.
  void EntityShown(std::int32_t first, std::int32_t end);

  /// A session without entities has no mark.
  std::vector<String> Widest() const override;
  LineNote NoteOf(std::int32_t line) const override;

private:
  using Second = std::uint64_t; ///< yyyymmddhhmmss; 0 for none
  /// `At` counts entities until the one that it is of is shown, and lines from then on. The rows that count lines stand
  /// in front.
  struct SessionRow {
    std::uint32_t At;
    Second Opened;
    Second Closed;
  };
  /// Holds from there to the next row.
  struct StampRow {
    std::uint32_t At;
    Second Stamp;
  };

  static Second SecondOf(const LogElement& element, std::string_view attribute);
  static String TextOf(Second second);
  String ToldOf(const SessionRow& session) const;

  bool m_showsSessions;
  bool m_showsStamps;
  std::vector<SessionRow> m_sessions;
  std::vector<StampRow> m_stamps;
  std::size_t m_sessionsShown = 0;
  std::size_t m_stampsShown = 0;
  std::uint32_t m_entitiesRead = 0;
  std::uint32_t m_entitiesShown = 0;
  std::int32_t m_end = 0; // behind the last line of what is shown
};

} // namespace portico
