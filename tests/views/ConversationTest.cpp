#include "views/RunFrame.h"

#include "document/entities/IDataStore.h"
#include "document/reports/ReportSubscribers.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "memory/RichTextBox.h"
#include "support/ErrorReports.h"
#include "support/Files.h"
#include "support/Golden.h"
#include "support/doubles/RecordingTextBox.h"
#include "support/doubles/ReportDouble.h"
#include "support/doubles/WindowDouble.h"
#include "support/fixtures/PipelineFixture.h"
#include "views/CInstructionRunner.h"
#include "views/CSCPIViewHistory.h"
#include "views/LineMarks.h"

#include <filesystem>

namespace portico {
namespace {

/// A window whose run is that of its command view.
class RunWindow final : public test::WindowDouble {
public:
  using WindowDouble::WindowDouble;
  bool Executing() const override { return View->Executing(); }
  void Executing(bool newValue) override { View->Executing(newValue); }

  Ref<CSCPIView> View;
};

/// Command window, history and log around the real pipeline, with an instrument in memory.
class Conversation : public test::PipelineFixture {
protected:
  void SetUp() override {
    PipelineFixture::SetUp();
    gMainForm = Window;
    gScratchArea = Window;
    Window->View = Create<CSCPIView>(u"SCPIView", modGlobals::VarArray(Ref<IObject>(Future)));
    Runner = Create<CInstructionRunner>(u"InstructionRunner", modGlobals::VarArray(Ref<IObject>(Window->View)));
    History = Create<CSCPIViewHistory>(u"SCPIViewHistory", modGlobals::VarArray(Ref<IObject>(Past)));
    Displayer = Create<CReportDisplayer>(u"ReportDisplayer", modGlobals::VarArray(Ref<IObject>(History)));
    for (LineRunner* runner : Frame->Runners()) {
      runner->Add2History.Connect([this](const String& line) { Frame->Add2History(line); });
    }
    SetAllOff();
    Driver->OnCall = [this](const std::string& line) {
      if (line == "write *IDN?" || line == "write *idn?") Driver->Answer = "maker,model";
      if (line == "write MEAS:VOLT? ") Driver->Answer = "4.2E0";
      if (line == "write *OPC?") Driver->Answer = "1";
      if (line == "write :SYST:ERR?") Driver->Answer = "0,\"No error\"";
    };
  }
  void TearDown() override {
    Frame = {};
    Window->View = {};
    PipelineFixture::TearDown();
  }

  void Type(StringView text) {
    Future->SelStart(Future->TextLength());
    Future->SelText(text);
  }
  std::vector<std::string> Queue() const {
    std::vector<std::string> lines;
    const auto iterator = Create<IIterator>(u"SelectionIterator", modGlobals::VarArray(u"IterateAll"));
    iterator->Attach(History->Instructions());
    for (Value item = iterator->FirstItem(); !iterator->IsDone(); item = iterator->NextItem()) {
      const auto entity = item.ToObject<IDataEntity>();
      lines.push_back(ToUtf8(entity->DataType()) + ": " + test::Escaped(FromBytes(entity->ReadData())));
    }
    return lines;
  }
  /// The history's lines, each behind the look of its first character that shows.
  std::string Transcript() const {
    std::string transcript;
    std::int32_t position = 0;
    const String text = Past->Text();
    for (const StringView line : Split(text, NewLine)) {
      if (line.empty() && position == Past->TextLength()) break;
      const bool marked = !line.empty() && (line.front() == ResponseMarker || line.front() == AutomaticMarker);
      Past->SelStart(position + (marked ? 1 : 0));
      Past->SelLength(1);
      const SelectionFormat format = Past->SelFormat();
      transcript += format.SelItalic == true ? "italic" : format.SelBold == true ? "bold" : "plain";
      transcript += " " + ToUtf8(ToHexText(static_cast<std::uint32_t>(format.SelColor.value_or(0)))) + "\t";
      transcript += ToUtf8(line) + "\n";
      position += static_cast<std::int32_t>(line.size() + NewLine.size());
    }
    return transcript;
  }
  void TurnAllOn() {
    for (const auto* item :
         {u"SCPIProtocolOPCPacing", u"SCPIProtocolAutoReadAfterQuery", u"SCPIProtocolAutoErrorChecking"}) {
      Set(item, u"On");
    }
    Set(u"SCPIProtocolIntervalPacing", u"Off");
    Set(u"ProtocolName", u"SCPI");
  }

