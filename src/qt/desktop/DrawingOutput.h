#pragma once

#include "platform/IDrawingOutput.h"

namespace portico::qt {

/// Drawings as the toolkit's painter has them in files and on paper.
class DrawingOutput final : public IDrawingOutput {
public:
  std::string Encode(const Drawing& drawing, PictureFormat format) const override;
  void Print(const Drawing& drawing, IDeviceContext& context) const override;
};

} // namespace portico::qt
