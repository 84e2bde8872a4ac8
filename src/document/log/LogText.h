#pragma once

#include "configuration/PackedText.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace portico {

/// Names of a log's elements and attributes; in case, to the letter.
namespace LogName {
inline constexpr std::string_view Root = "SCPICommLog";
inline constexpr std::string_view Header = "Header";
inline constexpr std::string_view Session = "Session";
inline constexpr std::string_view ApplicationName = "ApplicationName";
inline constexpr std::string_view ApplicationVersion = "ApplicationVersion";
inline constexpr std::string_view OpenStamp = "SessionOpenTimeStamp";
inline constexpr std::string_view CloseStamp = "SessionCloseTimeStamp";
inline constexpr std::string_view DataType = "DataType";
inline constexpr std::string_view Timestamp = "Timestamp";
inline constexpr std::string_view DataFormat = "DataFormat";
/// The `DataFormat` of a payload that is text; any other is hexadecimal.
inline constexpr std::string_view StringFormat = "String";
} // namespace LogName

/// The pieces that a log on disk is put together from, in UTF-8. Each element begins with a line feed, so that what
/// follows it on disk can be written over without a look at what stands before.
namespace LogText {

inline constexpr std::string_view SessionEnd = "\n</Session>";
inline constexpr std::string_view RootEnd = "\n</SCPICommLog>\n";
/// What closes a log whose last session holds the place where the next entity goes.
inline constexpr std::string_view SessionAndRootEnd = "\n</Session>\n</SCPICommLog>\n";

/// Bytes that the opening tag of a session keeps, blank until the session is closed, for the close stamp.
inline constexpr std::size_t CloseStampRoom = 80;

/// What stands in front of all sessions: declaration, the root's opening tag, the header.
std::string Head();

/// The start of a session's opening tag, up to the room for the close stamp.
std::string SessionTagStart(StringView openStamp);
/// What fills the room: the attribute and blanks, or blanks alone for no stamp. One that does not fit raises
/// `InternalState`.
std::string CloseStampField(StringView closeStamp);
/// The whole opening tag.
std::string SessionTag(StringView openStamp, StringView closeStamp);

/// Whether an element or attribute can bear the name. A colon makes no name here: there are no namespaces in a log.
bool IsName(StringView text);
bool IsName(const PackedText& text);

/// Appends a blank, the name, and the quoted value. Characters that XML cannot hold are written as U+FFFD.
void AppendAttribute(std::string& out, const PackedText& name, const PackedText& value);
/// The same of UTF-8 in which every character is one of XML's.
void AppendAttribute(std::string& out, std::string_view name, std::string_view value);
/// Appends such UTF-8 as text between elements.
void AppendText(std::string& out, std::string_view text);
/// Appends the text so that reading gives it back whole: CDATA sections, split where the text holds what ends one and
/// where it holds a carriage return. Characters that XML cannot hold are written as U+FFFD.
void AppendCharacterData(std::string& out, StringView text);

} // namespace LogText
} // namespace portico
