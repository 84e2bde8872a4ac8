#include "numbers/BlockNumbers.h"

#include "numbers/ReadFrom.h"
#include "numbers/SpecialValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace portico::numbers {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::NanSensitiveDoubleEq;

Values Read(const std::string& bytes, ElementType type, ByteOrder order = Big) {
  return ReadFrom(ReadElements(bytes, {type, order}));
}

TEST(BlockNumbers, BytesAreReadWithAndWithoutSign) {
  EXPECT_THAT(Read("\x00\x01\x7F\x80\xFF"s, ElementType::UInt8), ElementsAre(0, 1, 127, 128, 255));
  EXPECT_THAT(Read("\x00\x01\x7F\x80\xFF"s, ElementType::Int8), ElementsAre(0, 1, 127, -128, -1));
  EXPECT_THAT(Read("\x01\xFF"s, ElementType::Int8, Little), ElementsAre(1, -1));
}

TEST(BlockNumbers, WordsAreReadInBothOrders) {
  EXPECT_THAT(Read("\x01\x02\xFF\xFE"s, ElementType::UInt16), ElementsAre(258, 65534));
  EXPECT_THAT(Read("\x01\x02\xFF\xFE"s, ElementType::Int16), ElementsAre(258, -2));
  EXPECT_THAT(Read("\x01\x02\xFF\xFE"s, ElementType::UInt16, Little), ElementsAre(513, 65279));
  EXPECT_THAT(Read("\x01\x02\xFF\xFE"s, ElementType::Int16, Little), ElementsAre(513, -257));
}

TEST(BlockNumbers, LongWordsAreReadInBothOrders) {
  EXPECT_THAT(Read("\x00\x01\x02\x03\xFF\xFF\xFF\xFE"s, ElementType::UInt32), ElementsAre(66051, 4294967294));
  EXPECT_THAT(Read("\x00\x01\x02\x03\xFF\xFF\xFF\xFE"s, ElementType::Int32), ElementsAre(66051, -2));
  EXPECT_THAT(Read("\x00\x01\x02\x03\xFE\xFF\xFF\xFF"s, ElementType::UInt32, Little),
              ElementsAre(50462976, 4294967294));
  EXPECT_THAT(Read("\x00\x01\x02\x03\xFE\xFF\xFF\xFF"s, ElementType::Int32, Little), ElementsAre(50462976, -2));
}

TEST(BlockNumbers, FloatsAreReadInBothOrders) {
  EXPECT_THAT(Read("\x3F\x80\x00\x00\xC0\x20\x00\x00"s, ElementType::Float32), ElementsAre(1, -2.5));
  EXPECT_THAT(Read("\x00\x00\x80\x3F\x00\x00\x20\xC0"s, ElementType::Float32, Little), ElementsAre(1, -2.5));
  EXPECT_THAT(Read("\x3F\xF8\x00\x00\x00\x00\x00\x00"s, ElementType::Float64), ElementsAre(1.5));
  EXPECT_THAT(Read("\x9A\x99\x99\x99\x99\x99\xB9\xBF"s, ElementType::Float64, Little), ElementsAre(-0.1));
}

TEST(BlockNumbers, FloatsHaveGapsAndOverloads) {
  EXPECT_THAT(Read("\x7F\xC0\x00\x00\x7F\x80\x00\x00\xFF\x80\x00\x00"s, ElementType::Float32),
              ElementsAre(NanSensitiveDoubleEq(Gap), NanSensitiveDoubleEq(Overload), NanSensitiveDoubleEq(-Overload)));
  // 9.91E37, 9.9E37 and -9.9E37 as floats, and the first as a double.
  EXPECT_THAT(Read("\x7E\x95\x1B\xEE\x7E\x94\xF5\x6A\xFE\x94\xF5\x6A"s, ElementType::Float32),
              ElementsAre(NanSensitiveDoubleEq(Gap), NanSensitiveDoubleEq(Overload), NanSensitiveDoubleEq(-Overload)));
  EXPECT_THAT(Read("\x47\xD2\xA3\x7D\xCE\xD4\x61\x43"s, ElementType::Float64), ElementsAre(NanSensitiveDoubleEq(Gap)));
}

TEST(BlockNumbers, BytesThatAreNoMultipleOfTheElementAreTold) {
  const Fault fault = FaultIn(ReadElements("12345", {ElementType::Int16, Big}));
  EXPECT_EQ(fault.Text, u"The block's 5 bytes are no multiple of the 2 that each number takes.");
  EXPECT_EQ(fault.Place, 4U);
  EXPECT_EQ(FaultIn(ReadElements("123456", {ElementType::Float32, Big})).Text,
            u"The block's 6 bytes are no multiple of the 4 that each number takes.");
  EXPECT_EQ(FaultIn(ReadElements("123456789012", {ElementType::Float64, Big})).Place, 8U);
}

TEST(BlockNumbers, ElementsHaveTheirSizes) {
  EXPECT_EQ(SizeOf(ElementType::Int8), 1U);
  EXPECT_EQ(SizeOf(ElementType::UInt8), 1U);
  EXPECT_EQ(SizeOf(ElementType::Int16), 2U);
  EXPECT_EQ(SizeOf(ElementType::UInt16), 2U);
  EXPECT_EQ(SizeOf(ElementType::Int32), 4U);
  EXPECT_EQ(SizeOf(ElementType::UInt32), 4U);
  EXPECT_EQ(SizeOf(ElementType::Float32), 4U);
  EXPECT_EQ(SizeOf(ElementType::Float64), 8U);
}

TEST(BlockNumbers, AnswerIsReadThroughTheCodePage) {
  const String answer = FromCodePage("#14\x80\x9F\xFF\x00\r\n"s);
  EXPECT_THAT(ReadFrom(ReadBlockNumbers(answer, {ElementType::UInt8, Big})), ElementsAre(128, 159, 255, 0));
  EXPECT_THAT(ReadFrom(ReadBlockNumbers(answer, {ElementType::UInt16, Big})), ElementsAre(32927, 65280));
}

TEST(BlockNumbers, EmptyBlockHoldsNone) {
  EXPECT_TRUE(ReadFrom(ReadBlockNumbers(u"#10", {ElementType::Float64, Big})).empty());
}

TEST(BlockNumbers, FaultOfTheBlockIsTold) {
  EXPECT_EQ(FaultIn(ReadBlockNumbers(u"#15hell", {ElementType::UInt8, Big})).Text,
            u"The block is torn: of 5 bytes 4 are there.");
}

} // namespace
} // namespace portico::numbers
