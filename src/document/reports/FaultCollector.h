#pragma once

#include "framework/objects/Event.h"
#include "framework/objects/IPublisher.h"

#include <optional>
#include <vector>

namespace portico {

/// Collects from the reports of one instruction how its commands on the channel ended and what was answered. What that
/// means is for others to judge.
class FaultCollector final : public ISubscriber {
public:
  StringView ClassName() const override { return u"FaultCollector"; }
  void Update(const Ref<IObject>& Subject) override;

  /// An instruction has come to its end.
  Event<> Completed;

  /// Forgets the instruction before.
  void Begin();

  /// How one command on the channel ended.
  struct Outcome {
    /// As its report names it.
    String Command;
    /// The driver's text; none if it succeeded.
    std::optional<String> Failure;
  };
  /// In order. A read that fails behind a failed write is left out: it had nothing to read, and says so.
  const std::vector<Outcome>& Outcomes() const { return m_outcomes; }
  /// The driver's texts, in order.
  std::vector<String> DriverFailures() const;
  /// What followed the last write: with error checking on, the answer of the error query; none without a read.
  const std::optional<String>& LastAnswer() const { return m_lastAnswer; }
  /// What was written last, also by an instruction before: a query and its read may be one each.
  const String& LastWritten() const { return m_written; }
  /// Whether that is the error query, whoever has sent it. Needs `gConfiguration`.
  bool HasAskedForErrors() const;
  /// The error that the instrument has reported: the answer of the error query, where one is sent and read, if it
  /// reports an error. Needs `gConfiguration`.
  std::optional<String> ReportedError() const;

private:
  std::vector<Outcome> m_outcomes;
  std::optional<String> m_lastAnswer;
  String m_written;
  bool m_writeFailed = false; // what the last write did
};

} // namespace portico
