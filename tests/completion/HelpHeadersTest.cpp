#include "completion/HelpHeaders.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::completion {
namespace {

/// The commands, a blank between, and behind a bar how many lines were not understood.
std::string HeadersIn(std::string_view answer) {
  const HelpHeaders headers = ReadHelpHeaders(answer);
  std::string text;
  for (const KnownCommand& command : headers.Commands) text += TextOf(command) + ' ';
  return text + "| " + std::to_string(headers.NotUnderstood);
}

TEST(HelpHeaders, AreLinesInABlock) {
  EXPECT_EQ(HeadersIn("#235*CLS/nquery/\n:SYSTem:ERRor?/qonly/\n\n"), "*CLS/nquery/ :SYSTem:ERRor?/qonly/ | 0");
  EXPECT_EQ(HeadersIn("#0:A\n:B\n"), ":A :B | 0");
  EXPECT_EQ(HeadersIn("#16:A\n:BC\n:D"), ":A :BC | 0");
}

TEST(HelpHeaders, AreBareLines) {
  EXPECT_EQ(HeadersIn(":A\n:B\n"), ":A :B | 0");
  EXPECT_EQ(HeadersIn(":A\r\n:B"), ":A :B | 0");
  EXPECT_EQ(HeadersIn("\n\n"), "| 0");
  EXPECT_EQ(HeadersIn(""), "| 0");
}

TEST(HelpHeaders, WhatIsNotUnderstoodIsCounted) {
  EXPECT_EQ(HeadersIn(":A\nno header!\n:B\n$$\n"), ":A :B | 2");
  EXPECT_EQ(HeadersIn("\xFF\xFE\n"), "| 1");
  EXPECT_EQ(HeadersIn(" :A \nOUTPut ON|OFF\n"), ":A | 1");
  EXPECT_EQ(HeadersIn("#x\n:A\n"), ":A | 1");
}

TEST(HelpHeaders, OfATornBlockTheLineThatBreaksOffIsNotTaken) {
  EXPECT_EQ(HeadersIn("#240:A\n:SYSTem:ERR"), ":A | 1");
  EXPECT_EQ(HeadersIn("#240:A\n:B\n"), ":A :B | 0");
  EXPECT_EQ(HeadersIn("#240:SYST"), "| 1");
  EXPECT_EQ(HeadersIn("#240"), "| 0");
}

TEST(HelpHeaders, AreBounded) {
  std::string answer;
  for (std::size_t i = 0; i < KnownCommand::Most + 3; ++i) answer += ":A\n";
  const HelpHeaders headers = ReadHelpHeaders(answer);
  EXPECT_EQ(headers.Commands.size(), 20000U);
  EXPECT_EQ(headers.NotUnderstood, 3U);
}

} // namespace
} // namespace portico::completion
