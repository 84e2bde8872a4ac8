#include "terminal/console/Interrupts.h"
#include "terminal/console/LineSource.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <string_view>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace portico::terminal {
namespace {

using Next = std::optional<String>;

/// Puts a pipe in place of standard input.
class StandardInputTest : public testing::Test {
protected:
  StandardInputTest() {
    std::array<int, 2> ends{};
    if (saved < 0 || pipe(ends.data()) != 0 || dup2(ends[0], STDIN_FILENO) < 0) throw std::runtime_error("pipe");
    close(ends[0]);
    writeEnd = ends[1];
  }
  ~StandardInputTest() override {
    CloseInput();
    dup2(saved, STDIN_FILENO);
    close(saved);
  }

  void Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const auto count = write(writeEnd, bytes.data(), bytes.size());
      if (count < 0) throw std::runtime_error("write");
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }
  void CloseInput() {
    if (writeEnd >= 0) close(writeEnd);
    writeEnd = -1;
  }

  Next Line() {
    auto next = source->Next();
    if (const auto* fault = std::get_if<TextFault>(&next)) {
      ADD_FAILURE() << fault->Reason;
      return {};
    }
    return std::get<Next>(next);
  }
  std::string Fault() {
    const auto next = source->Next();
    const auto* fault = std::get_if<TextFault>(&next);
    return fault != nullptr ? Describe(source->Name(), *fault) : "(none)";
  }

  /// The lines of the whole, each with a stroke behind it, or the fault.
  std::string Whole() const {
    auto read = ReadWholeStandardInput(interrupts);
    if (const auto* fault = std::get_if<FileFault>(&read)) return fault->Text;
    LineSource& lines = *std::get<std::unique_ptr<LineSource>>(read);
    std::string text = lines.Name() + ": ";
    for (auto next = lines.Next(); std::get<Next>(next); next = lines.Next())
      text += ToUtf8(*std::get<Next>(next)) + "|";
    return text;
  }

  const Interrupts interrupts{[] {}};
  const std::unique_ptr<LineSource> source = ReadStandardInput(interrupts);
  const int saved = dup(STDIN_FILENO);
  int writeEnd = -1;
};

TEST_F(StandardInputTest, IsNamedInWords) { EXPECT_EQ(source->Name(), "standard input"); }

TEST_F(StandardInputTest, LineIsThereWhileThePipeIsOpen) {
  Write("*CLS\n");
  EXPECT_EQ(Line(), u"*CLS");
  Write("*RST\n");
  EXPECT_EQ(Line(), u"*RST");
}

TEST_F(StandardInputTest, InputThatCannotBeReadIsTold) {
  const int directory = open("/", O_RDONLY);
  ASSERT_GE(directory, 0);
  dup2(directory, STDIN_FILENO);
  close(directory);
  EXPECT_EQ(Fault(), "standard input:1:1: cannot be read: Is a directory");
}

TEST_F(StandardInputTest, EndOfInputEndsTheLines) {
  CloseInput();
  EXPECT_EQ(Line(), Next());
  EXPECT_EQ(Line(), Next());
}

TEST_F(StandardInputTest, LinesThatArriveAtOnceComeOneByOne) {
  Write("*CLS\n\n  *RST  \n");
  CloseInput();
  EXPECT_EQ(Line(), u"*CLS");
  EXPECT_EQ(Line(), u"");
  EXPECT_EQ(Line(), u"  *RST  ");
  EXPECT_EQ(Line(), Next());
}

TEST_F(StandardInputTest, CompleteLinesAreAtHandAndNoOthers) {
  EXPECT_FALSE(source->HasLineAtHand());
  Write("A\nB\nC");
  EXPECT_EQ(Line(), u"A");
  EXPECT_TRUE(source->HasLineAtHand());
  EXPECT_EQ(Line(), u"B");
  EXPECT_FALSE(source->HasLineAtHand());
  EXPECT_EQ(source->LinesLeft(), std::nullopt);
}

TEST_F(StandardInputTest, LastLineNeedsNoLineEnd) {
  Write("*CLS\n*RST");
  CloseInput();
  EXPECT_EQ(Line(), u"*CLS");
  EXPECT_EQ(Line(), u"*RST");
  EXPECT_EQ(Line(), Next());
}

