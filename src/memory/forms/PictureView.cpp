#include "memory/forms/PictureView.h"

#include "memory/forms/DeviceContext.h"

#include <string_view>

namespace portico::memory {

bool PictureView::Show(const PictureFile& picture) {
  constexpr std::string_view end("IEND\xAE\x42\x60\x82");
  const bool isWhole = picture.Format != "png" || picture.Bytes.ends_with(end);
  m_picture = isWhole ? picture : PictureFile();
  return isWhole;
}

void PictureView::SelPrint(const Ref<IDeviceContext>& hDC) {
  Cast<DeviceContext>(hDC)->Print(FromCodePage(m_picture.Bytes));
}

} // namespace portico::memory
