#include "completion/KnownCommand.h"

#include <gtest/gtest.h>

namespace portico::completion {
namespace {

/// A line as it is understood; "none" for one that is no command.
std::string CommandIn(std::string_view line) {
  const auto command = ReadCommand(line);
  return command ? TextOf(*command) : "none";
}

TEST(KnownCommand, AHeaderIsACommandAndAQuery) {
  const auto command = ReadCommand("[SENSe:]VOLTage");
  ASSERT_TRUE(command);
  EXPECT_TRUE(command->Command);
  EXPECT_TRUE(command->Query);
  EXPECT_EQ(command->Header.Text(), "[:SENSe]:VOLTage");
}

TEST(KnownCommand, MarksMakeItOneAlone) {
  for (const char* line : {":READ?", ":READ?/qonly/", ":READ/qonly/", "READ?/QONLY/"})
    EXPECT_EQ(CommandIn(line), ":READ?/qonly/");
  EXPECT_EQ(CommandIn(":ABORt/nquery/"), ":ABORt/nquery/");
  const auto query = ReadCommand("READ?");
  ASSERT_TRUE(query);
  EXPECT_FALSE(query->Command);
  EXPECT_TRUE(query->Query);
  const auto command = ReadCommand("ABORt/nquery/");
  ASSERT_TRUE(command);
  EXPECT_TRUE(command->Command);
  EXPECT_FALSE(command->Query);
}

TEST(KnownCommand, BlanksAroundItAreNothing) { EXPECT_EQ(CommandIn(" \t*IDN? \r"), "*IDN?/qonly/"); }

TEST(KnownCommand, HasParameters) {
  EXPECT_EQ(CommandIn("OUTPut ON|OFF"), ":OUTPut ON|OFF");
  EXPECT_EQ(CommandIn("OUTPut\tON | OFF"), ":OUTPut ON|OFF");
  EXPECT_EQ(CommandIn("VOLT <volts>|MINimum|MAXimum"), ":VOLT MINimum|MAXimum");
  EXPECT_EQ(CommandIn("VOLT {<volts>|MINimum},{CH1|CH2}"), ":VOLT MINimum,CH1|CH2");
  EXPECT_EQ(CommandIn("CONF [<range>[,<resolution>|DEFault]]"), ":CONF <value>,DEFault");
  EXPECT_EQ(CommandIn("APPL <a|b,c>,ON"), ":APPL <value>,ON");
  EXPECT_EQ(CommandIn("APPL ON|ON|OFF"), ":APPL ON|OFF");
  EXPECT_EQ(CommandIn("SAMP 1|2|MAX"), ":SAMP MAX");
  EXPECT_EQ(CommandIn("FUNC \"VOLT\"|\"CURR\""), ":FUNC");
  EXPECT_EQ(CommandIn("SAMP <n>"), ":SAMP");
  EXPECT_EQ(CommandIn("SAMP ,,"), ":SAMP");
}

TEST(KnownCommand, IsNothingElse) {
  for (const char* line :
       {"", " ", "?", "/nquery/", "READ??", "READ?/nquery/", "ABORt/nquery//qonly/", "READ/other/", "1", "A:", "<"}) {
    EXPECT_EQ(CommandIn(line), "none") << line;
  }
}

TEST(KnownCommand, IsBounded) {
  const std::string header = "A ";
  EXPECT_EQ(CommandIn(header + std::string(KnownCommand::LongestLine - 2, '1')), ":A");
  EXPECT_EQ(CommandIn(header + std::string(KnownCommand::LongestLine - 1, '1')), "none");
  std::string many = "A B";
  for (int i = 0; i < 30; ++i) many += ",B";
  EXPECT_EQ(ReadCommand(many).value().Parameters.size(), 16U);
  many = "A B0";
  for (int i = 1; i < 100; ++i) many += "|B" + std::to_string(i);
  EXPECT_EQ(ReadCommand(many).value().Parameters.at(0).size(), 64U);
  EXPECT_EQ(CommandIn("A " + std::string(64, 'B')), ":A " + std::string(64, 'B'));
  EXPECT_EQ(CommandIn("A " + std::string(65, 'B')), ":A");
}

} // namespace
} // namespace portico::completion
