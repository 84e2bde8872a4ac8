#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "platform/IEventLoop.h"
#include "platform/ILineFile.h"

#include <deque>

namespace portico {

/// The instructions that were sent, as they left the command window, in the order of sending. They are kept from one
/// start to the next, unless the user has switched that off. What is new is written about once a second, and at the
/// end: that is what a killed program loses, and a run does not wait for it. Needs `gSettingsStore` and `gEventLoop`;
/// without `gSentLinesFile` the lines live as long as the program.
class SentLines final : public IObject {
public:
  /// Longer ones are data rather than something to be brought back, and are left out.
  static constexpr std::size_t LongestLine = 16'384;
  static constexpr std::int32_t SaveMilliseconds = 1000;

  explicit SentLines(LineLimits limits = {});
  SentLines(const SentLines&) = delete;
  SentLines& operator=(const SentLines&) = delete;
  /// Writes what has not been written.
  ~SentLines() override;
  StringView ClassName() const override { return u"SentLines"; }

  /// The oldest first.
  const std::deque<String>& Lines() const { return m_lines; }
  /// A line that equals the one before it is not added again.
  void Add(StringView line);
  /// Also those that were kept.
  void Forget();

  /// Whether lines that are added are kept. What has been kept stays; so do lines of this session, as long as it lasts.
  bool IsKept() const { return m_isKept; }
  void IsKept(bool newValue);

  /// What went wrong with the file, in one sentence, for whoever tells the user; a second time only if it is another.
  std::optional<String> TakeFault();

private:
  bool Enlist(StringView line);
  void Drop();
  void Save();
  void Note(std::optional<String> fault);

  const LineLimits m_limits;
  const std::shared_ptr<ILineFile> m_file;
  std::unique_ptr<ITimer> m_timer;
  std::deque<String> m_lines;
  std::size_t m_bytes = 0;   // about, of all lines
  std::size_t m_unsaved = 0; // of the newest, how many are not in the file yet
  bool m_isKept;
  std::optional<String> m_fault; // not told yet
  std::optional<String> m_lastFault;
};

namespace Class {

inline constexpr ClassKey<SentLines> SentLines{u"SentLines"};

} // namespace Class

/// The one list, which is there from the start.
extern const CreatorRow CtorSentLines;

} // namespace portico
