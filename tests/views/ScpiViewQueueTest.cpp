#include "views/CSCPIView.h"

#include "views/ViewFixture.h"

namespace portico::test {
namespace {

/// The queue that is made from the window's text.
class ScpiViewQueue : public ViewFixture {
protected:
  ScpiViewQueue() { View->Initialize(Box); }

  std::string Rebuilt() {
    std::string text;
    for (const auto& line : Lines(View->Instructions())) text += line + "|";
    return text;
  }

  Ref<CSCPIView> View = New<CSCPIView>();
};

TEST_F(ScpiViewQueue, HasAnEntityForEachLineByItsLook) {
  Box->Type(u"*RST\r\n", LikeInstruction());
  Box->Type(u"*OPC?\r\n", LikeAutomatic());
  Box->Type(u"1\r\n", LikeResponse());
  Box->Type(u"cfg\r\n", LikeConfiguration());
  Box->Type(u"red\r\n", Looks(false, false, 0x0000FF));
  Box->Type(u"typed");
  EXPECT_EQ(Rebuilt(), "Instruction: *RST\\r\\n|AutomaticInstruction: *OPC?\\r\\n|Response: 1\\r\\n|"
                       "Configuration: cfg\\r\\n|: red\\r\\n|Instruction: typed\\r\\n|");
}

TEST_F(ScpiViewQueue, EndsInAnEmptyEntityBehindALastLineEnd) {
  Box->Type(u"a\r\n");
  EXPECT_EQ(Rebuilt(), "Instruction: a\\r\\n|: |");
}

TEST_F(ScpiViewQueue, HasEmptyLines) {
  Box->Type(u"\r\n\r\nlast");
  EXPECT_EQ(Rebuilt(), "Instruction: \\r\\n|Instruction: \\r\\n|Instruction: last\\r\\n|");
}

TEST_F(ScpiViewQueue, OfAnEmptyWindowIsEmpty) {
  Box->Type(u"a");
  Box->SelStart(0);
  Box->SelLength(1);
  Box->SelText({});
  EXPECT_EQ(Rebuilt(), "");
}

TEST_F(ScpiViewQueue, KeepsLeadingAndTrailingBlanks) {
  Box->Type(u"  a \r\nb");
  EXPECT_EQ(Rebuilt(), "Instruction:   a \\r\\n|Instruction: b\\r\\n|");
}

TEST_F(ScpiViewQueue, MarkedAnswerIsReadByTheLookOfItsMarker) {
  Box->Type(u"\u00AE", Looks(false, false, 0xFFFFFF));
  Box->Type(u"1.25\r\n", LikeResponse());
  Box->Type(u"x");
  EXPECT_EQ(Rebuilt(), "Instruction: \u00AE1.25\\r\\n|Instruction: x\\r\\n|");
}

TEST_F(ScpiViewQueue, IsMadeOnlyAfterAChange) {
  Box->Type(u"a");
  const auto queue = View->Instructions();
  Calls.clear();
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue));
  EXPECT_EQ(Calls, List{});
  Box->Type(u"b");
  EXPECT_FALSE(IsSameObject(View->Instructions(), queue));
  EXPECT_EQ(Rebuilt(), "Instruction: ab\\r\\n|");
}

TEST_F(ScpiViewQueue, TypingCostsNoWork) {
  Calls.clear();
  const int drawn = Stamper->Drawn;
  Box->Type(u"a\r\nb\r\n");
  EXPECT_EQ(Calls, List{});
  EXPECT_EQ(Stamper->Drawn, drawn);
}

TEST_F(ScpiViewQueue, IsLeftAloneDuringARun) {
  Box->Type(u"a");
  const auto queue = View->Instructions();
  View->Executing(true);
  Box->Type(u"b");
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue));
  View->Executing(false);
  EXPECT_TRUE(IsSameObject(View->Instructions(), queue)); // what changed during the run was not noticed
  Box->Type(u"c");
  EXPECT_EQ(Rebuilt(), "Instruction: abc\\r\\n|");
}

TEST_F(ScpiViewQueue, StaysStaleIntoARun) {
  Box->Type(u"a");
  View->Executing(true);
  EXPECT_EQ(Rebuilt(), "Instruction: a\\r\\n|");
}

