#pragma once

#include "document/reports/FaultCollector.h"
#include "views/faults/ErrorMarks.h"

namespace portico {

/// Marks the lines of the history that tell of a fault: an answer of the error query that reports an error, what the
/// driver says when it has failed, and an instruction that could not be written. To be subscribed behind what shows a
/// report. Needs `gConfiguration`.
class FaultMarks final : public ISubscriber {
public:
  explicit FaultMarks(const Ref<ErrorMarks>& marks);
  StringView ClassName() const override { return u"FaultMarks"; }
  void Update(const Ref<IObject>& Subject) override;

private:
  Ref<ErrorMarks> m_marks;
  FaultCollector m_faults;
  String m_instruction; // the line that was run last
};

} // namespace portico
