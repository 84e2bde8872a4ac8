#include "terminal/BatchRunBench.h"

#include "document/entities/CDataFIFO.h"
#include "document/entities/CSelectionIterator.h"
#include "support/Files.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iomanip>

#include <unistd.h>

namespace portico::terminal {
namespace {

class RunLogTest : public test::BatchRunBench {
protected:
  RunLogTest() {
    Options.LogFile = FromAscii((Folder / "run.xml").string());
    TurnOffPacingAndChecking();
  }

  /// The entities of the log, as "TYPE text".
  std::vector<std::string> Logged() const {
    const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(Options.LogFile, false));
    const auto iterator = Create<IIterator>(u"SelectionIterator", modGlobals::VarArray(u"IterateAll"));
    iterator->Attach(store->FillDataContainerFromStore());
    std::vector<std::string> entities;
    for (Value item = iterator->FirstItem(); !iterator->IsDone(); item = iterator->NextItem()) {
      const auto entity = item.ToObject<IDataEntity>();
      entities.push_back(ToUtf8(entity->DataType() + u" " + FromBytes(entity->ReadData())));
    }
    return entities;
  }
  std::string Content() const { return test::ReadFile(ToUtf8(Options.LogFile)); }
  std::size_t Occurrences(const std::string& text) const {
    const std::string content = Content();
    std::size_t count = 0;
    for (auto at = content.find(text); at != std::string::npos; at = content.find(text, at + 1)) ++count;
    return count;
  }

  /// Another program's session, whose entities bear the stamps that the run would give next.
  void AppendRival() const {
    std::string content = Content();
    const std::string mark = " Timestamp=\"";
    const std::size_t stamp = content.rfind(mark) + mark.size();
    const std::size_t fraction = content.find('.', stamp) + 1;
    const std::string second = content.substr(stamp, fraction - stamp);
    const int last = std::stoi(content.substr(fraction, 9));
    std::ostringstream session;
    session << std::setfill('0') << "<Session SessionOpenTimeStamp=\"" << second << "000000000-5:00\">\n";
    for (int number = last + 1; number <= last + 40; ++number) {
      session << "<Rival DataType=\"Rival\" Timestamp=\"" << second << std::setw(9) << number
              << "-5:00\"><![CDATA[2D00]]></Rival>\n";
    }
    session << "</Session>\n";
    content.insert(content.rfind("</SCPICommLog>"), session.str());
    std::ofstream(ToUtf8(Options.LogFile), std::ios::binary) << content;
  }

