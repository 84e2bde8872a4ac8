#pragma once

#include "platform/TextFragment.h"
#include "richtext/FormattedText.h"

namespace portico::richtext {

/// Reads any text as a rich text fragment; nothing is refused.
///
/// A text that does not begin with `{\rtf` is plain. In a fragment
/// - `base` is the look of all that it does not format, and what `\plain` gives font and size back from;
/// - units that are no syntax stand for themselves, whatever they are, but for CR and LF, which are dropped: a line
///   ends at `\par` or `\line`;
/// - `\'hh` is a byte of Windows-1252, `\u` a UTF-16 unit;
/// - unknown control words have no effect, destinations that are unknown, or hold no text, no content;
/// - groups that are left open are closed at the end; behind the outermost group nothing is read;
/// - numbers beyond a value's range give the end of the range.
///
/// The last line's end has the look that was in force at the fragment's end. Time and memory are in proportion to the
/// source.
FormattedText ReadRtf(StringView source, const Formatting& base);
/// The same for the fragment's RTF, without making it.
FormattedText ReadRtf(const TextFragment& fragment, const Formatting& base);

} // namespace portico::richtext
