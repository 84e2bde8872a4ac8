#include "views/CSCPIView.h"
#include "views/CSCPIViewHistory.h"
#include "views/LineRunners.h"

#include "memory/RichTextBox.h"
#include "views/RunFixture.h"

namespace portico::test {
namespace {

/// The views, encoders and runners on boxes that know RTF.
class ViewsOnRichText : public RunFixture {
protected:
  ViewsOnRichText() {
    gScratchArea = New<WindowDouble>(WindowCalls); // with an area that knows RTF
    History->Initialize(Past);
    Command->Initialize(Future);
  }

  static std::string Text(const Ref<memory::RichTextBox>& box) { return Escaped(box->Text()); }
  static SelectionFormat FormatOf(const Ref<memory::RichTextBox>& box, std::int32_t start, std::int32_t length) {
    box->SelStart(start);
    box->SelLength(length);
    return box->SelFormat();
  }
  static void Append(const Ref<memory::RichTextBox>& box, StringView text, const SelectionFormat& format) {
    box->SelStart(box->TextLength());
    box->SelFormat(format);
    box->SelText(text);
  }
  void Show(StringView text, StringView type) { History->Instructions()->Enqueue(Entity(text, type)); }
  /// Copies all of the history and pastes it behind the commands.
  void PasteHistory() {
    Past->SelStart(0);
    Past->SelLength(Past->TextLength());
    Future->SelStart(Future->TextLength());
    Future->SelRTF(Past->SelRTF());
  }
  List Sent() const {
    List lines;
    for (const auto& call : Calls) {
      if (call.substr(0, 15) == "send SCPI.Send ") lines.push_back(call.substr(15));
    }
    return lines;
  }

