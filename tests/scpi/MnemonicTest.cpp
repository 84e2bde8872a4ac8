#include "scpi/Mnemonic.h"

#include <gtest/gtest.h>

namespace portico::scpi {
namespace {

TEST(Mnemonic, HasAShortAndALongForm) {
  const Mnemonic mnemonic("VOLTage");
  EXPECT_EQ(mnemonic.Short(), "VOLT");
  EXPECT_EQ(mnemonic.Long(), "VOLTAGE");
}

TEST(Mnemonic, MatchesBothFormsInAnyCase) {
  const Mnemonic mnemonic("VOLTage");
  for (const char* text : {"VOLT", "volt", "Volt", "VOLTAGE", "voltage", "vOlTaGe"}) {
    EXPECT_TRUE(mnemonic.Matches(text)) << text;
  }
}

TEST(Mnemonic, MatchesNothingBetweenOrBeyond) {
  const Mnemonic mnemonic("SYSTem");
  for (const char* text : {"", "S", "SYS", "SYSTE", "SYSTEMS", "SYSTX"}) EXPECT_FALSE(mnemonic.Matches(text)) << text;
}

TEST(Mnemonic, DigitsAndAsterisksBelongToBothForms) {
  EXPECT_TRUE(Mnemonic("CHANnel2").Matches("chan2"));
  EXPECT_TRUE(Mnemonic("CHANnel2").Matches("CHANNEL2"));
  EXPECT_FALSE(Mnemonic("CHANnel2").Matches("CHAN"));
  EXPECT_TRUE(Mnemonic("*IDN").Matches("*idn"));
}

TEST(Mnemonic, AnAllCapitalOneHasOneForm) {
  const Mnemonic mnemonic("DC");
  EXPECT_EQ(mnemonic.Short(), mnemonic.Long());
  EXPECT_TRUE(mnemonic.Matches("dc"));
}

} // namespace
} // namespace portico::scpi
