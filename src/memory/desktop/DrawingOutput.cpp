#include "memory/desktop/DrawingOutput.h"

#include <array>
#include <cstddef>

namespace portico::memory {

std::string DrawingOutput::Encode(const Drawing& drawing, PictureFormat format) const {
  CheckPicture(drawing);
  constexpr std::array names = {"Png", "Svg", "Pdf"};
  const auto number = [](double pixels) { return std::to_string(static_cast<std::int64_t>(pixels)); };
  return std::string(names.at(static_cast<std::size_t>(format))) + " " + number(drawing.Width) + "x" +
         number(drawing.Height) + " " + std::to_string(drawing.Parts.size());
}

void DrawingOutput::Print(const Drawing& drawing, IDeviceContext& /*context*/) const {
  CheckPicture(drawing);
  m_printed.push_back(drawing);
}

} // namespace portico::memory
