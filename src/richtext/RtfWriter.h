#pragma once

#include "richtext/FormattedText.h"

namespace portico::richtext {

/// A fragment that gives the text back when it is read, with all thirteen values of every character, line end and
/// paragraph, whatever it is read onto. It is ASCII: all other units are written `\uN?`.
String WriteRtf(const FormattedText& text);

} // namespace portico::richtext
