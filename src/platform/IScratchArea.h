#pragma once

#include "platform/IRichTextBox.h"

namespace portico {

/// What the encoders need of the main window.
class IScratchArea : public virtual IObject {
public:
  /// A hidden box on which formatting is tried before it reaches a display. Anybody may clear it at any time.
  virtual Ref<IRichTextBox> rtfScratchArea() const = 0;
  /// The window's own font; its size in points.
  virtual String FontName() const = 0;
  virtual double FontSize() const = 0;
};

/// Set with the main window wherever text is encoded.
extern Ref<IScratchArea> gScratchArea;

} // namespace portico
