#include "numbers/FormatClues.h"

#include "numbers/ReadFrom.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace portico::numbers {
namespace {

FormatClues After(std::initializer_list<StringView> messages) {
  FormatClues clues;
  for (const StringView message : messages) clues.Sent(message);
  return clues;
}

FormatClues AfterAnswer(StringView query, StringView answer) {
  FormatClues clues;
  clues.Answered(query, answer);
  return clues;
}

TEST(FormatClues, WithoutAClueBytesStandInTheNormalOrder) {
  const FormatClues clues = After({u"*IDN?", u"VOLT 1", u"no SCPI \"", u""});
  EXPECT_FALSE(clues.Order());
  EXPECT_FALSE(clues.Type());
  EXPECT_EQ(clues.Format(), (ElementFormat{ElementType::UInt8, Big}));
}

TEST(FormatClues, BorderIsSet) {
  EXPECT_EQ(After({u"FORM:BORD SWAP"}).Order(), Little);
  EXPECT_EQ(After({u":FORMAT:BORDER SWAPPED\r\n"}).Order(), Little);
  EXPECT_EQ(After({u"form:bord norm"}).Order(), Big);
  EXPECT_EQ(After({u"FORM:BORD SWAP", u"FORM:BORD NORM"}).Order(), Big);
  EXPECT_EQ(After({u"FORM:BORD SWAP"}).Format().Order, Little);
}

TEST(FormatClues, DataTypeIsSet) {
  EXPECT_EQ(After({u"FORM REAL,32"}).Type(), ElementType::Float32);
  EXPECT_EQ(After({u"FORM:DATA REAL, 64"}).Type(), ElementType::Float64);
  EXPECT_EQ(After({u"FORM INT,8"}).Type(), ElementType::Int8);
  EXPECT_EQ(After({u"FORM INT,16"}).Type(), ElementType::Int16);
  EXPECT_EQ(After({u"FORM INTEGER,32"}).Type(), ElementType::Int32);
  EXPECT_EQ(After({u"FORM UINT,8"}).Type(), ElementType::UInt8);
  EXPECT_EQ(After({u"FORM UINT,16"}).Type(), ElementType::UInt16);
  EXPECT_EQ(After({u"FORM UINT,32"}).Type(), ElementType::UInt32);
  EXPECT_EQ(After({u"FORM REAL,64"}).Format().Type, ElementType::Float64);
}

TEST(FormatClues, TypeThatIsNotToldIsNone) {
  EXPECT_FALSE(After({u"FORM REAL,32", u"FORM ASC"}).Type());
  EXPECT_FALSE(After({u"FORM REAL,32", u"FORM REAL"}).Type());
  EXPECT_FALSE(After({u"FORM REAL,32", u"FORM REAL,48"}).Type());
  EXPECT_FALSE(After({u"FORM REAL,32", u"WAV:FORM ASC"}).Type());
}

TEST(FormatClues, WaveformSettingsTellTheSame) {
  EXPECT_EQ(After({u"WAV:BYT LSBF"}).Order(), Little);
  EXPECT_EQ(After({u":WAVEFORM:BYTEORDER LSBFIRST"}).Order(), Little);
  EXPECT_EQ(After({u"WAV:BYT LSBF", u"WAV:BYT MSBFirst"}).Order(), Big);
  EXPECT_EQ(After({u"WAV:FORM BYTE"}).Type(), ElementType::UInt8);
  EXPECT_EQ(After({u"WAV:FORM WORD"}).Type(), ElementType::UInt16);
}

TEST(FormatClues, OfBothKindsTheNewestCounts) {
  EXPECT_EQ(After({u"FORM:BORD SWAP", u"WAV:BYT MSBF"}).Order(), Big);
  EXPECT_EQ(After({u"WAV:FORM WORD", u"FORM REAL,32"}).Type(), ElementType::Float32);
}

TEST(FormatClues, AMessageOfSeveralUnitsFollowsThePath) {
  const FormatClues clues = After({u"FORM:BORD SWAP;DATA REAL,64;:VOLT 1"});
  EXPECT_EQ(clues.Order(), Little);
  EXPECT_EQ(clues.Type(), ElementType::Float64);
  EXPECT_FALSE(After({u"DISP:FORM:BORD SWAP"}).Order());
  EXPECT_FALSE(After({u"DISP:FORM REAL,32"}).Type());
  EXPECT_FALSE(After({u"DISP:TEXT \";:FORM:BORD SWAP\"", u"DATA #216;:FORM:BORD SWAP"}).Order());
  EXPECT_EQ(After({u"FORM:BORD SWAP;VOLT \"torn"}).Order(), Little);
}

TEST(FormatClues, AnswersTellWhatIsSet) {
  EXPECT_EQ(AfterAnswer(u"FORM:BORD?", u"SWAP\r\n").Order(), Little);
  EXPECT_EQ(AfterAnswer(u"FORM?", u"REAL,32").Type(), ElementType::Float32);
  EXPECT_EQ(AfterAnswer(u"FORM:DATA?", u"INT,+16").Type(), ElementType::Int16);
  EXPECT_EQ(AfterAnswer(u"WAV:BYT?", u"LSBF").Order(), Little);
  EXPECT_EQ(AfterAnswer(u"WAV:FORM?", u"WORD").Type(), ElementType::UInt16);
}

TEST(FormatClues, AskingAloneTellsNothing) {
  EXPECT_EQ(After({u"FORM REAL,32", u"FORM?"}).Type(), ElementType::Float32);
  EXPECT_EQ(AfterAnswer(u"FORM:BORD SWAP;:VOLT?", u"1").Order(), std::nullopt);
}

TEST(FormatClues, EachQueryOfAMessageHasItsAnswer) {
  const FormatClues clues = AfterAnswer(u"*OPC?;FORM:BORD?;:VOLT 1;:WAV:FORM?", u"1;SWAP;WORD");
  EXPECT_EQ(clues.Order(), Little);
  EXPECT_EQ(clues.Type(), ElementType::UInt16);
  EXPECT_FALSE(AfterAnswer(u"FORM:BORD?;*IDN?", u"SWAP;\"a;b\"").Order()) << "which is which is not known";
}

TEST(FormatClues, ResetTakesAllBack) {
  FormatClues clues = After({u"FORM:BORD SWAP", u"FORM REAL,32"});
  clues.Answered(u"WAV:PRE?", u"1,1,1,1,1");
  clues.Sent(u"*RST");
  EXPECT_FALSE(clues.Order());
  EXPECT_FALSE(clues.Type());
  EXPECT_FALSE(clues.Scale());
}

TEST(FormatClues, PreambleTellsPlacesAndValues) {
  const FormatClues clues =
      AfterAnswer(u"WAV:PRE?", u"1000,+1.00000000E-05,+2.00000000E-02,+5.00000000E-01,+1.28000000E+02\r\n");
  ASSERT_TRUE(clues.Scale());
  EXPECT_EQ(*clues.Scale(), (WaveformScale{1E-5, 0.02, 0.5, 128}));
  EXPECT_EQ(clues.Scale()->Place(0), 0);
  EXPECT_EQ(clues.Scale()->Place(3), 3 * 1E-5);
  EXPECT_EQ(clues.Scale()->Value(128), 0.5);
  EXPECT_EQ(clues.Scale()->Value(153), 1);
}

TEST(FormatClues, PreambleOfAnotherFormTellsNothing) {
  for (const StringView answer : {u"1,2,3,4", u"1,2,3,4,5,6", u"1,2,3,4,five", u"", u"1,2,,4,5"}) {
    EXPECT_FALSE(AfterAnswer(u"WAV:PRE?", answer).Scale()) << ToUtf8(answer);
  }
}

} // namespace
} // namespace portico::numbers