  const test::TemporaryFolder Temporary;
  const std::filesystem::path& Folder = Temporary.Path();
};

TEST_F(RunLogTest, ConversationIsLoggedInOneSession) {
  Answers.Listed["*IDN?"] = "an instrument";
  EXPECT_EQ(Run({u"*CLS", u"REM a remark", u"*idn?", u"*IDN?"}), 4);
  EXPECT_EQ(Logged(),
            (std::vector<std::string>{"Instruction *CLS\r\n", "Instruction *idn?\r\n", "Response failure -7\r\n",
                                      "Instruction *IDN?\r\n", "Response an instrument\r\n"}));
  EXPECT_EQ(Occurrences("<Session "), 1U);
  EXPECT_EQ(Occurrences("SessionCloseTimeStamp"), 1U);
}

TEST_F(RunLogTest, ExistingLogIsExtendedUnlessItIsBegunAnew) {
  EXPECT_EQ(Run({u"A"}), 0);
  EXPECT_EQ(Run({u"B"}), 0);
  EXPECT_EQ(Logged(), (std::vector<std::string>{"Instruction A\r\n", "Instruction B\r\n"}));
  EXPECT_EQ(Occurrences("<Session "), 2U);
  Options.Overwrite = true;
  EXPECT_EQ(Run({u"C"}), 0);
  EXPECT_EQ(Logged(), (std::vector<std::string>{"Instruction C\r\n"}));
  EXPECT_EQ(Occurrences("<Session "), 1U);
}

TEST_F(RunLogTest, LogThatCannotBeMadeEndsTheRunBeforeAnythingIsSent) {
  Options.LogFile = FromAscii((Folder / "absent" / "run.xml").string());
  EXPECT_EQ(Run({u"A"}), 2);
  EXPECT_EQ(Wire, Calls{});
  EXPECT_EQ(Err.str().find("portico-run: cannot log to " + ToUtf8(Options.LogFile) + ": "), 0U) << Err.str();
}

TEST_F(RunLogTest, FileThatIsNoLogEndsTheRunAndStaysAsItIs) {
  std::ofstream(ToUtf8(Options.LogFile)) << "*CLS\n";
  EXPECT_EQ(Run({u"A"}), 2);
  EXPECT_EQ(Wire, Calls{});
  EXPECT_EQ(Err.str(), "portico-run: cannot log to " + ToUtf8(Options.LogFile) + ": The file, " +
                           ToUtf8(Options.LogFile) + ", is not a valid data store.\n");
  EXPECT_EQ(Content(), "*CLS\n");
}

TEST_F(RunLogTest, InterruptedRunClosesItsSession) {
  Driver->OnCall = [](const std::string& call) {
    if (call == "write A") raise(SIGINT);
  };
  EXPECT_EQ(Run({u"A", u"B"}), 130);
  EXPECT_EQ(Logged(), (std::vector<std::string>{"Instruction A\r\n"}));
  EXPECT_EQ(Occurrences("SessionCloseTimeStamp"), 1U);
}

TEST_F(RunLogTest, LogThatIsTakenAwayIsToldWithItsCountAndWhatIsLostAtTheEndWithStatus5) {
  Driver->OnCall = [&](const std::string& call) {
    if (call == "write B") std::filesystem::remove_all(Folder);
  };
  EXPECT_EQ(Run({u"A", u"B", u"C"}), 5);
  EXPECT_EQ(Wire.back(), "close");
  const std::string text = Err.str();
  EXPECT_EQ(text.find("portico-run: lines.cmd:2: the log cannot be written: "), 0U) << text;
  EXPECT_NE(text.find("\nportico-run: lines.cmd:3: the log cannot be written: "), std::string::npos) << text;
  EXPECT_NE(text.find(" (2 times)\nportico-run: the log is incomplete: The file, "), std::string::npos) << text;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3) << text;
}

TEST_F(RunLogTest, LogThatIsWholeAgainAtTheEndIsNoFault) {
  const std::filesystem::path away = Folder.string() + "-away";
  Driver->OnCall = [&](const std::string& call) {
    if (call == "write B") std::filesystem::rename(Folder, away);
    if (call == "write C") std::filesystem::rename(away, Folder);
  };
  EXPECT_EQ(Run({u"A", u"B", u"C"}), 0);
  EXPECT_EQ(Logged(), (std::vector<std::string>{"Instruction A\r\n", "Instruction B\r\n", "Instruction C\r\n"}));
  const std::string text = Err.str();
  EXPECT_EQ(text.find("portico-run: lines.cmd:2: the log cannot be written: "), 0U) << text;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
}

TEST_F(RunLogTest, LineThatAnotherProgramsStampsCrowdOutIsMissingForGood) {
  Driver->OnCall = [&](const std::string& call) {
    if (call == "write B") AppendRival();
  };
  EXPECT_EQ(Run({u"A", u"B", u"C"}), 5);
  auto logged = Logged();
  EXPECT_EQ(std::erase(logged, "Rival -"), 40U);
  EXPECT_EQ(logged, (std::vector<std::string>{"Instruction A\r\n", "Instruction C\r\n"}));
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:2: the log cannot be written: The file, " + ToUtf8(Options.LogFile) +
                           ", has been written by another program at the same time.\n"
                           "portico-run: the log is incomplete\n");
}

TEST_F(RunLogTest, LogThatIsIncompleteOutranksADriverFailure) {
  Driver->Statuses["write B"] = -42;
  Driver->OnCall = [&](const std::string& call) {
    if (call == "write B") std::filesystem::remove_all(Folder);
  };
  EXPECT_EQ(Run({u"A", u"B"}), 5);
}

TEST_F(RunLogTest, InterruptOutranksALogThatIsIncomplete) {
  Driver->OnCall = [&](const std::string& call) {
    if (call != "write B") return;
    std::filesystem::remove_all(Folder);
    raise(SIGINT);
  };
  EXPECT_EQ(Run({u"A", u"B"}), 130);
  EXPECT_NE(Err.str().find("portico-run: the log is incomplete: "), std::string::npos) << Err.str();
}

} // namespace
} // namespace portico::terminal
