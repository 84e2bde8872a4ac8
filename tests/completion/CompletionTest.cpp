#include "completion/Completion.h"

#include "completion/Offered.h"
#include "support/Allocation.h"

#include <gtest/gtest.h>

namespace portico::completion {
namespace {

using test::Offered;

TEST(Completion, GoesOnWithTheNextNode) {
  const test::Lines lines = {"SYSTem:ERRor?", "SYSTem:VERSion?", "STATus:PRESet/nquery/", "ABORt/nquery/"};
  EXPECT_EQ(Offered(u"S", lines), "STAT: SYST:");
  EXPECT_EQ(Offered(u"SYST:", lines), "SYST:ERR? SYST:VERS?");
  EXPECT_EQ(Offered(u"SYST:V", lines), "SYST:VERS?");
  EXPECT_EQ(Offered(u"A", lines), "ABOR");
  EXPECT_EQ(Offered(u"", lines), "ABOR STAT: SYST:");
  EXPECT_EQ(Offered(u"X", lines), "");
  EXPECT_EQ(Offered(u"SYST:X", lines), "");
  EXPECT_EQ(Offered(u"X:E", lines), "");
}

TEST(Completion, TellsCommandsQueriesAndTheWayOnApart) {
  const test::Lines lines = {"RANGe", "RANGe:AUTO", "NPLC/nquery/", "READ?"};
  EXPECT_EQ(Offered(u"R", lines), "RANG RANG? RANG: READ?");
  EXPECT_EQ(Offered(u"RANG", lines), "RANG RANG? RANG:");
  EXPECT_EQ(Offered(u"NPLC", lines), "NPLC");
  EXPECT_EQ(Offered(u"RANG:AUTO", lines), "RANG:AUTO RANG:AUTO?");
  EXPECT_EQ(Offered(u"READ?", lines), "");
}

TEST(Completion, TakesTheFormThatIsTyped) {
  const test::Lines lines = {"SYSTem:ERRor?"};
  EXPECT_EQ(Offered(u"SYS", lines), "SYST:");
  EXPECT_EQ(Offered(u"SYSTE", lines), "SYSTEM:");
  EXPECT_EQ(Offered(u"SYST:E", lines), "SYST:ERR?");
  EXPECT_EQ(Offered(u"SYSTEM:E", lines), "SYSTEM:ERROR?");
  EXPECT_EQ(Offered(u"SYST:ERRO", lines), "SYST:ERROR?");
  EXPECT_EQ(Offered(u"SYSTE:E", lines), "");
}

TEST(Completion, TakesTheCaseThatIsTyped) {
  const test::Lines lines = {"SYSTem:ERRor?"};
  EXPECT_EQ(Offered(u"sy", lines), "syst:");
  EXPECT_EQ(Offered(u"syst:", lines), "syst:err?");
  EXPECT_EQ(Offered(u"SYST:e", lines), "SYST:err?");
  EXPECT_EQ(Offered(u"SYSTe", lines), "SYSTem:");
  EXPECT_EQ(Offered(u"SYSTem:", lines), "SYSTem:ERRor?");
  EXPECT_EQ(Offered(u"Syste", lines), "System:");
}

TEST(Completion, UnderstandsNodesThatAreLeftOut) {
  const test::Lines lines = {"[SENSe:]VOLTage[:DC]:RANGe[:UPPer]", "[SENSe:]VOLTage:AC:RANGe", "SYSTem:ERRor[:NEXT]?"};
  EXPECT_EQ(Offered(u"VOLT:R", lines), "VOLT:RANG VOLT:RANG? VOLT:RANG:");
  EXPECT_EQ(Offered(u"SENS:VOLT:DC:R", lines), "SENS:VOLT:DC:RANG SENS:VOLT:DC:RANG? SENS:VOLT:DC:RANG:");
  EXPECT_EQ(Offered(u"SENS:V", lines), "SENS:VOLT:");
  EXPECT_EQ(Offered(u"", lines), "SENS: SYST: VOLT:");
  EXPECT_EQ(Offered(u"VOLT:", lines), "VOLT:AC: VOLT:DC: VOLT:RANG VOLT:RANG? VOLT:RANG:");
  EXPECT_EQ(Offered(u"VOLT:AC:", lines), "VOLT:AC:RANG VOLT:AC:RANG?");
  EXPECT_EQ(Offered(u"VOLT:DC:A", lines), "");
  EXPECT_EQ(Offered(u"SYST:E", lines), "SYST:ERR? SYST:ERR:");
}

TEST(Completion, CommonCommandsStandAtTheRootAlone) {
  const test::Lines lines = {"*IDN?", "*CLS/nquery/", "ABORt/nquery/", "SYSTem:ERRor?"};
  EXPECT_EQ(Offered(u"", lines), "ABOR SYST: *CLS *IDN?");
  EXPECT_EQ(Offered(u"*", lines), "*CLS *IDN?");
  EXPECT_EQ(Offered(u"*i", lines), "*idn?");
  EXPECT_EQ(Offered(u":", lines), ":ABOR :SYST:");
  EXPECT_EQ(Offered(u":*", lines), "");
  EXPECT_EQ(Offered(u"SYST:*", lines), "");
}

TEST(Completion, TellsWhatItReplaces) {
  CommandTree tree;
  tree.Add(test::Commands({"SYSTem:ERRor[:NEXT]?", "OUTPut ON|OFF"}));
  const Completion node = Complete(u"  SYST:er", tree);
  EXPECT_EQ(node.Begin, 7U);
  EXPECT_EQ(node.Candidates, (std::vector<Candidate>{{u"err?", u"ERRor?"}, {u"err:", u"ERRor:"}}));
  const Completion whole = Complete(u"ou", tree);
  EXPECT_EQ(whole.Begin, 0U);
  EXPECT_EQ(whole.Candidates, (std::vector<Candidate>{{u"outp", u"OUTPut ON|OFF"}, {u"outp?", u"OUTPut?"}}));
  EXPECT_EQ(Complete(u"SYST:", tree).Begin, 5U);
}

TEST(Completion, IsInTheOrderOfTheSourcesAndThenOfTheNames) {
  CommandTree tree;
  tree.Add(test::Commands({"VOLTage:RANGe", "VOLTage:NPLC?"}));
  tree.Add(test::Commands({"ABORt/nquery/", "VOLTage:AUTO/nquery/", "VOLTage:RANGe:UPPer?"}));
  tree.Add(test::Commands({"AAA/nquery/", "CURR/nquery/"}));
  EXPECT_EQ(Offered(u"", tree), "VOLT: ABOR AAA CURR");
  EXPECT_EQ(Offered(u"VOLT:", tree), "VOLT:NPLC? VOLT:RANG VOLT:RANG? VOLT:AUTO VOLT:RANG:");
}

TEST(Completion, IsBounded) {
  CommandTree tree;
  std::vector<KnownCommand> commands;
  for (char first = 'A'; first <= 'Z'; ++first) {
    for (char second = 'A'; second <= 'Z'; ++second) {
      commands.push_back(ReadCommand(std::string{first, second} + "/nquery/").value());
    }
  }
  tree.Add(commands);
  const Completion completion = Complete(u"", tree);
  ASSERT_EQ(completion.Candidates.size(), 200U);
  EXPECT_EQ(completion.Candidates.front().Text, u"AA");
  EXPECT_EQ(completion.Candidates.back().Text, u"HR"); // the two hundredth
  EXPECT_EQ(Complete(u"Z", tree).Candidates.size(), 26U);
}

TEST(Completion, MemoryDoesNotGrowWithWhatFits) {
  CommandTree tree;
  std::vector<KnownCommand> commands;
  for (int i = 0; i < 26 * 26 * 26; ++i) {
    const std::string name = {static_cast<char>('A' + i / 676), static_cast<char>('A' + i / 26 % 26),
                              static_cast<char>('A' + i % 26)};
    commands.push_back(ReadCommand(name + "<1-8>").value());
  }
  tree.Add(commands);
  Completion completion;
  const std::size_t largest = test::LargestAllocation([&] { completion = Complete(u"", tree); });
  EXPECT_EQ(completion.Candidates.size(), 200U);
  EXPECT_LE(largest, 2 * Completion::Most * sizeof(Candidate));
}

TEST(Completion, OffersNothingForWhatIsNoScpi) {
  const test::Lines lines = {"SYSTem:ERRor?", "A<1-2>"};
  for (const StringView line : {u"SYST::", u"1", u"SYST:1", u"\u00e4", u"SYST:\u00e4", u"SY ST:", u"?", u"SYST?:", u"#",
                                u"\"", u"\u0153YST:"}) {
    EXPECT_EQ(Offered(line, lines), "") << ToUtf8(line);
  }
}

} // namespace
} // namespace portico::completion
