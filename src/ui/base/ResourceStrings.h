#pragma once

#include "platform/IForm.h"

#include <cstdint>
#include <span>

namespace portico {

/// A text of the user interface under its 16-bit id. Ids go by menu: 1000 File, 2000 Edit, 3000 Execution, 4000
/// Command, 5000 Tools, 6000 the command popup, 7000 the history popup, 8000 tool tips of the toolbar, 9000 Help.
struct ResourceString {
  std::int16_t Id;
  StringView Text;
};

/// All of them, by ascending id.
std::span<const ResourceString> ResourceStrings();

/// The run time's number for an id that has no string.
inline constexpr std::int32_t ResourceNotFound = 326;

/// The string of an id; an absent one raises `ResourceNotFound`.
String LoadResString(std::int32_t Id);

namespace modAppGlobals {

/// Puts texts where the form's design has ids. Whatever has no id in the named place keeps what it has; nothing is
/// raised. The contract also asks for the strings of a font, which the table does not have: that step does nothing.
void LoadResStrings(IForm& Form);

} // namespace modAppGlobals
} // namespace portico
