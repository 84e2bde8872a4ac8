#pragma once

#include "platform/ILineNotes.h"

#include <cstdint>
#include <vector>

namespace portico {

/// Marks and notes at the margin of a text's lines, which count from 0. They are no part of the text, its looks, its
/// copies or its prints. A mark moves with its line and goes with it; a text that is replaced has none.
class ILineMarks : public virtual IObject {
public:
  /// Marks the line that a position is in, as `GetLineFromChar` tells it. A line has one mark at most.
  virtual void MarkLine(std::int32_t position) = 0;
  virtual void ClearMarks() = 0;
  /// In order.
  virtual std::vector<std::int32_t> MarkedLines() const = 0;
  /// Selects a line without its line end and brings it into sight; the last one for a line behind the text, the first
  /// for a negative one. The focus stays where it is.
  virtual void GoToLine(std::int32_t line) = 0;
  /// Shows notes beside the lines; null takes them away. To be called again when they have changed.
  virtual void ShowNotes(const Ref<ILineNotes>& notes) = 0;
  /// Null for none.
  virtual Ref<ILineNotes> Notes() const = 0;
};

} // namespace portico
