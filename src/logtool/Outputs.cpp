#include "logtool/Outputs.h"

#include "logtool/BlocksOutput.h"
#include "logtool/CommandOutput.h"
#include "logtool/CsvOutput.h"
#include "logtool/ErrorsOutput.h"
#include "logtool/JsonOutput.h"
#include "logtool/LogCopy.h"
#include "logtool/ShowOutput.h"
#include "logtool/StatisticsOutput.h"
#include "logtool/TableOutput.h"

namespace portico::logtool {

std::unique_ptr<ILogOutput> MakeOutput(const ToolOptions& options, std::ostream& out) {
  switch (options.Wanted) {
  case Output::Csv:
    return std::make_unique<CsvOutput>(out);
  case Output::Json:
    return std::make_unique<JsonOutput>(out);
  case Output::Commands:
    return std::make_unique<CommandOutput>(out);
  case Output::Statistics:
    return std::make_unique<StatisticsOutput>(out);
  case Output::Errors:
    return std::make_unique<ErrorsOutput>(out);
  case Output::Table:
    return std::make_unique<TableOutput>(out, options.Query);
  case Output::Part:
  case Output::Merged:
    return std::make_unique<LogCopy>(out, options.Selection);
  case Output::Blocks:
    return std::make_unique<BlocksOutput>(out, options.Folder, options.Selection.Session);
  case Output::Show:
  case Output::Differences: // has no output of its own
    break;
  }
  return std::make_unique<ShowOutput>(out, options.Files.size() > 1);
}

} // namespace portico::logtool
