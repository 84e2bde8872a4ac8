#include "recordings/Recording.h"

#include "simulator/Session.h"
#include "support/Files.h"
#include "support/LogTexts.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace portico::recordings {
namespace {

using namespace std::string_literals;
using test::LogElementOf;
using test::LogOf;
using test::LogSessionOf;
using test::ResponseOf;
using test::Session;

std::string Asked(const std::string& text) { return LogElementOf("Instruction", "01", text + "\r\n"); }
std::string Sent(const std::string& text) { return LogElementOf("AutomaticInstruction", "02", text); }
std::string Answered(const std::string& bytes) { return ResponseOf("03", bytes + "\r\n"); }

class RecordingTest : public testing::Test {
protected:
  std::string Write(const std::string& bytes) const {
    m_folder.Write("a.log", bytes);
    return m_folder.At("a.log");
  }
  Recording Read(const std::string& bytes, const RecordingOptions& options = {}) const {
    return ReadRecording(Write(bytes), options);
  }
  /// Of one session.
  Session Replay(const std::string& entities) const { return Session(Read(LogOf(LogSessionOf(entities))).Instrument); }

  test::TemporaryFolder m_folder;
};

TEST_F(RecordingTest, AnswersWhatWasAnsweredWhoeverHadAsked) {
  auto session = Replay(Sent("*OPC?") + Answered("1") + Asked("MEAS?") + Answered("+1.5") + Sent(":SYST:ERR?") +
                        Answered("0,\"No error\""));
  EXPECT_EQ(session.Ask("*OPC?"), "1");
  EXPECT_EQ(session.Ask("MEAS?"), "+1.5");
  EXPECT_EQ(session.Ask(":SYST:ERR?"), "0,\"No error\"");
}

TEST_F(RecordingTest, AnswersInTheBytesThatTheInstrumentSent) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  auto session = Replay(Asked("A?") + Answered("#3256" + all) + Asked("B?") + ResponseOf("03", "#14ab\r\n") +
                        Asked("C?") + Answered(" x\r") + Asked("DATA \xC3\xA4?") + Answered("\xFC"));
  EXPECT_EQ(session.Ask("A?"), "#3256" + all);
  EXPECT_EQ(session.Ask("B?"), "#14ab\r\n") << "a line end that ends a block is the block's own";
  EXPECT_EQ(session.Ask("C?"), " x\r");
  EXPECT_EQ(session.Ask("DATA \xE4?"), "\xFC");
}

TEST_F(RecordingTest, MessagesOfTheDriverAreNoAnswers) {
  auto session = Replay(Asked("A?") + Answered("Timeout expired before the answer was complete: 10.0.0.1, port 5025.") +
                        Asked("B?") + Answered("2"));
  EXPECT_EQ(session.Ask("A?"), "(none)");
  EXPECT_EQ(session.Ask("SYST:ERR?"), "0,\"No error\"");
  EXPECT_EQ(session.Ask("B?"), "2");
}

TEST_F(RecordingTest, OtherEntitiesAndAnswersToNothingArePassedOver) {
  const std::string first = LogSessionOf(Answered("0") + Asked("A?") + LogElementOf("Configuration", "02", "x"));
  const std::string second = LogSessionOf(Answered("1") + Asked("B?") + Answered("2"));
  Session session(Read(LogOf(first + second)).Instrument);
  EXPECT_EQ(session.Ask("A?"), "(none)") << "the next session's first answer is none to it";
  EXPECT_EQ(session.Ask("B?"), "2");
}

TEST_F(RecordingTest, OneSessionAloneMayBeWanted) {
  const std::string log = LogOf(LogSessionOf(Asked("A?") + Answered("1")) + LogSessionOf(Asked("A?") + Answered("2")));
  Session whole(Read(log).Instrument);
  EXPECT_EQ(whole.Ask("A?"), "1");
  EXPECT_EQ(whole.Ask("A?"), "2");
  Session second(Read(log, {.Session = 2}).Instrument);
  EXPECT_EQ(second.Ask("A?"), "2");
  const auto third = Read(log, {.Session = 3});
  EXPECT_EQ(third.Instrument, nullptr);
  EXPECT_EQ(third.Fault, "it has no session 3");
}

TEST_F(RecordingTest, ALogThatCannotBeReadIsRefused) {
  const auto faultOf = [this](const std::string& bytes) {
    const auto recording = Read(bytes);
    EXPECT_EQ(recording.Instrument, nullptr);
    return recording.Fault;
  };
  EXPECT_EQ(faultOf(""), "line 1: no element found");
  EXPECT_EQ(faultOf("no log"), "line 1: syntax error");
  EXPECT_EQ(faultOf("<a/>"), "it is no log");
  EXPECT_EQ(faultOf("<SCPICommLog><Header ApplicationName=\"x\"/></SCPICommLog>"), "it is no log of Tolvane Portico");
  EXPECT_EQ(faultOf(LogOf(LogSessionOf(Asked("A?") + "<Response DataType=\"Response\" Timestamp=\"t\">4</Response>"))),
            "the entity Response of t has a payload that is not hexadecimal");
  EXPECT_EQ(faultOf(LogOf(LogSessionOf(Asked("A?") + LogElementOf("Response", "01", "\xC4\xA3")))),
            "the answer of 2004-11-01T16:42:01.000000000-5:00 holds a character that stands for no byte");
  EXPECT_EQ(ReadRecording(m_folder.At("none"), {}).Fault, "it cannot be opened");
  EXPECT_EQ(ReadRecording(m_folder.Path().string(), {}).Fault, "it is a directory");
}

TEST_F(RecordingTest, OfALogWhoseEndIsMissingTheRestIsReplayed) {
  const std::string whole = LogOf(LogSessionOf(Asked("A?") + Answered("1")));
  auto recording = Read(whole.substr(0, whole.find("</Session>")) + "<Instr");
  EXPECT_EQ(recording.Fault, "its end is missing (line 2: unclosed token)");
  ASSERT_NE(recording.Instrument, nullptr);
  EXPECT_EQ(Session(std::move(recording.Instrument)).Ask("A?"), "1");
}

TEST_F(RecordingTest, IsMadeForASimulatedInstrumentByItsPath) {
  const auto make = Recordings();
  const std::string path = Write(LogOf(LogSessionOf(Asked("A?") + Answered("1"))));
  EXPECT_EQ(Session(make(path)).Ask("A?"), "1");
  std::filesystem::rename(path, m_folder.At("\xC3\xA4.log"));
  EXPECT_EQ(Session(make(m_folder.At("\xE4.log"))).Ask("A?"), "1") << "names come in the code page";
}

TEST_F(RecordingTest, ASimulatedInstrumentWithoutALogIsRefusedWithTheReason) {
  const auto refusalOf = [](const std::string& path) -> std::string {
    try {
      Recordings()(path);
    } catch (const simulator::NoInstrument& refusal) {
      return refusal.what();
    }
    return "made";
  };
  EXPECT_EQ(refusalOf("/nowhere/a.log"), "/nowhere/a.log: it cannot be opened");
  EXPECT_EQ(refusalOf("/dev/zero"), "/dev/zero: it is no file");
  EXPECT_EQ(refusalOf(""), ": it cannot be opened");
}

} // namespace
} // namespace portico::recordings
