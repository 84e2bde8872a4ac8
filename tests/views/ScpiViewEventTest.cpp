#include "views/CSCPIView.h"
#include "views/CSCPIViewHistory.h"

#include "views/ViewFixture.h"

namespace portico::test {
namespace {

constexpr char Colored[] = "SelFormat color=FFFFFF";

/// What the queue's events do to the window.
template <class View>
class ScpiViewEvents : public ViewFixture {
protected:
  ScpiViewEvents() {
    Subject->Initialize(Box);
    Queue = Subject->Instructions();
    Calls.clear();
  }

  void Add(StringView text, StringView type) { Queue->Enqueue(Entity(text, type)); }
  /// The label of a member, behind the class of the view.
  String Named(StringView member) const { return String(Subject->ClassName()).append(member); }
  void FailOn(const std::string& failing) {
    Box->OnCall = [failing](const std::string& call) {
      if (call == failing) HuntERR::Raise(7, u"box", u"The box failed.");
    };
  }

  Ref<View> Subject = New<View>();
  Ref<CDataFIFO> Queue;
};

struct ViewNames {
  template <class View>
  static std::string GetName(int) {
    return ToUtf8(View().ClassName());
  }
};
using BothViews = ::testing::Types<CSCPIView, CSCPIViewHistory>;
TYPED_TEST_SUITE(ScpiViewEvents, BothViews, ViewNames);

TYPED_TEST(ScpiViewEvents, AddedEntitiesAppearAtTheEndInTheirLook) {
  this->Add(u"*RST\r\n", u"Instruction");
  this->Box->PlaceCaret(0);
  this->Add(u"cfg\r\n", u"Configuration");
  EXPECT_EQ(this->Shown(), "*RST\\r\\ncfg\\r\\n");
  EXPECT_EQ(this->Box->FormatAt(0).SelBold, true);
  EXPECT_EQ(this->Box->FormatAt(6).SelBold, false);
  EXPECT_EQ(this->Box->FormatAt(6).SelColor, 0x00FF00);
}

TYPED_TEST(ScpiViewEvents, AnswersAndAutomaticLinesHaveHiddenMarkers) {
  this->Add(u"1.25\r\n", u"Response");
  this->Add(u"*OPC?\r\n", u"AutomaticInstruction");
  EXPECT_EQ(this->Shown(), "\u00AE1.25\\r\\n\u00A9*OPC?\\r\\n");
  EXPECT_EQ(this->Box->FormatAt(0).SelColor, 0xFFFFFF);
  EXPECT_EQ(this->Box->FormatAt(7).SelColor, 0xFFFFFF);
}

TYPED_TEST(ScpiViewEvents, TextBehindAMarkerIsNotWhite) {
  this->Add(u"1\r\n", u"Response");
  this->Add(u"2\r\n", u"Response");
  EXPECT_EQ(this->Shown(), "\u00AE1\\r\\n\u00AE2\\r\\n");
  for (const std::size_t marker : {0U, 4U}) EXPECT_EQ(this->Box->FormatAt(marker).SelColor, 0xFFFFFF);
  for (const std::size_t text : {1U, 2U, 3U, 5U, 6U}) {
    EXPECT_EQ(this->Box->FormatAt(text).SelColor, 0x000000) << text;
    EXPECT_EQ(this->Box->FormatAt(text).SelItalic, true) << text;
  }
}

TYPED_TEST(ScpiViewEvents, OtherTypesHaveNoMarkers) {
  for (const auto* type : {u"Instruction", u"Configuration", u"", u"response"}) this->Add(u"a\r\n", type);
  EXPECT_EQ(this->Shown(), "a\\r\\na\\r\\na\\r\\na\\r\\n");
}

TYPED_TEST(ScpiViewEvents, MarkerIsWrittenInWhiteAndTheColorRestored) {
  const auto writes = this->WritesOf([&] { this->Add(u"1\r\n", u"Response"); });
  const auto white = std::find(writes.begin(), writes.end(), Colored);
  ASSERT_GE(writes.end() - white, 5);
  EXPECT_EQ(white[1], "SelText \u00AE");
  EXPECT_EQ(white[2], "SelFormat color=0");
  EXPECT_EQ(white[3].substr(0, 22), "SelFormat alignment=0 ");
  EXPECT_EQ(white[4], Fragment("1\\r\\n"));
  EXPECT_EQ(white + 5, writes.end());
}

TYPED_TEST(ScpiViewEvents, ColorBeforeTheMarkerIsTheOneRestored) {
  this->Box->Type(u"green\r\n", this->LikeConfiguration());
  this->Queue = this->Subject->Instructions();
  const auto writes = this->WritesOf([&] { this->Add(u"*OPC?\r\n", u"AutomaticInstruction"); });
  const auto white = std::find(writes.begin(), writes.end(), Colored);
  ASSERT_GE(writes.end() - white, 3);
  EXPECT_EQ(white[1], "SelText \u00A9");
  EXPECT_EQ(white[2], "SelFormat color=FF00");
}

TYPED_TEST(ScpiViewEvents, RemovedEntityTakesExactlyItsTextAlong) {
  this->Add(u"one\r\n", u"Instruction");
  this->Add(u"second\r\n", u"Instruction");
  this->Add(u"three\r\n", u"Instruction");
  this->Queue->Dequeue();
  EXPECT_EQ(this->Shown(), "second\\r\\nthree\\r\\n");
}

TYPED_TEST(ScpiViewEvents, RemovedInTheMiddleAndAtTheEnd) {
  this->Add(u"one\r\n", u"Instruction");
  this->Add(u"second\r\n", u"Instruction");
  this->Add(u"three\r\n", u"Instruction");
  const auto start = this->Queue->NextPosition(this->Queue->StartOfObject());
  this->Queue->SelectData(start, this->Queue->NextPosition(start));
  this->Queue->DeleteData();
  EXPECT_EQ(this->Shown(), "one\\r\\nthree\\r\\n");
  if constexpr (std::is_same_v<TypeParam, CSCPIView>) return; // its queue is made anew after the change
  const auto last = this->Queue->NextPosition(this->Queue->StartOfObject());
  this->Queue->SelectData(last, this->Queue->EndOfObject());
  this->Queue->DeleteData();
  EXPECT_EQ(this->Shown(), "one\\r\\n");
}

TYPED_TEST(ScpiViewEvents, RemovalSelectsByCharactersAndDeletesAsText) {
  this->Add(u"one\r\n", u"Instruction");
  this->Add(u"second\r\n", u"Instruction");
  const auto start = this->Queue->NextPosition(this->Queue->StartOfObject());
  this->Queue->SelectData(start, this->Queue->EndOfObject());
  const auto writes = this->WritesOf([&] { this->Queue->DeleteData(); });
  EXPECT_EQ(writes, (typename TestFixture::List{"SelStart 5", "SelLength 8", "Span \\n", "SelLength 9", "SelLength 8",
                                                "SelText "}));
}

TYPED_TEST(ScpiViewEvents, RemovedEmptyEntityTakesALineEndAlong) {
  this->Add(u"", u"Instruction");
  this->Add(u"b\r\n", u"Instruction");
  EXPECT_EQ(this->Shown(), "\\r\\nb\\r\\n");
  const auto writes = this->WritesOf([&] { this->Queue->Dequeue(); });
  EXPECT_EQ(writes, (typename TestFixture::List{"SelStart 0", "SelLength 0", "Span \\n", "SelLength 2", "SelText "}));
  EXPECT_EQ(this->Shown(), "b\\r\\n");
}

TYPED_TEST(ScpiViewEvents, EntityThrownOutByTheLimitTakesItsTextAlong) {
  this->Queue->MaximumCount(2);
  this->Add(u"one\r\n", u"Instruction");
  this->Add(u"second\r\n", u"Instruction");
  this->Add(u"three\r\n", u"Instruction");
  EXPECT_EQ(this->Shown(), "second\\r\\nthree\\r\\n");
}

TYPED_TEST(ScpiViewEvents, FailingRemovalBearsItsLabel) {
  this->Add(u"one\r\n", u"Instruction");
  this->FailOn("SelText ");
  const auto error = Raised([&] { this->Queue->Dequeue(); });
  EXPECT_TRUE(Bears(CallStack(error).front(), this->Named(u".m_Instructions_OnRemove(DataEntity)")));
}

TYPED_TEST(ScpiViewEvents, FailingAdditionBearsItsLabel) {
  this->FailOn(Fragment("one\\r\\n"));
  const auto error = Raised([&] { this->Add(u"one\r\n", u"Instruction"); });
  EXPECT_TRUE(Bears(CallStack(error).front(), this->Named(u".m_Instructions_OnAdd(DataEntity, Index)")));
}

TYPED_TEST(ScpiViewEvents, FailingThrowingOutBearsItsLabel) {
  this->Queue->MaximumCount(1);
  this->Add(u"one\r\n", u"Instruction");
  this->FailOn("SelText ");
  const auto error = Raised([&] { this->Add(u"two\r\n", u"Instruction"); });
  const String label = std::is_same_v<TypeParam, CSCPIView>
                           ? this->Named(u".m_Instructions_MaximumCountExceded(DataEntity, Index)")
                           : this->Named(u".m_Instructions_MaximumCountExceded");
  EXPECT_TRUE(Bears(CallStack(error).front(), label)) << ToUtf8(CallStack(error).front());
}

using CommandViewEvents = ScpiViewEvents<CSCPIView>;
using HistoryViewEvents = ScpiViewEvents<CSCPIViewHistory>;

TEST_F(CommandViewEvents, AdditionGoesToTheEndWithoutTheFocus) {
  Box->Type(u"ab");
  Queue = Subject->Instructions();
  const auto writes = WritesOf([&] { Add(u"x\r\n", u"Instruction"); });
  ASSERT_EQ(writes.size(), 4U);
  EXPECT_EQ(writes[0], "SelStart 3");
  EXPECT_EQ(writes[1], "Span \\n");
  EXPECT_EQ(writes[2].substr(0, 10), "SelFormat ");
  EXPECT_EQ(writes[3], Fragment("x\\r\\n"));
}

TEST_F(CommandViewEvents, EmptyLineIsShown) {
  Add(u"\r\n", u"Instruction");
  EXPECT_EQ(Shown(), "\\r\\n");
}

TEST_F(CommandViewEvents, AdditionMakesTheQueueStaleOutsideARun) {
  Add(u"x\r\n", u"Instruction");
  EXPECT_FALSE(IsSameObject(Subject->Instructions(), Queue));
  Queue = Subject->Instructions();
  Subject->Executing(true);
  Add(u"y\r\n", u"Instruction");
  EXPECT_TRUE(IsSameObject(Subject->Instructions(), Queue));
}

TEST_F(HistoryViewEvents, AdditionTakesTheFocusTwice) {
  Box->Type(u"ab");
  const auto writes = WritesOf([&] { Add(u"x\r\n", u"Instruction"); });
  ASSERT_EQ(writes.size(), 6U);
  EXPECT_EQ((List{writes.begin(), writes.begin() + 4}), (List{"SetFocus", "SelStart 3", "SetFocus", "Span \\n"}));
  EXPECT_EQ(writes[4].substr(0, 10), "SelFormat ");
  EXPECT_EQ(writes[5], Fragment("x\\r\\n"));
}

TEST_F(HistoryViewEvents, EmptyLineTakesTheFocusAndIsNotShown) {
  Box->Type(u"ab");
  EXPECT_EQ(WritesOf([&] { Add(u"\r\n", u""); }), (List{"SetFocus", "SelStart 3", "SetFocus", "Span \\n"}));
  EXPECT_EQ(Shown(), "ab");
  EXPECT_EQ(Queue->Count(), 1);
}

TEST_F(HistoryViewEvents, EmptyAnswerIsNotShownEither) {
  Add(u"\r\n", u"Response");
  EXPECT_EQ(Shown(), "");
}

TEST_F(HistoryViewEvents, HalfAUnitBehindTheLineEndIsNoText) {
  const auto entity = Entity(u"\r\n", u"Instruction");
  entity->UpdateData({'\r', 0, '\n', 0, 'x'});
  Queue->Enqueue(entity);
  EXPECT_EQ(Shown(), "");
}

TEST_F(HistoryViewEvents, OnlyExactlyALineEndIsHidden) {
  Add(u" \r\n", u"Instruction");
  Add(u"\r\n\r\n", u"Instruction");
  EXPECT_EQ(Queue->Count(), 2);
  EXPECT_EQ(Shown().substr(0, 5), " \\r\\n");
  EXPECT_GT(Box->Contents().size(), 3U);
}

TEST_F(HistoryViewEvents, AdditionKeepsTheQueue) {
  Add(u"x\r\n", u"Instruction");
  EXPECT_TRUE(IsSameObject(Subject->Instructions(), Queue));
  EXPECT_EQ(Queue->Count(), 1);
}

TEST_F(HistoryViewEvents, HiddenLinesPutIndexAndTextOutOfStep) {
  Add(u"\r\n", u"");
  Add(u"abcdef\r\n", u"Instruction");
  Queue->Dequeue(); // the line that is not shown: two characters of the other go
  EXPECT_EQ(Shown(), "cdef\\r\\n");
}

} // namespace
} // namespace portico::test
