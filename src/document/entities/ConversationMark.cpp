#include "document/entities/ConversationMark.h"

#include "document/entities/IDataEntity.h"

namespace portico {

std::string_view ConversationMark(StringView dataType) {
  if (dataType == DataTypeName::Instruction) return "> ";
  if (dataType == DataTypeName::AutomaticInstruction) return "* ";
  if (dataType == DataTypeName::Response) return "< ";
  return "! ";
}

} // namespace portico
