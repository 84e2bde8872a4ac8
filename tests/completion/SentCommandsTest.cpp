#include "completion/SentCommands.h"

#include "completion/Offered.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::completion {
namespace {

std::string All(const SentCommands& sent) {
  std::string text;
  for (const KnownCommand& command : sent.All()) text += (text.empty() ? "" : " ") + TextOf(command);
  return text;
}

std::string Taken(StringView line) {
  SentCommands sent;
  sent.Take(line);
  return All(sent);
}

TEST(SentCommands, AreHeadersInCapitals) {
  EXPECT_EQ(Taken(u"volt:rang 5"), ":VOLT:RANG/nquery/");
  EXPECT_EQ(Taken(u"MEAS:VOLT:DC?"), ":MEAS:VOLT:DC?/qonly/");
  EXPECT_EQ(Taken(u"*idn?"), "*IDN?/qonly/");
  EXPECT_EQ(Taken(u"CHAN2:SCAL 1"), ":CHAN2:SCAL/nquery/");
  EXPECT_EQ(Taken(u""), "");
}

TEST(SentCommands, EachUnitIsOneFromTheRoot) {
  EXPECT_EQ(Taken(u"VOLT:DC:RANG 5;NPLC 1;*CLS;:INIT"),
            ":VOLT:DC:RANG/nquery/ :VOLT:DC:NPLC/nquery/ *CLS/nquery/ :INIT/nquery/");
}

TEST(SentCommands, WordsThatWereParametersAreKept) {
  EXPECT_EQ(Taken(u"OUTP on"), ":OUTP/nquery/ ON|OFF");
  EXPECT_EQ(Taken(u"VOLT? max"), ":VOLT?/qonly/ MINimum|MAXimum|DEFault");
  EXPECT_EQ(Taken(u"APPL ch1,5"), ":APPL/nquery/ CH1");
  EXPECT_EQ(Taken(u"APPL 5,ch1"), ":APPL/nquery/ <value>,CH1");
  EXPECT_EQ(Taken(u"DISP:TEXT \"ON\""), ":DISP:TEXT/nquery/");
  SentCommands sent;
  EXPECT_TRUE(sent.Take(u"TRIG:SOUR BUS"));
  EXPECT_TRUE(sent.Take(u"TRIG:SOUR ext"));
  EXPECT_FALSE(sent.Take(u"TRIG:SOUR BUS"));
  EXPECT_EQ(All(sent), ":TRIG:SOUR/nquery/ BUS|EXT");
}

TEST(SentCommands, ACommandAndItsQueryStandForThemselves) {
  SentCommands sent;
  EXPECT_TRUE(sent.Take(u"VOLT 5"));
  EXPECT_TRUE(sent.Take(u"VOLT?"));
  EXPECT_FALSE(sent.Take(u"VOLT 7"));
  EXPECT_FALSE(sent.Take(u"volt?"));
  EXPECT_EQ(All(sent), ":VOLT/nquery/ :VOLT?/qonly/");
}

TEST(SentCommands, WhatTheStandardDoesNotKnowIsNotTaken) {
  EXPECT_EQ(Taken(u"VOLT 5;$$;CURR 2"), ":VOLT/nquery/");
  EXPECT_EQ(Taken(u"\u00e4:VOLT"), "");
  EXPECT_EQ(Taken(u"hello, world"), "");
}

TEST(SentCommands, ThoseThatWereNotSentForTheLongestTimeAreForgotten) {
  SentCommands sent;
  const auto line = [](std::size_t number) { return u"A" + ToText(static_cast<std::int64_t>(number)); };
  for (std::size_t i = 1; i <= SentCommands::Most; ++i) sent.Take(line(i));
  sent.Take(line(1));
  sent.Take(u"NEW");
  ASSERT_EQ(sent.All().size(), 2000U);
  EXPECT_EQ(TextOf(sent.All().front()), ":A3/nquery/");
  EXPECT_EQ(TextOf(sent.All()[1998]), ":A1/nquery/");
  EXPECT_EQ(TextOf(sent.All().back()), ":NEW/nquery/");
}

TEST(SentCommands, AreCompletedAsTheyWereSent) {
  SentCommands sent;
  sent.Take(u"syst:foo:bar2 on");
  CommandTree tree;
  tree.Add(sent.All());
  EXPECT_EQ(test::Offered(u"sys", tree), "syst:");
  EXPECT_EQ(test::Offered(u"syst:foo:", tree), "syst:foo:bar2");
  EXPECT_EQ(test::Offered(u"syst:foo:bar2 ", tree), "syst:foo:bar2 on syst:foo:bar2 off");
}

} // namespace
} // namespace portico::completion
