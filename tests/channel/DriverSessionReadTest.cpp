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
  Driver->Answer = "+1.5E3\n";
  ExpectSuccess(Session->ReadData(), u"+1.5E3");
}

TEST_F(DriverSessionReadTest, MakesExactlyOneCallWithTheFixedSize) {
  Driver->Answer = "1\n";
  Session->ReadData();
  EXPECT_EQ(Driver->Calls, (Calls{"ReadInstrData(7,1048576)"}));
}

TEST_F(DriverSessionReadTest, BufferIsAllZeros) {
  Driver->Answer = "1\n";
  Session->ReadData();
  EXPECT_EQ(Driver->Found, std::string(BufferSize, '\0'));
}

TEST_F(DriverSessionReadTest, CountOfOneIsASuccessWithoutData) {
  Driver->Answer = "\n";
  ExpectSuccess(Session->ReadData(), u"");
}

TEST_F(DriverSessionReadTest, CountOfZeroOrLessIsASuccessWithoutData) {
  Driver->Answer = "stays";
  for (const std::int32_t count : {0, -1, INT32_MIN}) {
    Driver->Count = count;
    ExpectSuccess(Session->ReadData(), u"");
  }
}

TEST_F(DriverSessionReadTest, BufferFilledExactlyOrBeyondIsASuccessWithoutData) {
  Driver->Answer = std::string(BufferSize, 'x');
  for (const std::int32_t count : {BufferSize, BufferSize + 1, INT32_MAX}) {
    Driver->Count = count;
    ExpectSuccess(Session->ReadData(), u"");
  }
}

TEST_F(DriverSessionReadTest, OneByteLessThanTheBufferIsTheLongestAnswer) {
  Driver->Answer = std::string(BufferSize - 1, 'x');
  ExpectSuccess(Session->ReadData(), String(BufferSize - 2, u'x'));
}

TEST_F(DriverSessionReadTest, NegativeStatusWithAValidCountShowsTheDriversMessage) {
  Driver->Answer = "12\n";
  Driver->Status["ReadInstrData"] = -20;
  ExpectFailure(Session->ReadData(), -20, u"It broke.");
  EXPECT_EQ(Driver->Calls, (Calls{"ReadInstrData(7,1048576)", "error_message(7,-20)"}));
}

TEST_F(DriverSessionReadTest, PositiveStatusWithAValidCountLosesTheBytes) {
  Driver->Answer = "12\n";
  Driver->Status["ReadInstrData"] = 20;
  ExpectFailure(Session->ReadData(), 20, u"It broke.");
}

TEST_F(DriverSessionReadTest, FullBufferWithAFailureIsAFailure) {
  Driver->Answer = std::string(BufferSize, 'x');
  Driver->Status["ReadInstrData"] = -20;
  ExpectFailure(Session->ReadData(), -20, u"It broke.");
}

TEST_F(DriverSessionReadTest, AllBytesComeBackFromTheCodePage) {
  Driver->Answer = "\x80\x81\xFF\x01\n";
  ExpectSuccess(Session->ReadData(), u"\u20AC\u0081\u00FF\u0001");
}

TEST_F(DriverSessionReadTest, ZeroBytesAreData) {
  Driver->Answer = std::string("a\0b\n", 4);
  ExpectSuccess(Session->ReadData(), u"a\0b"sv);
}

TEST_F(DriverSessionReadTest, CountBeyondWhatWasWrittenShowsZerosAndNotThePreviousAnswer) {
  Driver->Answer = "previous answer\n";
  Session->ReadData();
  Driver->Answer = "ab";
  Driver->Count = 6;
  ExpectSuccess(Session->ReadData(), u"ab\0\0\0"sv);
}

TEST_F(DriverSessionReadTest, ShowsZerosAlsoAfterAReadThatFilledTheBuffer) {
  Driver->Answer = std::string(BufferSize, 'x');
  Session->ReadData();
  Driver->Answer.clear();
  Driver->Count = BufferSize - 1;
  ExpectSuccess(Session->ReadData(), String(BufferSize - 2, u'\0'));
}

TEST_F(DriverSessionReadTest, ShowsZerosAlsoAfterAReadThatFailed) {
  Driver->Answer = "secret\n";
  Driver->Status["ReadInstrData"] = -1;
  Session->ReadData();
  Driver->Status.clear();
  Driver->Answer.clear();
  Driver->Count = 4;
  ExpectSuccess(Session->ReadData(), u"\0\0\0"sv);
}

} // namespace
} // namespace portico
