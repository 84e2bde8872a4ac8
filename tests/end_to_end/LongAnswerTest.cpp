#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

constexpr std::size_t LongestShown = 1048574;

InstrumentScript AnswersOf(std::size_t length) {
  return {{"LONG?", Reaction::Answer(std::string(length, '7') + "\n")}, {"Q?", Reaction::Answer("answer\n")}};
}

/// What is said of a dropped answer to the second line.
std::string Told(const std::string& length) {
  return "portico-run: standard input:2: an answer of " + length + " bytes is too long and was dropped\n";
}

TEST(LongAnswer, IsShownAsLongAsItFits) {
  const ScriptedServer server(AnswersOf(LongestShown));
  const Outcome outcome = RunPortico(BareOptions + Arguments{server.ResourceName()}, "REM a\nLONG?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out.size(), std::string("# REM a\n> LONG?\n< \n").size() + LongestShown);
}

TEST(LongAnswer, ThatIsDroppedIsToldWithItsPlaceAndLengthAndIsADriverFailure) {
  for (const std::string length : {"1048575", "1048576", "2500000"}) {
    const ScriptedServer server(AnswersOf(std::stoul(length)));
    const Outcome outcome = RunPortico(BareOptions + Arguments{server.ResourceName()}, "REM a\nLONG?\nQ?\n");
    EXPECT_EQ(outcome.status, 4) << length;
    EXPECT_EQ(outcome.err, Told(length));
    EXPECT_EQ(outcome.out, "# REM a\n> LONG?\n> Q?\n< answer\n") << length;
  }
}

TEST(LongAnswer, DoesNotStopARunThatStopsAtErrors) {
  const ScriptedServer server(AnswersOf(LongestShown + 1));
  const Outcome outcome =
      RunPortico(BareOptions + Arguments{"--stop-on-error", server.ResourceName()}, "REM a\nLONG?\nQ?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err, Told("1048575"));
  EXPECT_TRUE(outcome.out.ends_with("> Q?\n< answer\n")) << outcome.out;
}

} // namespace
} // namespace portico::test
