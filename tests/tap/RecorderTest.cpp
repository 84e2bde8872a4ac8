#include "tap/Recorder.h"

#include "tap/TapBench.h"

#include <gmock/gmock.h>

namespace portico::tap {
namespace {

using testing::ElementsAre;

class RecorderTest : public TapBench {};

TEST_F(RecorderTest, WritesNothingBeforeItIsAskedTo) {
  const auto session = Record->Begin();
  Record->Instruction(session, {"*IDN?", 5, true});
  EXPECT_THAT(Logged(), ElementsAre());
  Record->Write();
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "> *IDN?"));
}

TEST_F(RecorderTest, TellsOfAMessageOfWhichOnlyTheBeginningIsKept) {
  const auto session = Record->Begin();
  Record->Response(session, {"abc", 70000000, false});
  Record->Write();
  EXPECT_THAT(Logged(), ElementsAre("unclosed", "< abc"));
  EXPECT_THAT(Told, ElementsAre("of a message of 70000000 bytes the first 3 are kept"));
}

TEST_F(RecorderTest, SessionEndsWithTheNextAndHearsNothingMore) {
  const auto first = Record->Begin();
  const auto second = Record->Begin();
  Record->Response(first, {"late", 4, false});
  Record->Response(second, {"1", 1, false});
  Record->End(first);
  Record->Response(second, {"2", 1, false});
  Record->Write();
  EXPECT_THAT(Logged(), ElementsAre("-", "unclosed", "< 1", "< 2"));
}

TEST_F(RecorderTest, LogIsClosedInTheEnd) {
  const auto session = Record->Begin();
  Record->Response(session, {"1", 1, false});
  EndRecording();
  EXPECT_THAT(Logged(), ElementsAre("-", "< 1"));
}

} // namespace
} // namespace portico::tap
