#include "numbers/PictureHead.h"

#include <cstdlib>

using namespace portico;

// A head that is accepted keeps within the limits, and is the same with more bytes behind it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto head = numbers::ReadPictureHead(bytes);
  if (const auto* fault = std::get_if<numbers::Fault>(&head)) {
    if (fault->Place > size || fault->Text.empty()) std::abort();
    return 0;
  }
  const auto& picture = std::get<numbers::PictureHead>(head);
  if (picture.Width == 0 || picture.Height == 0) std::abort();
  if (picture.Width > numbers::LargestPictureSide || picture.Height > numbers::LargestPictureSide) std::abort();
  if (std::uint64_t{picture.Width} * picture.Height > numbers::MostPicturePixels) std::abort();
  const auto again = numbers::ReadPictureHead(std::string(bytes).append(16, '\xFF'));
  const auto* same = std::get_if<numbers::PictureHead>(&again);
  if (same == nullptr || same->Format != picture.Format) std::abort();
  if (same->Width != picture.Width || same->Height != picture.Height) std::abort();
  return 0;
}
