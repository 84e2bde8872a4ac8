#pragma once

#include "logtool/ILogOutput.h"
#include "logtool/Spool.h"
#include "numbers/Quantities.h"

#include <ostream>
#include <string_view>
#include <vector>

namespace portico::logtool {

/// The answers to one query as a table by RFC 4180: a row for each with its stamp, and a column for each number. A unit
/// has a column of its own behind its number, if any answer has one there. Gaps are `NaN`, overloads `Inf` and `-Inf`;
/// other numbers stand as the instrument wrote them. How many columns there are is known at the end; until then the
/// rows are spooled.
class TableOutput final : public ILogOutput {
public:
  /// Case and blanks around the query make no difference.
  TableOutput(std::ostream& out, StringView query);

  void OpenSession(const Session& session) override;
  /// An answer that is no list of numbers has a row of its stamp alone, and is told.
  std::string Add(const LogEntry& entry) override;
  void End() override;

private:
  void Keep(const std::string& stamp, const std::vector<numbers::Quantity>& quantities);
  void PrintRow(std::string_view row);

  std::ostream& m_out;
  String m_query;
  bool m_isAsked = false; // what was sent last is the query
  Spool m_rows;
  std::vector<bool> m_units; // of each column of numbers, whether any answer has one
};

} // namespace portico::logtool