  Journal WindowCalls;
  Ref<memory::RichTextBox> Past = New<memory::RichTextBox>();
  Ref<memory::RichTextBox> Future = New<memory::RichTextBox>();
  Ref<CSCPIViewHistory> History = New<CSCPIViewHistory>();
  Ref<CSCPIView> Command = New<CSCPIView>();
};

TEST_F(ViewsOnRichText, HistoryShowsEachTypeInItsLook) {
  Show(u"*IDN?\r\n", u"Instruction");
  Show(u"maker\r\n", u"Response");
  Show(u"*OPC?\r\n", u"AutomaticInstruction");
  Show(u"set\r\n", u"Configuration");
  Show(u"opened\r\n", u"");
  EXPECT_EQ(Text(Past), "*IDN?\\r\\n\u00AEmaker\\r\\n\u00A9*OPC?\\r\\nset\\r\\nopened\\r\\n");
  const SelectionFormat instruction = FormatOf(Past, 0, 7);
  EXPECT_EQ(instruction.SelBold, true);
  EXPECT_EQ(instruction.SelColor, 0);
  EXPECT_EQ(FormatOf(Past, 7, 1).SelColor, 0xFFFFFF);
  const SelectionFormat response = FormatOf(Past, 8, 7);
  EXPECT_EQ(response.SelItalic, true);
  EXPECT_EQ(response.SelBold, false);
  EXPECT_EQ(response.SelColor, 0);
  EXPECT_EQ(response.SelIndent, 150);
  EXPECT_EQ(FormatOf(Past, 15, 1).SelColor, 0xFFFFFF);
  const SelectionFormat automatic = FormatOf(Past, 16, 7);
  EXPECT_EQ(automatic.SelBold, true);
  EXPECT_EQ(automatic.SelColor, 0xFF0000);
  EXPECT_EQ(automatic.SelIndent, 0);
  EXPECT_EQ(FormatOf(Past, 23, 5).SelColor, 0x00FF00);
  EXPECT_EQ(FormatOf(Past, 28, 8).SelColor, 0x0000FF);
}

TEST_F(ViewsOnRichText, ConsecutiveAnswersKeepTheirMarkersHidden) {
  Show(u"1\r\n", u"Response");
  Show(u"2\r\n", u"Response");
  EXPECT_EQ(FormatOf(Past, 0, 1).SelColor, 0xFFFFFF);
  EXPECT_EQ(FormatOf(Past, 1, 3).SelColor, 0);
  EXPECT_EQ(FormatOf(Past, 4, 1).SelColor, 0xFFFFFF);
  EXPECT_EQ(FormatOf(Past, 5, 3).SelColor, 0);
}

TEST_F(ViewsOnRichText, AutomaticInstructionComesBackFromItsLook) {
  CRTFEncoder encoder;
  encoder.Initialize(Past);
  const auto sent = Entity(u"*OPC?\r\n", u"AutomaticInstruction");
  Past->SelRTF(encoder.Encode(sent));
  Past->SelStart(0);
  Past->SelLength(7);
  const auto read = encoder.Decode(Past->SelRTF());
  EXPECT_EQ(read->DataType(), u"AutomaticInstruction");
  EXPECT_EQ(TextOf(read), "*OPC?\\r\\n");
  EXPECT_NE(read->TimeStamp(), sent->TimeStamp());
}

TEST_F(ViewsOnRichText, QueueIsReadBackFromEachLook) {
  Append(Future, u"*RST\r\n", LikeInstruction());
  Append(Future, u"*OPC?\r\n", LikeAutomatic());
  Append(Future, u"1\r\n", LikeResponse());
  Append(Future, u"cfg\r\n", LikeConfiguration());
  Append(Future, u"red\r\n", Looks(false, false, 0x0000FF));
  Append(Future, u"typed", Looks(false, false, 0));
  EXPECT_EQ(Lines(Command->Instructions()),
            (List{"Instruction: *RST\\r\\n", "AutomaticInstruction: *OPC?\\r\\n", "Response: 1\\r\\n",
                  "Configuration: cfg\\r\\n", ": red\\r\\n", "Instruction: typed\\r\\n"}));
}

TEST_F(ViewsOnRichText, QueueHasEmptyLinesAndAnEmptyEntityAtTheEnd) {
  Future->SelText(u"\r\na\r\n\r\n");
  EXPECT_EQ(Lines(Command->Instructions()),
            (List{"Instruction: \\r\\n", "Instruction: a\\r\\n", "Instruction: \\r\\n", ": "}));
}

TEST_F(ViewsOnRichText, QueueKeepsCharactersOfAllKinds) {
  Future->SelText(u"a{b}\\c \u20AC\u4E2D\U0001F600\tz\r\nend");
  EXPECT_EQ(Lines(Command->Instructions()),
            (List{"Instruction: a{b}\\c \u20AC\u4E2D\U0001F600\tz\\r\\n", "Instruction: end\\r\\n"}));
}

TEST_F(ViewsOnRichText, RedrawnQueueIsReadBackTheSame) {
  Append(Future, u"*RST\r\n", LikeInstruction());
  Append(Future, u"1\r\n", LikeResponse());
  Append(Future, u"*OPC?", LikeAutomatic());
  const auto queue = Command->Instructions();
  const auto lines = Lines(queue);
  Command->Instructions(queue);
  EXPECT_EQ(Text(Future), "*RST\\r\\n1\\r\\n*OPC?\\r\\n");
  Command->Executing(false);
  Future->SelStart(Future->TextLength());
  Future->SelText(u"typed");
  auto again = Lines(Command->Instructions());
  ASSERT_EQ(again.size(), 4U);
  again.pop_back();
  EXPECT_EQ(again, lines);
}

TEST_F(ViewsOnRichText, RebuildKeepsTextAndSelection) {
  Future->SelText(u"one\r\ntwo\r\nthree");
  Future->SelStart(2);
  Future->SelLength(5);
  Command->Instructions();
  EXPECT_EQ(Text(Future), "one\\r\\ntwo\\r\\nthree");
  EXPECT_EQ(Future->SelStart(), 2);
  EXPECT_EQ(Future->SelLength(), 5);
}

TEST_F(ViewsOnRichText, RemovedEntitiesTakeExactlyTheirTextAlong) {
  for (const auto* line : {u"one\r\n", u"second\r\n", u"", u"fourth\r\n"}) Show(line, u"Instruction");
  ASSERT_EQ(Text(Past), "one\\r\\nsecond\\r\\n\\r\\nfourth\\r\\n");
  const auto queue = History->Instructions();
  const auto remove = [&](const Ref<IPosition>& from) {
    queue->SelectData(from, queue->NextPosition(from));
    queue->DeleteData();
  };
  remove(queue->NextPosition(queue->NextPosition(queue->StartOfObject())));
  EXPECT_EQ(Text(Past), "one\\r\\nsecond\\r\\nfourth\\r\\n");
  remove(queue->NextPosition(queue->StartOfObject()));
  EXPECT_EQ(Text(Past), "one\\r\\nfourth\\r\\n");
  remove(queue->NextPosition(queue->StartOfObject()));
  EXPECT_EQ(Text(Past), "one\\r\\n");
  queue->Dequeue();
  EXPECT_EQ(Text(Past), "");
}

TEST_F(ViewsOnRichText, RemovalKeepsTheLineInFrontOfAnEmptyLine) {
  Show(u"one\r\n", u"Instruction");
  Show(u"", u"Instruction");
  Show(u"three\r\n", u"Instruction");
  History->Instructions()->Dequeue();
  EXPECT_EQ(Text(Past), "\\r\\nthree\\r\\n"); // the line feed set does not reach over the next line's end
}

TEST_F(ViewsOnRichText, LimitOfTheQueueIsALimitOfTheText) {
  History->Instructions()->MaximumCount(2);
  for (const auto* line : {u"one\r\n", u"second\r\n", u"three\r\n"}) Show(line, u"Instruction");
  EXPECT_EQ(Text(Past), "second\\r\\nthree\\r\\n");
}

TEST_F(ViewsOnRichText, CopiedConversationSendsOnlyItsInstructions) {
  Show(u"*IDN?\r\n", u"Instruction");
  Show(u"maker,model\r\n", u"Response");
  Show(u":SYST:ERR?\r\n", u"AutomaticInstruction");
  Show(u"0,\"No error\"\r\n", u"Response");
  Show(u"*RST\r\n", u"Instruction");
  PasteHistory();
  CCommandRunner run;
  run.CommandQueue(Future);
  run.Execute();
  EXPECT_EQ(Sent(), (List{"*IDN?", "*RST"}));
  EXPECT_EQ(Text(Future), "");
}

TEST_F(ViewsOnRichText, AnswerThatLostItsMarkerIsStillSkipped) {
  Append(Future, u"1.25\r\n", LikeResponse());
  Append(Future, u"*RST\r\n", LikeInstruction());
  CCommandStepper step;
  step.CommandQueue(Future);
  step.Execute();
  EXPECT_EQ(Sent(), List{"*RST"});
}

TEST_F(ViewsOnRichText, AnswerTypedInTheDefaultLookIsSent) {
  Append(Future, u"1.25\r\n", Looks(false, false, 0));
  CCommandRunner run;
  run.CommandQueue(Future);
  run.Execute();
  EXPECT_EQ(Sent(), List{"1.25"});
}

TEST_F(ViewsOnRichText, TailOfALastLineWithLeadingBlanksIsSentAgain) {
  Future->SelText(u"  *IDN?");
  CCommandRunner run;
  run.CommandQueue(Future);
  run.Execute();
  EXPECT_EQ(Sent(), (List{"*IDN?", "N?"}));
}

TEST_F(ViewsOnRichText, RunToCursorLeavesTheCaretsLine) {
  Future->SelText(u"one\r\ntwo\r\nthree\r\nfour");
  Future->SelStart(12);
  CCommandCursorRunner cursor;
  cursor.CommandQueue(Future);
  cursor.Execute();
  EXPECT_EQ(Sent(), (List{"one", "two"}));
  EXPECT_EQ(Text(Future), "three\\r\\nfour");
}

TEST_F(ViewsOnRichText, SecondEngineTakesTheWindowOffEntityByEntity) {
  Future->SelText(u"REM a\r\n\r\nREM b\r\n");
  const auto runner = New<CInstructionRunner>();
  runner->Initialize(Command);
  const auto run = New<CRun>();
  run->Initialize(runner, u"Run");
  // The blank line is an instruction without text.
  run->Execute();
  EXPECT_EQ(Text(Future), "");
  EXPECT_EQ(Mode(), "Off");
  EXPECT_EQ(Sent(), List{});
}

} // namespace
} // namespace portico::test
