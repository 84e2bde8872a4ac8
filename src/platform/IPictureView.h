#pragma once

#include "platform/IRichTextControl.h"

#include <cstdint>
#include <string>

namespace portico {

/// A picture as a file has it.
struct PictureFile {
  std::string Bytes = {};
  std::string Format = {}; ///< "png", "bmp", "jpg" or "gif"
  // As its head tells, in pixels: what a reader may make room for.
  std::int32_t Width = 0;
  std::int32_t Height = 0;
};

/// A field that shows a picture. It is placed in a window.
class IPictureView : public virtual IPrintable, public virtual IControl, public virtual IPlaced {
public:
  /// False, and shows none, if the bytes are no picture of that format and size.
  virtual bool Show(const PictureFile& picture) = 0;
  /// The picture is as large as the field allows; otherwise each of its pixels is one of the screen's, and what does
  /// not fit can be scrolled to. True to begin with.
  virtual bool FitsField() const = 0;
  virtual void FitsField(bool newValue) = 0;
  /// Puts the picture that is shown on the clipboard.
  virtual void Copy() = 0;
};

} // namespace portico
