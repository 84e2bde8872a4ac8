#include "terminal/ConversationModel.h"
#include "terminal/BatchRunBench.h"
#include "terminal/MixedLines.h"

#include "document/entities/CSelectionIterator.h"
#include "document/reports/ReportSubscribers.h"
#include "support/Files.h"
#include "support/doubles/Objects.h"

#include <filesystem>

namespace portico::terminal {
namespace {

using test::Conversation;
using test::Look;
using test::ModelEntity;
using test::ModelOptions;
using Texts = std::vector<std::string>;

/// A set of options, told to the system and to the model.
struct Setting {
  std::string Name;
  String Protocol;
  std::vector<std::pair<String, String>> Options;
  ModelOptions Model;
  std::size_t Lines;
};

ModelOptions OtherProtocol() {
  ModelOptions options;
  options.OPCPacing = options.AutoRead = options.ErrorChecking = false;
  return options;
}

ModelOptions Only(void (*change)(ModelOptions&)) {
  ModelOptions options;
  change(options);
  return options;
}

const Setting Settings[] = {
    {"Defaults", u"SCPI", {}, {}, 10'000},
    {"NoOpcPacing",
     u"SCPI",
     {{u"SCPIProtocolOPCPacing", u"Off"}},
     Only([](ModelOptions& o) { o.OPCPacing = false; }),
     500},
    {"NoErrorChecking",
     u"SCPI",
     {{u"SCPIProtocolAutoErrorChecking", u"Off"}},
     Only([](ModelOptions& o) { o.ErrorChecking = false; }),
     500},
    {"NoAutoRead",
     u"SCPI",
     {{u"SCPIProtocolAutoReadAfterQuery", u"Off"}},
     Only([](ModelOptions& o) { o.AutoRead = false; }),
     500},
    {"OwnErrorQueryAndInterval",
     u"SCPI",
     {{u"SCPIProtocolErrorCheckingCommand", u"*opc?;:STAT:QUE?"},
      {u"SCPIProtocolIntervalPacing", u"On"},
      {u"SCPIProtocolPacingInterval", u"250"}},
     Only([](ModelOptions& o) {
       o.ErrorCheckingCommand = "*opc?;:STAT:QUE?";
       o.PacingInterval = 250;
     }),
     500},
    {"OtherProtocol", u"Other", {}, OtherProtocol(), 500},
};

/// Tells where two lists part, and nothing about the rest of them.
void ExpectSame(const Texts& expected, const Texts& actual) {
  const auto [theirs, ours] = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
  if (theirs == expected.end() && ours == actual.end()) return;
  const auto show = [](const Texts& list, Texts::const_iterator at) {
    return at == list.end() ? "nothing more" : "\"" + *at + "\"";
  };
  ADD_FAILURE() << "Entry " << theirs - expected.begin() << " is " << show(actual, ours) << " instead of "
                << show(expected, theirs) << ", behind "
                << (theirs == expected.begin() ? "nothing" : "\"" + *std::prev(theirs) + "\"");
}

Texts LinesOf(const std::string& text, const std::string& lineEnd) {
  Texts lines;
  std::size_t begin = 0;
  for (std::size_t end = text.find(lineEnd); end != std::string::npos; end = text.find(lineEnd, begin)) {
    lines.push_back(text.substr(begin, end - begin));
    begin = end + lineEnd.size();
  }
  lines.push_back(text.substr(begin));
  return lines;
}

std::string Stamp(int number) {
  const std::string digits = std::to_string(number);
  return "2004-02-09T08:05:03." + std::string(9 - digits.size(), '0') + digits + "-5:00";
}

/// An entity with all its attributes, in order.
std::string Told(const ModelEntity& entity) {
  std::string text = "DataType=" + entity.DataType + " Timestamp=" + Stamp(entity.Stamp);
  if (entity.FragmentLength > 0) {
    text += " _RTFSelectionLength= " + std::to_string(entity.FragmentLength) + " _RTFVisibleTextOffset=0";
  }
  return text + ": " + entity.Text;
}
std::string Told(const IDataEntity& entity) {
  std::string text;
  for (const auto& attribute : entity.DataAttributes()->NewEnum()) {
    text += ToCodePage(attribute->Name() + u"=" + attribute->Value() + u" ");
  }
  text.back() = ':';
  return text + " " + ToCodePage(FromBytes(entity.ReadData()));
}

Texts Told(const std::vector<ModelEntity>& entities) {
  Texts texts;
  for (const ModelEntity& entity : entities) texts.push_back(Told(entity));
  return texts;
}
Texts Told(const Ref<IIteratableObject>& container) {
  const auto iterator = Create<IIterator>(u"SelectionIterator", modGlobals::VarArray(u"IterateAll"));
  iterator->Attach(container);
  Texts texts;
  for (Value item = iterator->FirstItem(); !iterator->IsDone(); item = iterator->NextItem()) {
    texts.push_back(Told(*item.ToObject<IDataEntity>()));
  }
  return texts;
}

std::vector<String> Decoded(const Texts& lines) {
  std::vector<String> decoded;
  decoded.reserve(lines.size());
  for (const std::string& line : lines) decoded.push_back(FromCodePage(line));
  return decoded;
}

/// All thirteen values of what looks so.
SelectionFormat FormatOf(Look look) {
  SelectionFormat format{0, false, 0, 0, 0, true, 0, 0, u"Sans", 10.0, false, false, false};
  if (look == Look::AutomaticInstruction) format.SelColor = 0xFF0000;
  if (look == Look::Remark) format.SelColor = 0x007F00;
  if (look == Look::Response) {
    format.SelBold = false;
    format.SelItalic = true;
    format.SelIndent = 150;
  }
  return format;
}

class ConversationModelTest : public test::BatchRunBench, public ::testing::WithParamInterface<Setting> {
protected:
  ConversationModelTest() {
    Driver->Handle = 5;
    Driver->OnWrite = [this](const std::string& text) { return Sample.Write(text); };
    Driver->OnRead = [this] {
      const test::SampleInstrument::Answer answer = Sample.Read();
      const bool isRead = answer.Status != test::SampleInstrument::NothingToRead;
      return test::DriverDouble::Reading{answer.Status, isRead ? answer.Bytes + '\0' : ""};
    };
    Driver->OnDetail = [this, start = Clock.Now()](const std::string& call) {
      const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock.Now() - start);
      Timed.push_back(std::to_string(elapsed.count()) + " " + call);
    };
  }

  /// Loads the window with views that the test sees.
  void Load() {
    View->Initialize(Future);
    History->Initialize(Past);
    gObjectFactory->Substitue(New<test::CreatorOfOne>(u"SCPIView", View));
    gObjectFactory->Substitue(New<test::CreatorOfOne>(u"SCPIViewHistory", History));
    Window->Load();
    Window->Shown.Connect([this](const IDataEntity& entity) { Printer.Show(entity); });
    Window->Remarked.Connect([this](const String& line) { Printer.Remark(line); });
  }
  static void ApplyOptions() {
    for (const auto& [name, value] : GetParam().Options) gConfiguration->ItemValue(name, value);
    gConfiguration->ItemValue(u"ProtocolName", GetParam().Protocol);
  }
  Ref<IDataStore> OpenStore() const {
    return Create<IDataStore>(u"DataStore", modGlobals::VarArray(LogPath.u16string(), false));
  }

  void ExpectLooks(const Conversation& expected) const {
    std::int32_t position = 0;
    for (const test::Passage& passage : expected.History) {
      Past->SelStart(position);
      Past->SelLength(static_cast<std::int32_t>(passage.Text.size()));
      position += static_cast<std::int32_t>(passage.Text.size());
      const SelectionFormat format = Past->SelFormat();
      if (passage.Is == Look::Marker ? format.SelColor == 0xFFFFFF : format == FormatOf(passage.Is)) continue;
      ADD_FAILURE() << "\"" << passage.Text << "\" in front of " << position << " looks otherwise.";
      return;
    }
  }

  test::SampleInstrument Sample;
  /// The driver's calls in full, each behind the milliseconds since the start.
  Texts Timed;
  const Ref<CSCPIView> View = New<CSCPIView>();
  const Ref<CSCPIViewHistory> History = New<CSCPIViewHistory>();
  ConversationPrinter Printer{Out};
  const test::TemporaryFolder Folder;
  const std::filesystem::path LogPath = Folder.Path() / "log.xml";
};

TEST_P(ConversationModelTest, WindowShowsAndLogsWhatTheModelSays) {
  const Texts lines = test::MixedLines(2004).Make(GetParam().Lines);
  const int sessionStamp = 1;
  const Conversation expected = test::ModelConversation(lines, GetParam().Model, sessionStamp);
  Load();
  ApplyOptions();
  const auto publisher = Create<IPublisher>(u"CmdSubscriptionAgent");
  const auto logger = Create<CReportLogger>(u"ReportLogger", modGlobals::VarArray(OpenStore()));
  logger->EnableLogging();
  publisher->Subscribe(logger);

  Window->RunLines(Decoded(lines));

  publisher->Unsubscribe(logger);
  logger->DisableLogging();
  ExpectSame(expected.Calls, Timed);
  ExpectSame(LinesOf(expected.HistoryText(), "\r\n"), LinesOf(ToCodePage(Past->Text()), "\r\n"));
  ExpectLooks(expected);
  ExpectSame(Told(expected.Queue), Told(History->Instructions()));
  ExpectSame(Told(expected.Log), Told(OpenStore()->FillDataContainerFromStore()));
  ExpectSame(LinesOf(expected.Printed, "\n"), LinesOf(ToCodePage(FromUtf8(Out.str()).Text), "\n"));
  EXPECT_EQ(Future->Text(), u"");
  EXPECT_EQ(View->Instructions()->Count(), 0);
  EXPECT_EQ(Window->LinesLeft(), 0U);
  EXPECT_FALSE(Window->Executing());
  EXPECT_FALSE(Window->StopRequested());
  EXPECT_EQ(gConfiguration->ItemValue(u"CurrentInstruction"), u"");
  Window->Unload();
}

// The history comes back with all its looks but without its hidden markers: answers are known by their italics, what
// was sent automatically is not known any more.
TEST_P(ConversationModelTest, PastedAnswersAreKnownByTheirLook) {
  const Texts lines = test::MixedLines(7).Make(200);
  const Conversation first = test::ModelConversation(lines, GetParam().Model, 0);
  Load();
  ApplyOptions();
  Window->RunLines(Decoded(lines));
  Past->SelStart(0);
  Past->SelLength(Past->TextLength());
  Future->SelRTF(Past->SelRTF());
  std::string text;
  for (const test::Passage& passage : first.History) {
    if (passage.Is == Look::Marker) {
      Future->SelStart(static_cast<std::int32_t>(text.size()));
      Future->SelLength(1);
      Future->SelText({});
    } else {
      text += passage.Text;
    }
  }
  ASSERT_EQ(ToCodePage(Future->Text()), text);
  Texts pasted;
  for (const test::Passage& passage : first.History) {
    if (passage.Is == Look::Marker) continue;
    const std::string line = passage.Text.substr(0, passage.Text.size() - 2);
    pasted.push_back(passage.Is == Look::Response ? "\xAE" + line : line);
  }
  Sample = {}; // as if everything had just been switched on
  Timed.clear();

  RunFrame(Future, Past).Run();

  const auto withoutTime = [](const std::string& call) { return call.substr(call.find(' ')); };
  Texts expected = test::ModelConversation(pasted, GetParam().Model, 0).Calls;
  std::transform(expected.begin(), expected.end(), expected.begin(), withoutTime);
  std::transform(Timed.begin(), Timed.end(), Timed.begin(), withoutTime);
  ExpectSame(expected, Timed);
  EXPECT_EQ(Future->Text(), u"");
  Window->Unload();
}

TEST_P(ConversationModelTest, RunPrintsSendsAndLogsWhatTheModelSays) {
  const Texts lines = test::MixedLines(2026).Make(300);
  ModelOptions model = GetParam().Model;
  model.Session = Driver->Handle;
  const Conversation expected = test::ModelConversation(lines, model, 0);
  Options.Protocol = GetParam().Protocol;
  Options.Options = GetParam().Options;
  Options.LogFile = LogPath.u16string();

  EXPECT_EQ(Run(Decoded(lines)), 4); // some of the lines find the instrument lost

  ASSERT_GT(Timed.size(), 3U);
  const std::string termination = GetParam().Protocol == u"Other" ? "10" : "0";
  EXPECT_EQ(Timed.at(0), "0 init(the instrument,0,0)");
  EXPECT_EQ(Timed.at(1), "0 SetAttributeViInt32(5,0,1150007," + termination + ")");
  const auto time = Timed.back().find(' ');
  EXPECT_EQ(Timed.back().substr(time + 1), "close(5)");
  ExpectSame(expected.Calls, {Timed.begin() + 2, Timed.end() - 1});
  ExpectSame(LinesOf(expected.Printed, "\n"), LinesOf(ToCodePage(FromUtf8(Out.str()).Text), "\n"));
  const auto withoutStamp = [](std::string told) { return told.erase(told.find(" Timestamp="), 11 + Stamp(0).size()); };
  Texts logged = Told(OpenStore()->FillDataContainerFromStore());
  std::transform(logged.begin(), logged.end(), logged.begin(), withoutStamp);
  Texts log = Told(expected.Log);
  std::transform(log.begin(), log.end(), log.begin(), withoutStamp);
  ExpectSame(log, logged);
  EXPECT_EQ(Past->Text(), u"");
  EXPECT_EQ(Future->Text(), u"");
}

INSTANTIATE_TEST_SUITE_P(, ConversationModelTest, ::testing::ValuesIn(Settings),
                         [](const auto& setting) { return setting.param.Name; });

} // namespace
} // namespace portico::terminal
