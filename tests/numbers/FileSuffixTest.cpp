#include "numbers/FileSuffix.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::numbers {
namespace {

using namespace std::string_literals;

TEST(FileSuffix, IsThatOfAPictureByItsHead) {
  EXPECT_EQ(FileSuffix("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\x03\x20\0\0\x01\xE0"s), "png");
  EXPECT_EQ(FileSuffix("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\xFF\xFF\xFF\xFF\0\0\0\x01"s), "png") << "too large to be shown";
  EXPECT_EQ(FileSuffix("BM\x3A\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x20\x03\0\0\xE0\x01\0\0"s), "bmp");
  EXPECT_EQ(FileSuffix("\xFF\xD8\xFF\xE0\0\x04zz\xFF\xC0\0\x11\x08\x01\xE0\x03\x20\x03"s), "jpg");
  EXPECT_EQ(FileSuffix("GIF89a\x01\0\x02\0\x80"s), "gif");
}

TEST(FileSuffix, IsThatOfTiffInBothOrdersOfBytes) {
  EXPECT_EQ(FileSuffix("II*\0\x08\0\0\0"s), "tif");
  EXPECT_EQ(FileSuffix("MM\0*\0\0\0\x08"s), "tif");
  EXPECT_EQ(FileSuffix("II\0*\0\0\0\x08"s), "bin");
}

TEST(FileSuffix, IsThatOfASoundWhoseChunkSaysSo) {
  EXPECT_EQ(FileSuffix("RIFF\x24\0\0\0WAVEfmt "s), "wav");
  EXPECT_EQ(FileSuffix("RIFF\x24\0\0\0AVI LIST"s), "bin");
  EXPECT_EQ(FileSuffix("RIFFWAVE"), "bin");
  EXPECT_EQ(FileSuffix("RIFF\x24\0\0\0WAV"s), "bin");
}

TEST(FileSuffix, OfAnythingElseIsBin) {
  EXPECT_EQ(FileSuffix(""), "bin");
  EXPECT_EQ(FileSuffix("+1.0,+2.0"), "bin");
  EXPECT_EQ(FileSuffix("BM: samples that begin just so, and go on"), "bin") << "two letters alone make no picture";
}

} // namespace
} // namespace portico::numbers
