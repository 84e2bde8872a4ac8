#include "views/CSCPICmdPolicy.h"

#include "framework/text/EndOfText.h"
#include "views/LineMarks.h"

namespace portico {

LineKind CSCPICmdPolicy::CmdType(const String& Line) const {
  if (Line.empty()) return LineKind::CmdBlank;
  if (BeginsWith(Line, EndOfText)) return LineKind::CmdEnd;
  if (Line.find(ResponseMarker) != String::npos) return LineKind::CmdResponse;
  if (Line.find(RemarkWord) != String::npos) return LineKind::CmdRemark;
  return LineKind::CmdInstruction;
}

} // namespace portico
