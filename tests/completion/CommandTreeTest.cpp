#include "completion/CommandTree.h"

#include "completion/Offered.h"

#include <gtest/gtest.h>

namespace portico::completion {
namespace {

using test::Commands;
using test::Offered;

TEST(CommandTree, WhatAPreferredSourceHasIsNotTakenAgain) {
  CommandTree tree;
  tree.Add(Commands({"[SENSe:]VOLTage:RANGe"}));
  tree.Add(Commands({"VOLTAGE:RANGE", "SENS:VOLT:RANG"})); // as they were typed, without a short form
  EXPECT_EQ(Offered(u"V", tree), "VOLT:");
  EXPECT_EQ(Offered(u"VOLT:", tree), "VOLT:RANG VOLT:RANG?");
  EXPECT_EQ(Offered(u"VOLTAGE:", tree), "VOLTAGE:RANGE VOLTAGE:RANGE?");
}

TEST(CommandTree, WhatItHasInPartIsTaken) {
  CommandTree tree;
  tree.Add(Commands({"SENSe:VOLTage?", "CURRent?"}));
  tree.Add(Commands({"[SENSe:]VOLTage?", "CURRent[:DC]?", "CURRent/nquery/"}));
  EXPECT_EQ(Offered(u"V", tree), "VOLT?");
  EXPECT_EQ(Offered(u"CURR", tree), "CURR? CURR CURR:");
}

TEST(CommandTree, AMergedHeaderHasItsParametersFromWhoeverToldThemFirst) {
  CommandTree tree;
  tree.Add(Commands({"OUTPut[:STATe]", "VOLTage AUTO"}));
  tree.Add(Commands({"OUTPut:STATe ON|OFF", "OUTPut[:STATe]? NOW", "VOLTage MAX"}));
  tree.Add(Commands({"OUTPut[:STATe] NEVER"}));
  EXPECT_EQ(Offered(u"OUTP ", tree), "OUTP ON OUTP OFF");
  EXPECT_EQ(Offered(u"OUTP:STAT ", tree), "OUTP:STAT ON OUTP:STAT OFF");
  EXPECT_EQ(Offered(u"OUTP? ", tree), "OUTP? NOW");
  EXPECT_EQ(Offered(u"VOLT ", tree), "VOLT AUTO");
}

TEST(CommandTree, WhatWasToldOfAHeaderIsNotToldOfALongerOneThatComesLater) {
  CommandTree tree;
  tree.Add(Commands({"VOLTage[:LEVel]?/qonly/"}));
  tree.Add(Commands({"VOLTage/nquery/ MIN|MAX"}));
  tree.Add(Commands({"VOLTage[:LEVel]/nquery/ UP|DOWN"}));
  EXPECT_EQ(Offered(u"VOLT ", tree), "VOLT MIN VOLT MAX");
  EXPECT_EQ(Offered(u"VOLT:LEV ", tree), "VOLT:LEV UP VOLT:LEV DOWN");
}

TEST(CommandTree, AShorterNameIsAnother) {
  CommandTree tree;
  tree.Add(Commands({"VOLTage?", "VOLume?"}));
  EXPECT_EQ(Offered(u"VOL", tree), "VOLT? VOL?");
  EXPECT_EQ(Offered(u"VOLU", tree), "VOLUME?");
}

TEST(CommandTree, ANodeThatIsReachedInSeveralWaysIsThereOnce) {
  CommandTree tree;
  tree.Add(Commands({"X[:A][:A][:A]:B?"}));
  EXPECT_EQ(Offered(u"X:A:A:", tree), "X:A:A:A: X:A:A:B?");
  CommandTree::Places places = CommandTree::Behind(tree.Root(), {"X", {}});
  EXPECT_EQ(places.size(), 4U);
  places = CommandTree::Behind(places, {"A", {}});
  EXPECT_EQ(places.size(), 3U);
}

TEST(CommandTree, IsBounded) {
  CommandTree tree;
  std::vector<KnownCommand> commands;
  const auto name = [](std::size_t number) {
    std::string letters = "N";
    for (; number > 0; number /= 26) letters += static_cast<char>('A' + number % 26);
    return letters + 'Z';
  };
  for (std::size_t i = 0; i < CommandTree::MostNodes / 10 + 1; ++i) {
    std::string header = name(i);
    for (int node = 1; node < 10; ++node) header += ":A";
    commands.push_back(ReadCommand(header + "?").value());
  }
  commands.push_back(ReadCommand("LATE?").value());
  tree.Add(commands);
  EXPECT_EQ(Offered(u"LA", tree), "");
  EXPECT_EQ(Offered(u"NZ:A:A:A:A:A:A:A:A:", tree), "NZ:A:A:A:A:A:A:A:A:A?");
}

} // namespace
} // namespace portico::completion
