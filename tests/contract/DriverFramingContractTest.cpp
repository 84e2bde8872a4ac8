#include "contract/DriverBench.h"

#include <array>

namespace portico::test {
namespace {

class DriverFramingContract : public DriverContract {
protected:
  void SetTermination(std::int32_t value) {
    ASSERT_EQ(Driver().TVSCPI_SetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, value), Success);
  }
};

INSTANTIATE_TEST_SUITE_P(AllDrivers, DriverFramingContract, testing::ValuesIn(AllDriverBenches()), BenchName);

TEST_P(DriverFramingContract, TheCountIncludesOneZeroByte) {
  Start({{"Q?", Reaction::Answer("1.5\n")}});
  EXPECT_EQ(Write("Q?\r"), Success);
  const ReadOutcome outcome = Read();
  EXPECT_EQ(outcome.status, Success);
  EXPECT_EQ(outcome.count, 4);
  EXPECT_EQ(outcome.bytes, std::string("1.5\0", 4));
}

TEST_P(DriverFramingContract, AutoTakesOneLineFeedOffWithItsCarriageReturn) {
  Start({{"LF?", Reaction::Answer("a\n")},
         {"CRLF?", Reaction::Answer("b\r\n")},
         {"CRCRLF?", Reaction::Answer("c\r\r\n")},
         {"EMPTY?", Reaction::Answer("\n")},
         {"CR?", Reaction::Answer("d\re\n")}});
  EXPECT_EQ(Query("LF?"), "a");
  EXPECT_EQ(Query("CRLF?"), "b");
  EXPECT_EQ(Query("CRCRLF?"), "c\r");
  EXPECT_EQ(Query("EMPTY?"), "");
  EXPECT_EQ(Query("CR?"), "d\re");
}

TEST_P(DriverFramingContract, TermcharSaysWhatEndsAMessage) {
  Start({{"LF?", Reaction::Answer("a\r\n")},
         {"CRLF?", Reaction::Answer("b\nc\r\n")},
         {"CR?", Reaction::Answer("d\ne\r")},
         {"LFCR?", Reaction::Answer("f\rg\n\r")}});
  SetTermination(10);
  EXPECT_EQ(Query("LF?"), "a\r");
  SetTermination(11);
  EXPECT_EQ(Query("CRLF?"), "b\nc");
  SetTermination(13);
  EXPECT_EQ(Query("CR?"), "d\ne");
  SetTermination(14);
  EXPECT_EQ(Query("LFCR?"), "f\rg");
}

TEST_P(DriverFramingContract, ABlockIsReadWholeWhateverItHolds) {
  const std::string block("#15a\nb\r\0", 8);
  Start({{"WAV?", Reaction::Answer(block + "\n")}, {"LIST?", Reaction::Answer("1," + block + ";" + block + "\r\n")}});
  EXPECT_EQ(Query("WAV?"), block);
  EXPECT_EQ(Query("LIST?"), "1," + block + ";" + block);
}

TEST_P(DriverFramingContract, AMegabyteArrivesWhole) {
  std::string data;
  for (std::size_t i = 0; i < 1'000'000; ++i) data += static_cast<char>(i * 31 % 251);
  const std::string block = "#71000000" + data;
  Start({{"WAV?", Reaction::Answer(block + "\n")}});
  EXPECT_EQ(Write("WAV?\r"), Success);
  const ReadOutcome outcome = Read(1 << 20);
  EXPECT_EQ(outcome.status, Success);
  EXPECT_TRUE(outcome.bytes == block + std::string(1, '\0')) << outcome.count;
}

TEST_P(DriverFramingContract, AMessageThatJustFitsIsComplete) {
  Start({{"Q?", Reaction::Answer("1234567\r\n")}});
  EXPECT_EQ(Write("Q?\r"), Success);
  EXPECT_EQ(Read(8).bytes, std::string("1234567\0", 8));
}

TEST_P(DriverFramingContract, OfAMessageThatIsTooLongTheRestIsLost) {
  Start({{"LONG?", Reaction::Answer("12345678\n")},
         {"LONGER?", Reaction::Answer(std::string(200'000, 'x') + "\n")},
         {"NEXT?", Reaction::Answer("next\n")}});
  EXPECT_EQ(Write("LONG?\r"), Success);
  const ReadOutcome outcome = Read(8);
  EXPECT_EQ(outcome.status, Success);
  EXPECT_EQ(outcome.count, 8);
  EXPECT_EQ(outcome.bytes, std::string("1234567\0", 8));
  EXPECT_EQ(Query("NEXT?"), "next");
  EXPECT_EQ(Write("LONGER?\r"), Success);
  EXPECT_EQ(Read(1).bytes, std::string(1, '\0'));
  EXPECT_EQ(Query("NEXT?"), "next");
}

TEST_P(DriverFramingContract, ABufferWithoutRoomIsRefusedAndTheAnswerStays) {
  Start({{"Q?", Reaction::Answer("1\n")}});
  EXPECT_EQ(Write("Q?\r"), Success);
  std::array<char, 1> buffer = {'~'};
  for (const std::int32_t size : {0, -1}) {
    std::int32_t count = -1;
    EXPECT_EQ(Driver().TVSCPI_ReadInstrData(session, size, buffer.data(), count), Number(DriverStatus::InvalidBuffer));
    EXPECT_EQ(count, 0);
  }
  EXPECT_EQ(buffer.front(), '~');
  EXPECT_EQ(Read().bytes, std::string("1\0", 2));
}

TEST_P(DriverFramingContract, ALoneQuoteDoesNotHideTheEndOfTheAnswer) {
  Start({{"ERR?", Reaction::Answer("-113,\"Undefined header; it's bad\"\n")}, {"BAD?", Reaction::Answer("\"open\n")}});
  EXPECT_EQ(Query("ERR?"), "-113,\"Undefined header; it's bad\"");
  EXPECT_EQ(Query("BAD?"), "\"open");
}

TEST_P(DriverFramingContract, AnyByteCrossesUnchanged) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) {
    if (byte != '\n' && byte != '\r' && byte != '#') all += static_cast<char>(byte);
  }
  Start({{"Q?", Reaction::Answer(all + "\n")}});
  EXPECT_EQ(Query("Q?"), all);
  EXPECT_EQ(Write(all + "\r"), Success);
  EXPECT_TRUE(bench->ReceivedUpTo(all + "\r\n").ends_with(all + "\r\n"));
}

} // namespace
} // namespace portico::test
