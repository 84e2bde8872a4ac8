#pragma once

#include "platform/IDrawingOutput.h"

#include <vector>

namespace portico::memory {

/// Keeps what is printed; a file's bytes tell its format, the size and the number of the drawing's parts, as
/// "Png 640x480 12".
class DrawingOutput final : public IDrawingOutput {
public:
  std::string Encode(const Drawing& drawing, PictureFormat format) const override;
  void Print(const Drawing& drawing, IDeviceContext& context) const override;

  const std::vector<Drawing>& Printed() const { return m_printed; }

private:
  mutable std::vector<Drawing> m_printed;
};

} // namespace portico::memory
