#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/Drawing.h"
#include "platform/IRichTextControl.h"

#include <cstdint>
#include <memory>
#include <string>

namespace portico {

enum class PictureFormat : std::uint8_t { Png, Svg, Pdf };

/// Drawings outside windows, on white ground.
class IDrawingOutput {
public:
  virtual ~IDrawingOutput() = default;

  /// The bytes of a file. A PNG has two pixels for each of the drawing's, a PDF one page as wide and high as the
  /// drawing, a pixel being a 96th of an inch. A drawing without size, or of more than 10,000 pixels to a side, raises
  /// `InvalidArgument`.
  virtual std::string Encode(const Drawing& drawing, PictureFormat format) const = 0;
  /// One page, as wide as the paper allows. The context is one of this platform's.
  virtual void Print(const Drawing& drawing, IDeviceContext& context) const = 0;
};

inline constexpr double LargestPicture = 10000;

/// What all platforms refuse.
inline void CheckPicture(const Drawing& drawing) {
  const bool isPicture =
      drawing.Width >= 1 && drawing.Height >= 1 && drawing.Width <= LargestPicture && drawing.Height <= LargestPicture;
  HuntERR::Check(isPicture, ErrorNumber::InvalidArgument, u"A picture has 1 to 10,000 pixels to a side.");
}

extern std::shared_ptr<IDrawingOutput> gDrawingOutput;

} // namespace portico