TEST_F(StandardInputTest, CrLfEndsALine) {
  Write("*CLS\r\n\r\n");
  EXPECT_EQ(Line(), u"*CLS");
  EXPECT_EQ(Line(), u"");
}

TEST_F(StandardInputTest, LineMayArriveInPieces) {
  std::thread user([this] {
    for (const char byte : std::string_view("DISP \xE2\x82\xAC\r\n")) Write({&byte, 1});
  });
  EXPECT_EQ(Line(), u"DISP \u20AC");
  user.join();
}

TEST_F(StandardInputTest, LineMayBeLongerThanThePipe) {
  const std::string text(300'000, 'A');
  std::thread user([&] { Write(text + "\n*RST\n"); });
  EXPECT_EQ(Line(), FromAscii(text));
  EXPECT_EQ(Line(), u"*RST");
  user.join();
}

TEST_F(StandardInputTest, ByteOrderMarkInFrontIsNoText) {
  Write("\xEF\xBB\xBF*CLS\n");
  EXPECT_EQ(Line(), u"*CLS");
}

TEST_F(StandardInputTest, ByteOrderMarkFurtherOnIsRefused) {
  Write("*CLS\n\xEF\xBB\xBF*RST\n");
  EXPECT_EQ(Line(), u"*CLS");
  EXPECT_EQ(Fault(), "standard input:2:1: U+FEFF cannot be sent: the instrument's code page lacks it");
}

TEST_F(StandardInputTest, RefusedLineIsToldWithItsPlaceAfterTheLinesBeforeIt) {
  Write("*CLS\n*RST\nAB\xFF\n");
  EXPECT_EQ(Line(), u"*CLS");
  EXPECT_EQ(Line(), u"*RST");
  EXPECT_EQ(Fault(), "standard input:3:3: not UTF-8; save the file as UTF-8");
}

TEST_F(StandardInputTest, InterruptEndsTheLines) {
  Write("*CLS\n*RST\n");
  EXPECT_EQ(Line(), u"*CLS");
  raise(SIGINT);
  EXPECT_EQ(Line(), Next());
}

TEST_F(StandardInputTest, InterruptEndsTheWaitForALine) {
  std::thread user([] { raise(SIGINT); });
  EXPECT_EQ(Line(), Next());
  user.join();
}

TEST_F(StandardInputTest, AsItArrivesItCannotBeginAnew) { EXPECT_FALSE(source->Rewind()); }

TEST_F(StandardInputTest, WholeIsReadToItsEnd) {
  std::thread user([this] {
    Write("\xEF\xBB\xBF*CLS\r\n\n");
    Write("*RST");
    CloseInput();
  });
  EXPECT_EQ(Whole(), "standard input: *CLS||*RST|");
  user.join();
}

TEST_F(StandardInputTest, WholeThatHoldsARefusedLineIsAFault) {
  Write("*CLS\n*RST\nAB\xFF\n");
  CloseInput();
  EXPECT_EQ(Whole(), "standard input:3:3: not UTF-8; save the file as UTF-8");
}

TEST_F(StandardInputTest, WholeThatCannotBeReadIsAFault) {
  const int directory = open("/", O_RDONLY);
  ASSERT_GE(directory, 0);
  dup2(directory, STDIN_FILENO);
  close(directory);
  EXPECT_EQ(Whole(), "standard input: cannot be read: Is a directory");
}

TEST_F(StandardInputTest, WholeMayHaveSixteenMebibytes) {
  std::thread user([this] {
    Write(std::string(16'777'215, 'A') + '\n');
    CloseInput();
  });
  EXPECT_EQ(Whole(), "standard input: " + std::string(16'777'215, 'A') + '|');
  user.join();
}

TEST_F(StandardInputTest, WholeThatIsTooLongIsAFaultThoughMoreComes) {
  std::thread user([this] { Write(std::string(16'777'217, '\n')); });
  EXPECT_EQ(Whole(), "standard input: more than 16777216 bytes cannot be read whole; name a file");
  user.join();
}

TEST_F(StandardInputTest, WholeEndsAtAnInterruptWithoutALine) {
  Write("*CLS\n*RST\n");
  std::thread user([] { raise(SIGINT); });
  EXPECT_EQ(Whole(), "standard input: ");
  user.join();
}

} // namespace
} // namespace portico::terminal
