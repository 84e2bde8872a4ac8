#pragma once

#include "framework/errors/Ref.h"

#include <cstdint>

namespace portico {

enum class ZoomChange : std::uint8_t { In, Out, ActualSize };

/// What a box offers to whoever reads its text; the text stays as it is.
class IReadingAids : public virtual IObject {
public:
  /// Opens the field in which the user says what to look for. What is selected within a line stands there already.
  virtual void OpenFind() = 0;
  /// Selects the next place, or the one before, of what was looked for last, case ignored; beyond the end of the text
  /// it goes on at the other one. If nothing was looked for it opens the field.
  virtual void FindNext() = 0;
  virtual void FindPrevious() = 0;
  /// All text is shown larger or smaller by a tenth, between three tenths and eight times its own size, or in that.
  virtual void ChangeZoom(ZoomChange change) = 0;
  /// Whether each character that the instrument's code page lacks, and that is sent as `?`, is underlined where it is
  /// seen. False to begin with.
  virtual void UnderlinesUnsendable(bool newValue) = 0;
};

} // namespace portico
