#pragma once

#include "framework/text/text.h"

namespace portico {

/// What stands in front of a line where a conversation is shown as plain text: "> " an instruction, "* " one that was
/// sent by itself, "< " a response, "! " any other kind of entity.
std::string_view ConversationMark(StringView dataType);

} // namespace portico
