#include "support/Files.h"
#include "terminal/BatchRunBench.h"

#include <csignal>
#include <filesystem>

namespace portico::terminal {
namespace {

/// Answers of any size that go to a file.
class BatchRunGetTest : public test::BatchRunBench {
protected:
  BatchRunGetTest() {
    TurnOffPacingAndChecking();
    Options.Get = {u"CURV?", File};
  }

  int Get() { return RunSources({}); }
  bool IsLeft() const { return !std::filesystem::is_empty(Folder.Path()); }

  const test::TemporaryFolder Folder;
  const std::string File = Folder.At("curve.bin");
};

TEST_F(BatchRunGetTest, TheAnswerGoesToTheFileAndIntoTheConversation) {
  Driver->Pieces = {"#15he", "llo"};
  EXPECT_EQ(Get(), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write CURV?", "stream", "close"}));
  EXPECT_EQ(Out.str(), "* CURV?\n< #15hello\n");
  EXPECT_EQ(Err.str(), "");
  EXPECT_EQ(Folder.Read("curve.bin"), "hello");
}

TEST_F(BatchRunGetTest, OfAnAnswerThatIsTooLongForAReadTheQueryAloneIsShown) {
  Driver->Pieces = {"#72000000", std::string(2'000'000, 'x')};
  EXPECT_EQ(Get(), 0);
  EXPECT_EQ(Out.str(), "* CURV?\n");
  EXPECT_EQ(Folder.Read("curve.bin"), std::string(2'000'000, 'x'));
}

TEST_F(BatchRunGetTest, TheLinesComeFirst) {
  Driver->Pieces = {"1"};
  EXPECT_EQ(Run({u"INIT", u"REM wait"}), 0);
  EXPECT_EQ(Out.str(), "> INIT\n# REM wait\n* CURV?\n< 1\n");
}

TEST_F(BatchRunGetTest, ARunThatHasStoppedGetsNothing) {
  Options.StopOnError = true;
  Driver->Statuses = {{"write INIT", -3}};
  EXPECT_EQ(Run({u"INIT"}), 4);
  EXPECT_EQ(Wire.back(), "close");
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "write CURV?"), 0);
  EXPECT_FALSE(IsLeft());
}

TEST_F(BatchRunGetTest, AFailureLeavesNoFile) {
  Driver->Pieces = {"#15he"};
  Driver->Statuses = {{"stream", -16}};
  EXPECT_EQ(Get(), 4);
  EXPECT_EQ(Err.str(), "portico-run: failure -16\n");
  EXPECT_EQ(Out.str(), "* CURV?\n< failure -16\n");
  EXPECT_FALSE(IsLeft());
}

TEST_F(BatchRunGetTest, AWriteThatFailsIsToldOnce) {
  Driver->Statuses = {{"write CURV?", -13}, {"stream", -14}};
  EXPECT_EQ(Get(), 4);
  EXPECT_EQ(Err.str(), "portico-run: failure -13\n");
  EXPECT_FALSE(IsLeft());
}

TEST_F(BatchRunGetTest, ATornBlockLeavesNoFile) {
  Driver->Pieces = {"#15he"};
  EXPECT_EQ(Get(), 4);
  EXPECT_EQ(Err.str(), "portico-run: " + File + " was not written: the block is torn, of 5 bytes 2 are there\n");
  EXPECT_FALSE(IsLeft());
}

TEST_F(BatchRunGetTest, WhatADriverCannotItIsNotAskedFor) {
  Driver->Statuses = {{"CanReadInPieces", -21}};
  EXPECT_EQ(Get(), 4);
  EXPECT_EQ(Err.str(), "portico-run: CURV?: failure -21\n");
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "close"}));
  EXPECT_FALSE(IsLeft());
}

TEST_F(BatchRunGetTest, AFullDiskIsOneSentence) {
  Options.Get->File = "/dev/full";
  Driver->Pieces = {"hello", " again"};
  EXPECT_EQ(Get(), 5);
  EXPECT_EQ(Err.str(), "portico-run: /dev/full cannot be written: No space left on device\n");
}

TEST_F(BatchRunGetTest, AFileThatCannotBeIsToldBeforeAnythingIsOpened) {
  Options.Get->File = Folder.At("none/curve.bin");
  EXPECT_EQ(Run({u"INIT"}), 2);
  EXPECT_EQ(Err.str(), "portico-run: " + Options.Get->File + " cannot be written: No such file or directory\n");
  EXPECT_TRUE(Wire.empty());
}

TEST_F(BatchRunGetTest, TheUserMayInterruptIt) {
  Driver->Pieces = {"one", "two"};
  Driver->OnDetail = [](const std::string& call) {
    if (call.starts_with("ReadInPieces")) std::raise(SIGINT);
  };
  EXPECT_EQ(Get(), 130);
  EXPECT_EQ(Err.str(), "portico-run: interrupted\n");
  EXPECT_FALSE(IsLeft());
}

TEST_F(BatchRunGetTest, ProgressCountsThousandsOfBytes) {
  Options.ShowProgress = true;
  Options.Quiet = true;
  Driver->Pieces = {"#72000000", std::string(500'000, 'x'), std::string(1'500'000, 'x')};
  Driver->OnDetail = [this](const std::string&) { Clock.Advance(std::chrono::milliseconds(100)); };
  EXPECT_EQ(Get(), 0);
  EXPECT_NE(Err.str().find("0 of 2000 kB"), std::string::npos) << Err.str();
}

} // namespace
} // namespace portico::terminal