  using List = std::vector<std::string>;

  test::Journal Told;
  Ref<RunWindow> Window = New<RunWindow>(Told);
  Ref<memory::RichTextBox> Future = New<memory::RichTextBox>();
  Ref<memory::RichTextBox> Past = New<memory::RichTextBox>();
  Ref<CInstructionRunner> Runner;
  Ref<CSCPIViewHistory> History;
  Ref<CReportDisplayer> Displayer;
  std::unique_ptr<RunFrame> Frame = std::make_unique<RunFrame>(Future, Past);
};

TEST_F(Conversation, AppearsInTheHistoryAsItHappens) {
  Send(test::MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}}));
  TurnAllOn();
  Type(u"REM what is it?\r\n*idn?\r\n\r\n  MEAS:VOLT? \r\n*RST\r\n");
  Frame->Run();
  EXPECT_EQ(ToUtf8(Future->Text()), "");
  test::ExpectGolden("history-conversation.txt", Transcript());
}

TEST_F(Conversation, EndOfEachInstructionIsInTheQueueAndNotInTheWindow) {
  Type(u"*RST\r\n*CLS\r\n");
  Frame->Run();
  EXPECT_EQ(Queue(), (List{"Instruction: *RST\\r\\n", ": \\r\\n", "Instruction: *CLS\\r\\n", ": \\r\\n"}));
  EXPECT_EQ(test::Escaped(Past->Text()), "*RST\\r\\n*CLS\\r\\n");
}

TEST_F(Conversation, EndOfAnInstructionClearsTheCurrentLine) {
  Type(u"*RST\r\n");
  Frame->Step();
  EXPECT_EQ(gConfiguration->ItemValue(u"CurrentInstruction"), u"");
}

TEST_F(Conversation, RemarksAreInTheWindowAndNotInTheQueue) {
  Type(u"REM a\r\n\r\n");
  Frame->Run();
  EXPECT_EQ(Queue(), List{});
  EXPECT_EQ(test::Escaped(Past->Text()), "REM a\\r\\n\\r\\n");
}

TEST_F(Conversation, CanBeCopiedAndRunAgain) {
  TurnAllOn();
  Type(u"*IDN?\r\nREM a remark\r\n*RST\r\n");
  Frame->Run();
  Past->SelStart(0);
  Past->SelLength(Past->TextLength());
  Future->SelRTF(Past->SelRTF());
  SetAllOff();
  Calls.clear();
  Frame->Run();
  List written;
  std::copy_if(Calls.begin(), Calls.end(), std::back_inserter(written),
               [](const std::string& call) { return call.substr(0, 6) == "write "; });
  EXPECT_EQ(written, (List{"write *IDN?", "write *RST"}));
}

