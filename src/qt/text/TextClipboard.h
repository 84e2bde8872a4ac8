#pragma once

#include "richtext/FormattedText.h"

#include <QMimeData>

#include <memory>

namespace portico::qt {

/// A text for others to take: as a fragment, and plain with LF at the line ends.
std::unique_ptr<QMimeData> ToClipboard(const richtext::FormattedText& text);

/// The fragment that others offer, or else their plain text in the look of `base`; each kind of line end that there is
/// ends a line.
richtext::FormattedText FromClipboard(const QMimeData& data, const richtext::Formatting& base);
/// Whether others offer either, by the types that they name.
bool HasText(const QMimeData& data);

} // namespace portico::qt
