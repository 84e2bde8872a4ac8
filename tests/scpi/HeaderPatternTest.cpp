#include "scpi/HeaderPattern.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::scpi {
namespace {

/// The header in one notation; "none" for what is not one.
std::string Read(std::string_view text) {
  const auto pattern = HeaderPattern::Parse(text);
  return pattern ? pattern->Text() : "none";
}

TEST(HeaderPattern, HasNodes) {
  EXPECT_EQ(Read("ABORt"), ":ABORt");
  EXPECT_EQ(Read(":SYSTem:ERRor"), ":SYSTem:ERRor");
  EXPECT_EQ(Read("*IDN"), "*IDN");
  const auto pattern = HeaderPattern::Parse("SYSTem:ERRor");
  ASSERT_TRUE(pattern);
  ASSERT_EQ(pattern->Nodes().size(), 2U);
  EXPECT_EQ(pattern->Nodes()[1], (PatternNode{"ERRor", false, false, {1, 1}}));
}

TEST(HeaderPattern, ANodeInBracketsMayBeLeftOutWithItsColonOnEitherSide) {
  EXPECT_EQ(Read("[SENSe:]VOLTage[:DC]:RANGe[:UPPer]"), "[:SENSe]:VOLTage[:DC]:RANGe[:UPPer]");
  EXPECT_EQ(Read("[:SENSe]:VOLTage"), "[:SENSe]:VOLTage");
  EXPECT_EQ(Read("TRIGger[:SEQuence[:STARt]]"), ":TRIGger[:SEQuence][:STARt]");
  const auto pattern = HeaderPattern::Parse("[SENSe:]VOLTage");
  ASSERT_TRUE(pattern);
  EXPECT_TRUE(pattern->Nodes()[0].Optional);
  EXPECT_FALSE(pattern->Nodes()[1].Optional);
}

TEST(HeaderPattern, ReadsEveryNotationOfSuffixes) {
  for (const char* text :
       {"CHANnel<1-4>:SCALe", "CHANnel{1:4}:SCALe", "CHANnel[1]|2|3|4:SCALe", "CHANnel1|2|3|4:SCALe"}) {
    EXPECT_EQ(Read(text), ":CHANnel<1-4>:SCALe") << text;
  }
  EXPECT_EQ(Read("OUTPut<2>"), ":OUTPut2");
  EXPECT_EQ(Read("OUTPut2"), ":OUTPut2");
  EXPECT_EQ(Read("OUTPut[1]"), ":OUTPut1");
  EXPECT_EQ(Read("OUTPut{1}"), ":OUTPut1");
  EXPECT_EQ(Read("MARKer<0-10>:X"), ":MARKer<0-10>:X");
  EXPECT_EQ(Read("CALCulate<n>:DATA"), ":CALCulate<n>:DATA");
  EXPECT_EQ(Read("CALCulate<Chn>:DATA"), ":CALCulate<n>:DATA");
  EXPECT_EQ(Read("TRIGger[:SEQuence[1]|2]:COUNt"), ":TRIGger[:SEQuence<1-2>]:COUNt");
  EXPECT_EQ(Read("[SOURce<1-2>:]VOLTage"), "[:SOURce<1-2>]:VOLTage");
  EXPECT_EQ(Read("A<2-4294967295>"), ":A<2-4294967295>");
  const auto any = HeaderPattern::Parse("CALCulate<n>");
  ASSERT_TRUE(any);
  EXPECT_EQ(any->Nodes()[0].Suffixes, (SuffixRange{1, SuffixRange::Any}));
}

TEST(HeaderPattern, ANameWithoutCapitalsHasOneForm) {
  EXPECT_EQ(Read("volt:range"), ":VOLT:RANGE");
  EXPECT_EQ(Read("*idn"), "*IDN");
}

TEST(HeaderPattern, IsNothingElse) {
  for (const char* text :
       {"",        ":",       "[A]", "[:A]", "[*A]", "A:",     "A::B",   "::A",          "A]",     "[A:B",
        "A[B]:C",  "A:[B",    "1A",  "A B",  "A?",   "*",      "*1",     ":*IDN",        "*IDN:A", "A:*IDN",
        "*IDN<2>", "*IDN2",   "A<",  "A<>",  "A<1",  "A<4-1>", "A<1-x>", "A<1:4>",       "A{1-4}", "A<n m>",
        "A2<1-4>", "A2[1]",   "A1|", "A1|x", "A|2",  "A[1",    "A[1]|",  "A99999999999", "A|B",    "A;B",
        "A\xE4",   "<1-2>:A", "A,B"}) {
    EXPECT_EQ(Read(text), "none") << text;
  }
}

TEST(HeaderPattern, IsBounded) {
  std::string nodes = "A";
  for (std::size_t i = 1; i < HeaderPattern::MostNodes; ++i) nodes += ":A";
  EXPECT_NE(Read(nodes), "none");
  EXPECT_EQ(Read(nodes + ":A"), "none");
  EXPECT_NE(Read(std::string(HeaderPattern::LongestName, 'A')), "none");
  EXPECT_EQ(Read(std::string(HeaderPattern::LongestName + 1, 'A')), "none");
}

TEST(HeaderPattern, ItsTextReadsBackAsTheSame) {
  for (const char* text : {"*IDN", "[SENSe<1-2>:]VOLTage[:DC]:RANGe<n>", "TEST2:A<0-3>", "A[1]|2[:B]"}) {
    const auto pattern = HeaderPattern::Parse(text);
    ASSERT_TRUE(pattern) << text;
    EXPECT_EQ(HeaderPattern::Parse(pattern->Text()), pattern) << text;
  }
}

} // namespace
} // namespace portico::scpi
