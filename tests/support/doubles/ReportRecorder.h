#pragma once

#include "framework/objects/IPublisher.h"
#include "support/Journal.h"

#include <cstdint>
#include <functional>
#include <ostream>
#include <vector>

namespace portico::test {

/// Keeps every report, and notes it in the journal.
class ReportRecorder final : public ISubscriber {
public:
  struct Report {
    String Command;
    String Data;
    String ErrorMessage;
    std::int32_t ErrorCode;
    String SCPIInstruction;
    bool operator==(const Report&) const = default;
  };

  explicit ReportRecorder(Journal& journal);
  StringView ClassName() const override;
  void Update(const Ref<IObject>& Subject) override;

  std::vector<Report> Reports;
  std::function<void()> OnReport;

private:
  Journal& m_journal;
};

void PrintTo(const ReportRecorder::Report& report, std::ostream* out);

} // namespace portico::test
