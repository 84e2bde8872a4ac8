#include "numbers/FileSuffix.h"

#include "numbers/PictureHead.h"

#include <algorithm>
#include <array>

namespace portico::numbers {
namespace {

using namespace std::string_view_literals;

/// A format of which no more than its mark is read.
struct Mark {
  std::string_view Start;
  std::string_view At8; ///< behind the length of a file that is made of chunks
  std::string_view Suffix;
};

constexpr std::array Marks = {
    Mark{"II*\0"sv, "", "tif"},
    Mark{"MM\0*"sv, "", "tif"},
    Mark{"RIFF", "WAVE", "wav"},
};

} // namespace

std::string_view FileSuffix(std::string_view bytes) {
  if (const auto format = FindPictureFormat(bytes)) return SuffixOf(*format);
  const auto* found = std::find_if(Marks.begin(), Marks.end(), [bytes](const Mark& mark) {
    const std::string_view behind = bytes.size() < 8 ? std::string_view() : bytes.substr(8);
    return bytes.starts_with(mark.Start) && behind.starts_with(mark.At8);
  });
  return found == Marks.end() ? "bin" : found->Suffix;
}

} // namespace portico::numbers
