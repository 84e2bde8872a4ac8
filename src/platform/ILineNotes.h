#pragma once

#include "framework/errors/Ref.h"
#include "framework/text/text.h"

#include <cstdint>
#include <vector>

namespace portico {

/// What stands beside one line.
struct LineNote {
  /// From left to right, one for each column; all that are missing are empty.
  std::vector<String> Columns = {};
  /// A rule stands above it: here something begins.
  bool Begins = false;
  /// For whoever asks, by the mouse or a screen reader.
  String Told = {};
};

/// Notes beside the lines of a text, which are asked for as they come into sight.
class ILineNotes : public virtual IObject {
public:
  /// The widest text of each column. None while nothing is to be shown.
  virtual std::vector<String> Widest() const = 0;
  /// Lines count from 0; one that there is not has an empty note.
  virtual LineNote NoteOf(std::int32_t line) const = 0;
};

} // namespace portico