TEST_F(Conversation, BracesAndBackslashesFormatTheWindowAndStayInTheQueue) {
  Set(u"AutoReadAfterQueryMode", u"On");
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write JSON?") Driver->Answer = "{\"volt\":1.5}";
    if (line == "write PATH?") Driver->Answer = "C:\\data\\new.csv";
    if (line == "write LINES?") Driver->Answer = "one\\par two";
    if (line == "write OPEN?") Driver->Answer = "a{b";
    if (line == "write CLOSE?") Driver->Answer = "a}b";
  };
  Type(u"JSON?\r\nPATH?\r\nLINES?\r\nOPEN?\r\nCLOSE?\r\nDISP:TEXT \"{A}\"\r\n");
  Frame->Run();
  EXPECT_EQ(ToUtf8(Past->Text()), ToUtf8(u"JSON?\r\n\u00AE\"volt\":1.5\r\n"
                                         u"PATH?\r\n\u00AEC:.csv\r\n"
                                         u"LINES?\r\n\u00AEone\r\ntwo\r\n"
                                         u"OPEN?\r\n\u00AEab\r\n"
                                         u"CLOSE?\r\n\u00AEaDISP:TEXT \"A\"\r\n"));
  List answers = Queue();
  std::erase_if(answers, [](const std::string& line) { return !line.starts_with("Response: "); });
  EXPECT_EQ(answers, (List{"Response: {\"volt\":1.5}\\r\\n", "Response: C:\\data\\new.csv\\r\\n",
                           "Response: one\\par two\\r\\n", "Response: a{b\\r\\n", "Response: a}b\\r\\n"}));
}

TEST_F(Conversation, LineEndsWithinAnAnswerAreNotInTheWindow) {
  Set(u"AutoReadAfterQueryMode", u"On");
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write DATA?") Driver->Answer = "#15a\nb\nc";
  };
  Type(u"DATA?\r\n");
  Frame->Run();
  EXPECT_EQ(ToUtf8(Past->Text()), ToUtf8(u"DATA?\r\n\u00AE#15abc\r\n"));
}

TEST_F(Conversation, FailedWriteShowsAsItsInstruction) {
  Driver->Statuses["write *RST"] = -1073807339;
  Type(u"*RST\r\n");
  Frame->Run();
  EXPECT_EQ(test::Escaped(Past->Text()), "*RST\\r\\n");
  EXPECT_FALSE(Window->Executing());
}

TEST_F(Conversation, FailedOpenShowsTheDriversTextInRed) {
  Driver->Statuses["init DMM"] = -1;
  Send(test::MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}}));
  EXPECT_EQ(Transcript(), "plain FF\tfailure -1\n");
  EXPECT_EQ(Queue(), (List{": failure -1\\r\\n", ": \\r\\n"}));
}

TEST_F(Conversation, OpeningWithoutAFailureShowsNothing) {
  Send(test::MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}}));
  EXPECT_EQ(Transcript(), "");
}

TEST_F(Conversation, FailedReadShowsTheDriversTextAsAnAnswer) {
  TurnAllOn();
  Set(u"OPCPacing", u"Off");
  Set(u"AutoErrorCheckingMode", u"Off");
  Driver->Statuses["read"] = -1;
  Type(u"*IDN?\r\n");
  Frame->Run();
  EXPECT_EQ(Transcript(), "bold 0\t*IDN?\nitalic 0\t\u00AEfailure -1\n");
}

TEST_F(Conversation, FailedCloseIsAnEmptyLineInTheQueueOnly) {
  Send(test::MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}}));
  Driver->Statuses["close"] = -1;
  const auto before = test::Escaped(Past->Text());
  Send(test::MakeInstruction(u"COMM", u"Close"));
  EXPECT_EQ(test::Escaped(Past->Text()), before);
  EXPECT_EQ(Queue().back(), ": \\r\\n");
}

TEST_F(Conversation, StopInTheMiddleOfAnInstructionKeepsItsReports) {
  TurnAllOn();
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write *IDN?") Window->StopRequested(true);
  };
  Type(u"*IDN?\r\nlost\r\nleft\r\n");
  Frame->Run();
  EXPECT_EQ(test::Escaped(Future->Text()), "left\\r\\n");
  EXPECT_FALSE(Window->StopRequested());
  const auto queue = Queue();
  EXPECT_EQ(std::count(queue.begin(), queue.end(), "Instruction: *IDN?\\r\\n"), 1);
  EXPECT_EQ(queue.back(), ": \\r\\n");
}

