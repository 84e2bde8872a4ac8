#include "completion/CommandList.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace portico::completion {
namespace {

/// The commands, a blank between, and behind a bar the complaint.
std::string ListIn(std::string_view bytes) {
  const CommandList list = ReadCommandList(bytes);
  std::string text;
  for (const KnownCommand& command : list.Commands) text += TextOf(command) + ' ';
  return text + "| " + ToUtf8(list.Complaint);
}

TEST(CommandList, HasACommandALine) {
  EXPECT_EQ(ListIn("*IDN?\nOUTPut[:STATe] ON|OFF\n"), "*IDN?/qonly/ :OUTPut[:STATe] ON|OFF | ");
  EXPECT_EQ(ListIn("*IDN?\r\nABORt/nquery/"), "*IDN?/qonly/ :ABORt/nquery/ | ");
  EXPECT_EQ(ListIn(""), "| ");
}

TEST(CommandList, RemarksAndEmptyLinesArePassedOver) {
  EXPECT_EQ(ListIn("# *IDN?\n\n \t# none!\n\t\n*CLS/nquery/\n"), "*CLS/nquery/ | ");
  EXPECT_EQ(ListIn("# \xC3\xA4, \xE4\nREAD?\n"), ":READ?/qonly/ | ");
}

TEST(CommandList, AByteOrderMarkIsNothing) { EXPECT_EQ(ListIn("\xEF\xBB\xBF*IDN?\n"), "*IDN?/qonly/ | "); }

TEST(CommandList, TellsTheLineThatIsNoCommand) {
  EXPECT_EQ(ListIn("*IDN?\n\nVOLT[:DC\nREAD?\n"), "*IDN?/qonly/ :READ?/qonly/ | Line 3 is no command.");
  EXPECT_EQ(ListIn("# x\n$\nREAD?\n:\n"), ":READ?/qonly/ | Line 2 is no command, and 1 other is none.");
  EXPECT_EQ(ListIn("$\n$\n$"), "| Line 1 is no command, and 2 others are none.");
}

TEST(CommandList, WhatIsNoTextIsRefused) {
  EXPECT_EQ(ListIn(std::string_view("*IDN?\nREAD\0?\n", 13)), "| Line 2 is no text.");
  EXPECT_EQ(ListIn("\x7F"
                   "ELF\x02\x01"),
            "| Line 1 is no text.");
  EXPECT_EQ(ListIn(std::string_view("\xFF\xFE*\0I\0", 6)), "| Line 1 is no text.");
}

TEST(CommandList, WhatIsTooLongIsRefused) {
  std::string bytes = "*IDN?\n";
  bytes.resize(CommandList::MostBytes, ' ');
  EXPECT_EQ(ListIn(bytes), "*IDN?/qonly/ | ");
  bytes += ' ';
  EXPECT_EQ(ListIn(bytes), "| The list is longer than 4 MB.");
}

TEST(CommandList, TellsTheFirstLineThatIsOneTooMany) {
  std::string bytes;
  for (std::size_t i = 0; i < KnownCommand::Most + 2; ++i) bytes += "A\n";
  const CommandList list = ReadCommandList(bytes);
  EXPECT_EQ(list.Commands.size(), 20000U);
  EXPECT_EQ(ToUtf8(list.Complaint), "A list has 20000 commands at most, and line 20001 is one more.");
}

TEST(CommandList, TheStandardsListIsOne) {
  std::ifstream file(std::string(COMMAND_LISTS) + "/SCPI-99.txt", std::ios::binary);
  const std::string text = ListIn(std::string(std::istreambuf_iterator<char>(file), {}));
  EXPECT_TRUE(text.ends_with("| ")) << text;
  for (const char* command :
       {"*CLS/nquery/", "*ESE", "*ESR?/qonly/", "*IDN?/qonly/", "*OPC", "*RST/nquery/", "*SRE", "*STB?/qonly/",
        "*TST?/qonly/", "*WAI/nquery/", ":SYSTem:ERRor[:NEXT]?/qonly/", ":SYSTem:VERSion?/qonly/",
        ":STATus:OPERation[:EVENt]?/qonly/", ":STATus:OPERation:CONDition?/qonly/", ":STATus:OPERation:ENABle",
        ":STATus:QUEStionable[:EVENt]?/qonly/", ":STATus:QUEStionable:CONDition?/qonly/", ":STATus:QUEStionable:ENABle",
        ":STATus:PRESet/nquery/"}) {
    EXPECT_NE((' ' + text).find(' ' + std::string(command) + ' '), std::string::npos) << command;
  }
}

} // namespace
} // namespace portico::completion
