#include "terminal/console/CommandText.h"

#include <gtest/gtest.h>

#include <ostream>

namespace portico::terminal {

void PrintTo(const TextFault& fault, std::ostream* out) {
  *out << fault.Line << ":" << fault.Column << ": " << fault.Reason;
}

bool operator==(const TextFault& one, const TextFault& other) {
  return one.Line == other.Line && one.Column == other.Column && one.Reason == other.Reason;
}

namespace {

using namespace std::string_literals;

constexpr char NotUtf8[] = "not UTF-8; save the file as UTF-8";
constexpr char BareReturn[] = "a carriage return without a line feed; end lines with CR LF or LF";
constexpr char Zero[] = "a line cannot hold a zero character";
constexpr char EndOfText[] = "a line cannot begin with U+001A";

std::vector<String> LinesOf(const std::string& bytes) {
  const auto decoded = DecodeText(bytes);
  if (const auto* fault = std::get_if<TextFault>(&decoded)) {
    ADD_FAILURE() << testing::PrintToString(*fault);
    return {};
  }
  return std::get<std::vector<String>>(decoded);
}

TextFault FaultOf(const std::string& bytes) {
  const auto decoded = DecodeText(bytes);
  if (const auto* fault = std::get_if<TextFault>(&decoded)) return *fault;
  ADD_FAILURE() << "The text was accepted.";
  return {};
}

using Lines = std::vector<String>;

TEST(DecodeText, EmptyFileHasNoLine) { EXPECT_EQ(LinesOf(""), Lines()); }

TEST(DecodeText, LineEndBehindTheLastLineMakesNoFurtherLine) {
  EXPECT_EQ(LinesOf("*CLS\n*RST\n"), Lines({u"*CLS", u"*RST"}));
}

TEST(DecodeText, LastLineNeedsNoLineEnd) { EXPECT_EQ(LinesOf("*CLS\n*RST"), Lines({u"*CLS", u"*RST"})); }

TEST(DecodeText, CrLfAndLfEndLinesAlike) {
  EXPECT_EQ(LinesOf("*CLS\r\n\r\n*RST\r\n"), Lines({u"*CLS", u"", u"*RST"}));
  EXPECT_EQ(LinesOf("*CLS\n\n*RST\n"), LinesOf("*CLS\r\n\r\n*RST\r\n"));
  EXPECT_EQ(LinesOf("*CLS\r\n*RST\n"), Lines({u"*CLS", u"*RST"}));
}

TEST(DecodeText, BlankLinesAreKept) { EXPECT_EQ(LinesOf("\n\n"), Lines({u"", u""})); }

TEST(DecodeText, BlanksAreKept) { EXPECT_EQ(LinesOf("  *CLS  \n"), Lines({u"  *CLS  "})); }

TEST(DecodeText, ByteOrderMarkIsNoText) {
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF*CLS\n"), Lines({u"*CLS"}));
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF"), Lines());
}

TEST(DecodeText, ByteOrderMarkFurtherOnIsRefused) {
  EXPECT_EQ(FaultOf("\xEF\xBB\xBF\xEF\xBB\xBF*CLS\n"),
            (TextFault{1, 1, "U+FEFF cannot be sent: the instrument's code page lacks it"}));
  EXPECT_EQ(FaultOf("*CLS\n\xEF\xBB\xBF*RST\n"),
            (TextFault{2, 1, "U+FEFF cannot be sent: the instrument's code page lacks it"}));
}

TEST(DecodeText, CharactersOfTheCodePageAreTaken) {
  EXPECT_EQ(LinesOf("DISP:TEXT \"5 \xC2\xB5V \xE2\x82\xAC\"\n"), Lines({u"DISP:TEXT \"5 \u00B5V \u20AC\""}));
}

TEST(DecodeText, BytesThatAreNotUtf8AreRefusedAtTheByte) {
  EXPECT_EQ(FaultOf("*CLS\nDISP \xB5V\n"), (TextFault{2, 6, NotUtf8}));
  EXPECT_EQ(FaultOf("\xC3\xA9\xFF"), (TextFault{1, 3, NotUtf8}));
  EXPECT_EQ(FaultOf("A\xC0\x80"), (TextFault{1, 2, NotUtf8}));
  EXPECT_EQ(FaultOf("A\xED\xA0\x80"), (TextFault{1, 2, NotUtf8}));
  EXPECT_EQ(FaultOf("A\xE2\x82\n"), (TextFault{1, 2, NotUtf8}));
}

TEST(DecodeText, Utf16IsRefused) {
  EXPECT_EQ(FaultOf("\xFF\xFE*\0C\0"s), (TextFault{1, 1, NotUtf8}));
  EXPECT_EQ(FaultOf("*\0C\0L\0S\0"s), (TextFault{1, 2, Zero}));
}

TEST(DecodeText, ZeroCharacterIsRefused) { EXPECT_EQ(FaultOf("*CLS\nAB\0C\n"s), (TextFault{2, 3, Zero})); }

TEST(DecodeText, BareCarriageReturnIsRefused) {
  EXPECT_EQ(FaultOf("*CLS\r*RST\n"), (TextFault{1, 5, BareReturn}));
  EXPECT_EQ(FaultOf("*CLS\r\r\n"), (TextFault{1, 5, BareReturn}));
}

TEST(DecodeText, LineThatBeginsWithEndOfTextIsRefused) {
  EXPECT_EQ(FaultOf("*CLS\n\x1A*RST\n"), (TextFault{2, 1, EndOfText}));
  EXPECT_EQ(FaultOf("  \x1A"), (TextFault{1, 3, EndOfText}));
}

TEST(DecodeText, EndOfTextFurtherOnIsText) { EXPECT_EQ(LinesOf("A\x1A\n"), Lines({u"A\x1A"})); }

TEST(DecodeText, CharacterOutsideTheCodePageIsNamed) {
  EXPECT_EQ(FaultOf("*CLS\n\n5 k\xCE\xA9\n"),
            (TextFault{3, 4, "U+03A9 cannot be sent: the instrument's code page lacks it"}));
  EXPECT_EQ(FaultOf("\xF0\x9F\x98\x80"),
            (TextFault{1, 1, "U+1F600 cannot be sent: the instrument's code page lacks it"}));
}

TEST(DecodeText, ColumnsCountCharacters) {
  EXPECT_EQ(FaultOf("\xC2\xB5\xE2\x82\xAC\xCE\xA9"),
            (TextFault{1, 3, "U+03A9 cannot be sent: the instrument's code page lacks it"}));
  EXPECT_EQ(FaultOf("\xF0\x9F\x98\x80\rA\n"), (TextFault{1, 2, BareReturn}));
}

TEST(DecodeText, FirstLineAtFaultIsReported) { EXPECT_EQ(FaultOf("A\n\xFF\nB\rC\n").Line, 2U); }

TEST(DecodeLine, TellsTheNumberThatItWasGiven) {
  const auto decoded = DecodeLine("A\xFF", 42);
  ASSERT_TRUE(std::holds_alternative<TextFault>(decoded));
  EXPECT_EQ(std::get<TextFault>(decoded), (TextFault{42, 2, NotUtf8}));
}

TEST(DecodeLine, CarriageReturnAtItsEndIsPartOfTheLineEnd) {
  const auto decoded = DecodeLine("*CLS\r", 1);
  ASSERT_TRUE(std::holds_alternative<String>(decoded));
  EXPECT_EQ(std::get<String>(decoded), u"*CLS");
}

} // namespace
} // namespace portico::terminal
