#pragma once

#include "document/log/LogReader.h"

namespace portico {

/// Hands a well-formed document over in the form to which sessions can be added: in UTF-8, with nothing behind the root
/// (what stood there comes to stand at the root's end) and with a log's own end of the root. Everything else stays:
/// only how it is spelled may change. Returns the number of bytes in front of the end of the root.
std::uint64_t RewriteLog(const LogReader::Source& source, const ILogDisk::Sink& sink);

} // namespace portico