TEST_F(ScpiViewQueue, RestoresTheSelection) {
  Box->Type(u"one\r\ntwo\r\n");
  Box->Select(2, 5);
  View->Instructions();
  EXPECT_EQ(Box->SelStart(), 2);
  EXPECT_EQ(Box->SelLength(), 5);
}

TEST_F(ScpiViewQueue, DoesNotEchoIntoTheWindow) {
  Box->Type(u"one\r\ntwo");
  int changes = 0;
  Box->Change().Connect([&] { ++changes; });
  View->Instructions();
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(Shown(), "one\\r\\ntwo");
}

TEST_F(ScpiViewQueue, SelectsEachLineWithTwoWritesOfTheLength) {
  Box->Type(u"ab\r\ncd\r\nx");
  Box->PlaceCaret(1);
  const auto writes = WritesOf([&] { View->Instructions(); });
  const List first(writes.begin(), writes.begin() + 5);
  EXPECT_EQ(first, (List{"SelStart 0", "SelLength 4", "Span \\n", "SelLength 5", "SelLength 4"}));
  const List second(writes.begin() + 5, writes.begin() + 10);
  EXPECT_EQ(second, (List{"SelStart 4", "SelLength 4", "Span \\n", "SelLength 5", "SelLength 4"}));
  EXPECT_EQ((List{writes.end() - 2, writes.end()}), (List{"SelStart 1", "SelLength 0"}));
}

TEST_F(ScpiViewQueue, ReadsTheTextOfTheSelectedLine) {
  Box->Type(u"ab\r\nx");
  Calls.clear();
  View->Instructions();
  const auto end = std::find(Calls.begin(), Calls.end(), "get SelRTF");
  ASSERT_NE(end, Calls.end());
  EXPECT_EQ(*(end - 1), "SelLength 4");
}

TEST_F(ScpiViewQueue, RedrawAndRebuildGoRound) {
  Box->Type(u"*RST\r\n", LikeInstruction());
  Box->Type(u"1\r\n", LikeResponse());
  Box->Type(u"*OPC?", LikeAutomatic());
  const auto queue = View->Instructions();
  const auto lines = Lines(queue);
  View->Instructions(queue);
  EXPECT_EQ(Shown(), "*RST\\r\\n1\\r\\n*OPC?\\r\\n"); // the last line has got its end
  Box->SelStart(Box->TextLength());
  Box->SelText(u" ");
  auto again = Lines(View->Instructions());
  ASSERT_EQ(again.size(), 4U);
  again.pop_back();
  EXPECT_EQ(again, lines);
}

TEST_F(ScpiViewQueue, EntitiesHaveStampsOfTheirOwnAtEachRebuild) {
  Box->Type(u"a");
  const String before = View->Instructions()->Peek()->TimeStamp();
  Box->Type(u"b");
  EXPECT_NE(View->Instructions()->Peek()->TimeStamp(), before);
}

TEST_F(ScpiViewQueue, AdvancesByTheLengthOfTheDecodedLine) {
  Box->Type(u"a\r\nbc\r\ndef\r\ng");
  const auto writes = WritesOf([&] { View->Instructions(); });
  List starts;
  std::copy_if(writes.begin(), writes.end(), std::back_inserter(starts),
               [](const std::string& line) { return line.substr(0, 9) == "SelStart "; });
  starts.pop_back(); // the selection that is restored
  EXPECT_EQ(starts, (List{"SelStart 0", "SelStart 3", "SelStart 7", "SelStart 12"}));
}

TEST_F(ScpiViewQueue, FailingRebuildBearsItsLabelsAndIsTriedAgain) {
  Box->Type(u"a");
  Box->OnCall = [](const std::string& call) {
    if (call == "get SelRTF") HuntERR::Raise(7, u"box", u"The box failed.");
  };
  ExpectTrail(Raised([&] { View->Instructions(); }), {u"CSCPIView.GetInstructionQueue()", u"CSCPIView.Instructions()"});
  Box->OnCall = {};
  EXPECT_EQ(Rebuilt(), "Instruction: a\\r\\n|");
}

} // namespace
} // namespace portico::test
