#include "numbers/PictureHead.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::numbers {
namespace {

using namespace std::string_literals;

std::string Told(const std::string& bytes) {
  const auto head = ReadPictureHead(bytes);
  if (const auto* fault = std::get_if<Fault>(&head)) return std::to_string(fault->Place) + ": " + ToUtf8(fault->Text);
  const auto& picture = std::get<PictureHead>(head);
  return std::string(SuffixOf(picture.Format)) + " " + std::to_string(picture.Width) + " " +
         std::to_string(picture.Height);
}

const std::string Png = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR"s;
const std::string Bmp = "BM\x3A\0\0\0\0\0\0\0\x36\0\0\0"s;
const std::string Jpeg = "\xFF\xD8\xFF\xE0\0\x04zz"s;

TEST(PictureHead, OfPngTellsItsSize) {
  EXPECT_EQ(Told(Png + "\0\0\x03\x20\0\0\x01\xE0\x08\x02\0\0\0"s), "png 800 480");
  EXPECT_EQ(Told(Png + "\0\0\0\x01\0\0\0\x01"s), "png 1 1");
}

TEST(PictureHead, OfBmpTellsItsSizeWhicheverWayItsRowsStand) {
  EXPECT_EQ(Told(Bmp + "\x28\0\0\0\x20\x03\0\0\xE0\x01\0\0"s), "bmp 800 480");
  EXPECT_EQ(Told(Bmp + "\x7C\0\0\0\x03\0\0\0\xFE\xFF\xFF\xFF"s), "bmp 3 2");
  EXPECT_EQ(Told(Bmp + "\x0C\0\0\0\x05\0\x04\0\x01\0\x18\0"s), "bmp 5 4");
}

TEST(PictureHead, OfGifTellsItsSize) {
  EXPECT_EQ(Told("GIF87a\x20\x03\xE0\x01"s), "gif 800 480");
  EXPECT_EQ(Told("GIF89a\x01\0\x02\0\x80"s), "gif 1 2");
}

TEST(PictureHead, OfJpegTellsTheSizeOfItsFrameBehindOtherSegments) {
  EXPECT_EQ(Told(Jpeg + "\xFF\xC0\0\x11\x08\x01\xE0\x03\x20\x03"s), "jpg 800 480");
  EXPECT_EQ(Told(Jpeg + "\xFF\xC4\0\x03z\xFF\xFF\xFF\xC2\0\x11\x08\0\x02\0\x03\x03"s), "jpg 3 2") << "fill bytes";
}

TEST(PictureHead, WhatBeginsOtherwiseIsNoPicture) {
  const std::string none = "0: The answer is no picture: it begins neither as PNG nor as BMP, JPEG or GIF.";
  EXPECT_EQ(Told(""), none);
  EXPECT_EQ(Told("B"), none);
  EXPECT_EQ(Told("\x89PNG\n\x1A\n"), none);
  EXPECT_EQ(Told("GIF88a\x01\0\x01\0"s), none);
  EXPECT_EQ(Told("<svg/>"), none);
}

TEST(PictureHead, OneThatIsCutOffOrHasNoSizeIsBroken) {
  const std::string broken = ": The picture is broken: it does not tell how large it is.";
  EXPECT_EQ(Told(Png + "\0\0\x03\x20\0\0\x01"s), "8" + broken);
  EXPECT_EQ(Told("\x89PNG\r\n\x1A\n\0\0\0\x0DIDAT\0\0\0\x01\0\0\0\x01"s), "8" + broken);
  EXPECT_EQ(Told(Png + "\0\0\0\0\0\0\0\x01"s), "8" + broken);
  EXPECT_EQ(Told("BM"), "2" + broken);
  EXPECT_EQ(Told(Bmp + "\x10\0\0\0\x20\x03\0\0\xE0\x01\0\0"s), "2" + broken);
  EXPECT_EQ(Told(Bmp + "\x28\0\0\0\x20\x03\0\0\0\0\0\0"s), "2" + broken);
  EXPECT_EQ(Told("GIF89a\x01\0\x02"s), "6" + broken);
  EXPECT_EQ(Told(Jpeg), "3" + broken);
  EXPECT_EQ(Told(Jpeg + "\xFF\xC0\0\x11\x08\x01\xE0\x03"s), "3" + broken);
  EXPECT_EQ(Told(Jpeg + "\xFF\xDA\0\x04zz\xFF\xC0\0\x11\x08\x01\xE0\x03\x20"s), "3" + broken) << "behind a scan";
  EXPECT_EQ(Told(Jpeg + "\xFF\xE1\0\x01\xFF\xC0\0\x11\x08\x01\xE0\x03\x20"s), "3" + broken) << "a length below 2";
}

TEST(PictureHead, OneThatIsTooLargeIsRefusedWithItsSize) {
  EXPECT_EQ(Told(Png + "\0\x01\x86\xA0\0\x01\x86\xA0"s),
            "8: The picture is too large: it has 100000 by 100000 pixels.");
  EXPECT_EQ(Told(Png + "\xFF\xFF\xFF\xFF\0\0\0\x01"s), "8: The picture is too large: it has 4294967295 by 1 pixels.");
  EXPECT_EQ(Told(Bmp + "\x28\0\0\0\x01\0\0\0\0\0\0\x80"s),
            "2: The picture is too large: it has 1 by 2147483648 pixels.");
  EXPECT_EQ(Told(Bmp + "\x28\0\0\0\x01\0\0\0\xFF\xFF\xFF\x7F"s),
            "2: The picture is too large: it has 1 by 2147483647 pixels.");
}

TEST(PictureHead, TheLargestIsStillShown) {
  EXPECT_EQ(Told(Png + "\0\0\x40\0\0\0\x08\0"s), "png 16384 2048");
  EXPECT_EQ(Told(Png + "\0\0\x40\x01\0\0\0\x01"s), "8: The picture is too large: it has 16385 by 1 pixels.");
  EXPECT_EQ(Told(Png + "\0\0\0\x01\0\0\x40\x01"s), "8: The picture is too large: it has 1 by 16385 pixels.");
  EXPECT_EQ(Told(Png + "\0\0\x40\0\0\0\x08\x01"s), "8: The picture is too large: it has 16384 by 2049 pixels.");
}

} // namespace
} // namespace portico::numbers
