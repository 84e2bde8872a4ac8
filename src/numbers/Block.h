#pragma once

#include "numbers/Fault.h"
#include "scpi/Block.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace portico::numbers {

/// Whether a text begins as a block does, blanks in front passed over: with `#` and a digit.
bool LooksLikeBlock(StringView answer);

/// An answer as it came, from what stands of it in a conversation: without the line end behind it, unless that is the
/// end of a definite block's bytes.
StringView AnswerShownAs(StringView shown);

/// The bytes of the block that an answer is, as the instrument sent them: a definite one (`#<n><length><bytes>`), with
/// nothing but white space behind it, or an indefinite one (`#0<bytes>`), which is all that follows. `answer` is
/// without the line end that the history adds, and its characters are those that the code page has for the bytes.
/// Nothing is allocated for bytes that a length promises and that are not there.
std::variant<std::string, Fault> ReadBlock(StringView answer);

/// The same where bytes are at hand; the view is into them.
std::variant<std::string_view, Fault> FindBlock(std::string_view answer);

/// All blocks of an answer, in order, also those that stand among numbers and texts; the views are into it. One begins
/// where an element of the answer does, outside quotes.
std::vector<scpi::Block> FindBlocks(std::string_view answer);

} // namespace portico::numbers
