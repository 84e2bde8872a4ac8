#include "channel/DriverSessionFixture.h"

namespace portico {
namespace {

using namespace std::string_view_literals;
using test::BufferSize;
using test::Calls;
using test::DriverSessionTest;

class DriverSessionReadTest : public DriverSessionTest {
protected:
  DriverSessionReadTest() { Open(); }
};

TEST_F(DriverSessionReadTest, DropsTheLastDeliveredByte) {
  Delivered.Bytes = "+1.5E3\n";
  ExpectSuccess(Session->ReadData(), u"+1.5E3");
}

TEST_F(DriverSessionReadTest, MakesExactlyOneCallWithTheFixedSize) {
  Delivered.Bytes = "1\n";
  Session->ReadData();
  EXPECT_EQ(Details, (Calls{"ReadInstrData(7,1048576)"}));
}

TEST_F(DriverSessionReadTest, BufferIsAllZeros) {
  Delivered.Bytes = "1\n";
  Session->ReadData();
  EXPECT_EQ(Driver->Found, std::string(BufferSize, '\0'));
}

TEST_F(DriverSessionReadTest, CountOfOneIsASuccessWithoutData) {
  Delivered.Bytes = "\n";
  ExpectSuccess(Session->ReadData(), u"");
}

TEST_F(DriverSessionReadTest, CountOfZeroOrLessIsASuccessWithoutData) {
  Delivered.Bytes = "stays";
  for (const std::int32_t count : {0, -1, INT32_MIN}) {
    Delivered.Count = count;
    ExpectSuccess(Session->ReadData(), u"");
  }
}

TEST_F(DriverSessionReadTest, BufferFilledExactlyOrBeyondIsASuccessWithoutData) {
  Delivered.Bytes = std::string(BufferSize, 'x');
  for (const std::int32_t count : {BufferSize, BufferSize + 1, INT32_MAX}) {
    Delivered.Count = count;
    ExpectSuccess(Session->ReadData(), u"");
  }
}

TEST_F(DriverSessionReadTest, OneByteLessThanTheBufferIsTheLongestAnswer) {
  Delivered.Bytes = std::string(BufferSize - 1, 'x');
  ExpectSuccess(Session->ReadData(), String(BufferSize - 2, u'x'));
}

TEST_F(DriverSessionReadTest, NegativeStatusWithAValidCountShowsTheDriversMessage) {
  Delivered.Bytes = "12\n";
  Delivered.Status = -20;
  ExpectFailure(Session->ReadData(), -20, u"It broke.");
  EXPECT_EQ(Details, (Calls{"ReadInstrData(7,1048576)", "error_message(7,-20)"}));
}

TEST_F(DriverSessionReadTest, PositiveStatusWithAValidCountLosesTheBytes) {
  Delivered.Bytes = "12\n";
  Delivered.Status = 20;
  ExpectFailure(Session->ReadData(), 20, u"It broke.");
}

TEST_F(DriverSessionReadTest, FullBufferWithAFailureIsAFailure) {
  Delivered.Bytes = std::string(BufferSize, 'x');
  Delivered.Status = -20;
  ExpectFailure(Session->ReadData(), -20, u"It broke.");
}

TEST_F(DriverSessionReadTest, AllBytesComeBackFromTheCodePage) {
  Delivered.Bytes = "\x80\x81\xFF\x01\n";
  ExpectSuccess(Session->ReadData(), u"\u20AC\u0081\u00FF\u0001");
}

TEST_F(DriverSessionReadTest, ZeroBytesAreData) {
  Delivered.Bytes = std::string("a\0b\n", 4);
  ExpectSuccess(Session->ReadData(), u"a\0b"sv);
}

TEST_F(DriverSessionReadTest, CountBeyondWhatWasWrittenShowsZerosAndNotThePreviousAnswer) {
  Delivered.Bytes = "previous answer\n";
  Session->ReadData();
  Delivered.Bytes = "ab";
  Delivered.Count = 6;
  ExpectSuccess(Session->ReadData(), u"ab\0\0\0"sv);
}

TEST_F(DriverSessionReadTest, ShowsZerosAlsoAfterAReadThatFilledTheBuffer) {
  Delivered.Bytes = std::string(BufferSize, 'x');
  Session->ReadData();
  Delivered.Bytes.clear();
  Delivered.Count = BufferSize - 1;
  ExpectSuccess(Session->ReadData(), String(BufferSize - 2, u'\0'));
}

TEST_F(DriverSessionReadTest, ShowsZerosAlsoAfterAReadThatFailed) {
  Delivered.Bytes = "secret\n";
  Delivered.Status = -1;
  Session->ReadData();
  Delivered.Status = 0;
  Delivered.Bytes.clear();
  Delivered.Count = 4;
  ExpectSuccess(Session->ReadData(), u"\0\0\0"sv);
}

} // namespace
} // namespace portico