TEST_F(Conversation, ATimerCanStopTheRunBetweenTwoLines) {
  const auto timer = Loop->MakeTimer();
  timer->Interval(10);
  timer->Timer().Connect([this] { Window->StopRequested(true); });
  timer->Enabled(true);
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write two") Clock.Advance(std::chrono::milliseconds(10));
  };
  Type(u"one\r\ntwo\r\nlost\r\nleft\r\n");
  Frame->Run();
  EXPECT_EQ(test::Escaped(Past->Text()), "one\\r\\ntwo\\r\\n");
  EXPECT_EQ(test::Escaped(Future->Text()), "left\\r\\n");
}

/// The log of a conversation.
class LoggedConversation : public Conversation {
protected:
  void SetUp() override {
    Conversation::SetUp();
    std::filesystem::remove(m_path);
    Store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(FromUtf8(m_path.string()).Text, true));
    Logger = Create<CReportLogger>(u"ReportLogger", modGlobals::VarArray(Ref<IObject>(Store)));
    Create<IPublisher>(u"CmdSubscriptionAgent")->Subscribe(Logger);
  }
  void TearDown() override {
    Logger = {};
    Store = {};
    Conversation::TearDown();
    std::filesystem::remove(m_path);
  }
  LoggedConversation() { gXMLParserAvailable = true; }
  ~LoggedConversation() override { gXMLParserAvailable = false; }

  /// What the log holds, read by a store of its own.
  List Logged() const {
    const auto reader = Create<IDataStore>(u"DataStore", modGlobals::VarArray(FromUtf8(m_path.string()).Text, false));
    List lines;
    const auto iterator = Create<IIterator>(u"SelectionIterator", modGlobals::VarArray(u"IterateAll"));
    iterator->Attach(reader->FillDataContainerFromStore());
    for (Value item = iterator->FirstItem(); !iterator->IsDone(); item = iterator->NextItem()) {
      const auto entity = item.ToObject<IDataEntity>();
      lines.push_back(ToUtf8(entity->DataType()) + ": " + test::Escaped(FromBytes(entity->ReadData())));
    }
    return lines;
  }

  Ref<IDataStore> Store;
  Ref<CReportLogger> Logger;

private:
  const test::TemporaryFolder m_folder;
  const std::filesystem::path m_path = m_folder.Path() / "log.xml";
};

TEST_F(LoggedConversation, HoldsWhatHasATypeAndNoRemarks) {
  Logger->EnableLogging();
  Send(test::MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}}));
  TurnAllOn();
  Type(u"REM a\r\n*IDN?\r\n");
  Frame->Run();
  Logger->DisableLogging();
  EXPECT_EQ(Logged(), (List{"AutomaticInstruction: *OPC?\\r\\n", "Response: 1\\r\\n", "Instruction: *IDN?\\r\\n",
                            "Response: maker,model\\r\\n", "AutomaticInstruction: :SYST:ERR?\\r\\n",
                            "Response: 0,\"No error\"\\r\\n"}));
}

TEST_F(LoggedConversation, HoldsNothingOfAPause) {
  Logger->EnableLogging();
  Type(u"one\r\n");
  Frame->Run();
  Logger->DisableLogging();
  Type(u"two\r\n");
  Frame->Run();
  Logger->EnableLogging();
  Type(u"three\r\n");
  Frame->Run();
  Logger->DisableLogging();
  EXPECT_EQ(Logged(), (List{"Instruction: one\\r\\n", "Instruction: three\\r\\n"}));
}

TEST_F(LoggedConversation, RefusesAnEntityWithoutATypeAndNothing) {
  Logger->EnableLogging();
  EXPECT_EQ(test::Raised([&] { Logger->Update(test::ReportOf(u"COpenCmd", u"opened")); }).Number, 31004);
  HuntERR::Reset();
  const auto error = test::Raised([&] { Logger->Update(test::ReportOf(u"COpenCmd", u"")); });
  EXPECT_EQ(error.Number, 5);
  EXPECT_EQ(ToUtf8(test::FirstDescription(error)), "Data entity cannot be nothing.");
  EXPECT_EQ(Logged(), List{});
}

} // namespace
} // namespace portico
