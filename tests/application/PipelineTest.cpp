#include "support/fixtures/PipelineFixture.h"

#include <algorithm>

namespace portico {
namespace {

using test::FailureOf;
using test::Hex;
using test::Journal;
using test::MakeInstruction;
using Report = test::ReportRecorder::Report;

/// Instructions through "InstructionProcessor", to the driver and to the subscribers.
class Pipeline : public test::PipelineFixture {
protected:
  void SetUp() override {
    PipelineFixture::SetUp();
    SetOptions(true, true, true, true);
  }

  /// As the options dialog does it: the protocol's options first, then the protocol.
  void SetOptions(bool interval, bool opc, bool autoRead, bool errorCheck, const String& protocol = u"SCPI") {
    const auto text = [](bool on) { return on ? u"On" : u"Off"; };
    Set(u"SCPIProtocolIntervalPacing", text(interval));
    Set(u"SCPIProtocolOPCPacing", text(opc));
    Set(u"SCPIProtocolAutoReadAfterQuery", text(autoRead));
    Set(u"SCPIProtocolAutoErrorChecking", text(errorCheck));
    Set(u"OtherProtocolIntervalPacing", text(interval));
    Set(u"ProtocolName", protocol);
  }

  /// Driver calls and reports since the last time.
  Journal Sent(const String& line) {
    Calls.clear();
    EXPECT_EQ(SendLine(line), 0);
    return Calls;
  }
};

TEST_F(Pipeline, AQueryWithEverythingOnIsSevenLinksAndTheEnd) {
  EXPECT_EQ(Sent(u"MEAS:VOLT?"),
            (Journal{"write *OPC?", "report CWriteCmd", "read", "report CReadCmd", "report CIntervalPacingCmd",
                     "write MEAS:VOLT?", "report CWriteCmd", "read", "report CReadCmd", "write :SYST:ERR?",
                     "report CWriteCmd", "read", "report CReadCmd", "report SCPIInstructionProcessor"}));
}

TEST_F(Pipeline, EachReportTellsItsOperation) {
  Driver->OnCall = [this](const std::string& line) {
    if (line == "write *OPC?") Driver->Answer = "1";
    if (line == "write MEAS:VOLT?") Driver->Answer = "4.2E0";
    if (line == "write :SYST:ERR?") Driver->Answer = "0,\"No error\"";
  };
  SendLine(u"MEAS:VOLT?");
  const std::vector<Report> expected = {
      {u"CWriteCmd", u"", u"Success", 0, u"*OPC?"},
      {u"CReadCmd", u"1", u"Success", 0, u""},
      {u"CIntervalPacingCmd", u"Interval has elapsed.", u"Success", 0, u""},
      {u"CWriteCmd", u"", u"Success", 0, u"MEAS:VOLT?"},
      {u"CReadCmd", u"4.2E0", u"Success", 0, u""},
      {u"CWriteCmd", u"", u"Success", 0, u":SYST:ERR?"},
      {u"CReadCmd", u"0,\"No error\"", u"Success", 0, u""},
      {u"SCPIInstructionProcessor", u"", u"", Hex(0x80041454), u""},
  };
  EXPECT_EQ(Subscriber->Reports, expected);
}

struct Options {
  bool Interval;
  bool Opc;
  bool AutoRead;
  bool ErrorCheck;
  bool Query;
};

/// What must happen, told from the options alone.
Journal Expected(const Options& options, const std::string& line) {
  Journal steps;
  const auto question = [&](const std::string& text) {
    steps.push_back("write " + text);
    steps.emplace_back("report CWriteCmd");
    if (!options.AutoRead) return;
    steps.emplace_back("read");
    steps.emplace_back("report CReadCmd");
  };
  if (options.Opc) question("*OPC?");
  if (options.Interval) steps.emplace_back("report CIntervalPacingCmd");
  if (options.Query) {
    question(line);
  } else {
    steps.push_back("write " + line);
    steps.emplace_back("report CWriteCmd");
  }
  if (options.ErrorCheck) question(":SYST:ERR?");
  steps.emplace_back("report SCPIInstructionProcessor");
  return steps;
}

TEST_F(Pipeline, EveryCombinationOfTheOptionsDoesWhatTheyPromise) {
  for (unsigned bits = 0; bits < 32; ++bits) {
    const Options options{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0, (bits & 16) != 0};
    SetOptions(options.Interval, options.Opc, options.AutoRead, options.ErrorCheck);
    const std::string line = options.Query ? "MEAS:VOLT?" : "*RST";
    EXPECT_EQ(Sent(FromAscii(line)), Expected(options, line)) << "combination " << bits;
  }
}

TEST_F(Pipeline, OfAnotherProtocolOnlyTheIntervalIsKept) {
  for (const bool interval : {false, true}) {
    for (const bool query : {false, true}) {
      SetOptions(interval, true, true, true, u"Other");
      const std::string line = query ? "MEAS:VOLT?" : "*RST";
      EXPECT_EQ(Sent(FromAscii(line)), Expected({interval, false, false, false, query}, line));
    }
  }
}

TEST_F(Pipeline, WithEverythingOffACommandIsOneWrite) {
  SetOptions(false, false, false, false);
  EXPECT_EQ(Sent(u"*RST"), (Journal{"write *RST", "report CWriteCmd", "report SCPIInstructionProcessor"}));
}

TEST_F(Pipeline, AChangedOptionTakesEffectAtTheNextInstruction) {
  SetOptions(false, false, false, false);
  SendLine(u"*RST");
  Set(u"AutoErrorCheckingMode", u"On");
  EXPECT_EQ(Sent(u"*RST"), (Journal{"write *RST", "report CWriteCmd", "write :SYST:ERR?", "report CWriteCmd",
                                    "report SCPIInstructionProcessor"}));
}

TEST_F(Pipeline, AnEmptyErrorQueryIsWritten) {
  SetOptions(false, false, true, true);
  Set(u"ErrorCheckingCommand", u"");
  EXPECT_EQ(Sent(u"*RST"), (Journal{"write *RST", "report CWriteCmd", "write ", "report CWriteCmd",
                                    "report SCPIInstructionProcessor"}));
}

TEST_F(Pipeline, CommunicationInstructionsAreNeitherPacedNorChecked) {
  const auto sent = [this](const Ref<CInstContainer>& instruction) {
    Calls.clear();
    EXPECT_EQ(Send(instruction), 0);
    return Calls;
  };
  constexpr auto end = "report COMMInstructionProcessor";
  EXPECT_EQ(sent(MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}})),
            (Journal{"init DMM", "report COpenCmd", end}));
  EXPECT_EQ(sent(MakeInstruction(u"COMM", u"Write", {{u"Data", u"*IDN?"}})),
            (Journal{"write *IDN?", "report CWriteCmd", end}));
  EXPECT_EQ(sent(MakeInstruction(u"COMM", u"Read", {{u"Data", u""}})), (Journal{"read", "report CReadCmd", end}));
  EXPECT_EQ(sent(MakeInstruction(u"COMM", u"SetAttribute", {{u"Name", u"TERMCHAR"}, {u"Value", u"CRLF"}})),
            (Journal{"set 1150007 11", "report CSetAttribCmd", end}));
  EXPECT_EQ(sent(MakeInstruction(u"COMM", u"GetAttribute", {{u"Name", u"TERMCHAR"}})),
            (Journal{"get 1150007", "report CGetAttribCmd", end}));
  EXPECT_EQ(sent(MakeInstruction(u"COMM", u"Close")), (Journal{"close", "report CCloseCmd", end}));
  EXPECT_EQ(Subscriber->Reports.back().ErrorCode, Hex(0x80041454));
}

TEST_F(Pipeline, OpeningWhileAnInstrumentIsRecordedClosesItFirstInOneChain) {
  Send(MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"DMM"}}));
  Set(u"InstrumentName", u"DMM");
  Calls.clear();
  Send(MakeInstruction(u"COMM", u"Open", {{u"ChannelName", u"PSU"}}));
  EXPECT_EQ(Calls,
            (Journal{"close", "report CCloseCmd", "init PSU", "report COpenCmd", "report COMMInstructionProcessor"}));
}

TEST_F(Pipeline, ADriversFailureInTheMiddleDoesNotStopTheChain) {
  const Journal undisturbed = Sent(u"MEAS:VOLT?");
  Subscriber->Reports.clear();
  Driver->Statuses["write MEAS:VOLT?"] = -1073807339;
  EXPECT_EQ(Sent(u"MEAS:VOLT?"), undisturbed);
  ASSERT_EQ(Subscriber->Reports.size(), 8U);
  const Report expected{u"CWriteCmd", u"failure -1073807339", u"failure -1073807339", -1073807339, u"MEAS:VOLT?"};
  EXPECT_EQ(Subscriber->Reports[3], expected);
}

/// Fails at every report.
class FailingSubscriber final : public ISubscriber {
public:
  StringView ClassName() const override { return u"FailingSubscriber"; }
  void Update(const Ref<IObject>&) override { HuntERR::Raise(17, u"FailingSubscriber", u"It fails."); }
};

TEST_F(Pipeline, AnErrorInASubscriberStopsNeitherTheChainNorTheOthers) {
  const Journal undisturbed = Sent(u"MEAS:VOLT?");
  const auto agent = Create<IPublisher>(u"CmdSubscriptionAgent");
  agent->Unsubscribe(Subscriber);
  agent->Subscribe(New<FailingSubscriber>());
  agent->Subscribe(Subscriber);
  EXPECT_EQ(Sent(u"MEAS:VOLT?"), undisturbed);
  EXPECT_EQ(test::RecordedFailure().Text, u"It fails.");
}

TEST_F(Pipeline, ABadOptionFailsBeforeAnythingIsSent) {
  const auto expect = [this](const String& item, std::int32_t number, StringView text) {
    SetOptions(true, true, true, true);
    Set(item, u"Maybe");
    Calls.clear();
    const auto failure = FailureOf([&] { SendLine(u"MEAS:VOLT?"); });
    EXPECT_EQ(failure.Number, number);
    EXPECT_EQ(failure.Text, text);
    ASSERT_GE(failure.Trail.size(), 2U);
    EXPECT_EQ(failure.Trail[failure.Trail.size() - 2],
              u"CSCPIInstHandler.IInstProcessor_Send(Instruction={CInstContainer})");
    EXPECT_EQ(failure.Trail.back(), u"CInstDirector.IInstProcessor_Send(Instruction={CInstContainer})");
    EXPECT_EQ(Calls, Journal{});
  };
  expect(u"IntervalPacing", 51, u"OPCPacing is misconfigured.");
  expect(u"OPCPacing", 51, u"OPCPacing is misconfigured.");
  expect(u"AutoErrorCheckingMode", Hex(0x80041462), u"Requested auto-error checking mode, Maybe is not defined.");
  expect(u"AutoReadAfterQueryMode", Hex(0x80041462), u"Requested auto-read-after-query mode, Maybe is not defined.");
}

TEST_F(Pipeline, TypesAreTakenInAnyCase) {
  SetOptions(false, false, false, false);
  EXPECT_EQ(Send(MakeInstruction(u"scpi", u"send", {{u"Data", u"*RST"}})), 0);
  EXPECT_EQ(Calls, (Journal{"write *RST", "report CWriteCmd", "report SCPIInstructionProcessor"}));
}

TEST_F(Pipeline, AnUnknownTypeIsNamed) {
  const auto failure = FailureOf([this] { Send(MakeInstruction(u"Telepathy", u"Send", {{u"Data", u"*RST"}})); });
  EXPECT_EQ(failure.Number, Hex(0x80041450));
  EXPECT_EQ(failure.Text, u"This instruction processor cannot handle Telepathy.");
  EXPECT_EQ(Calls, Journal{});
}

TEST_F(Pipeline, AnUnknownTypeWithoutAFunctionFailsInTheFirstHandler) {
  const auto failure = FailureOf([this] { Send(MakeInstruction(u"Telepathy", u"")); });
  EXPECT_EQ(failure.Number, Hex(0x8004145A));
  EXPECT_EQ(failure.Trail.front(), u"CSCPIInstHandler.IInstProcessor_Send(Instruction={CInstContainer})");
}

TEST_F(Pipeline, AConfigurationInstructionEndsInATypeMismatch) {
  EXPECT_EQ(FailureOf([this] { Send(MakeInstruction(u"CONFIG", u"Set", {{u"Data", u"<Parameters/>"}})); }).Number, 13);
  EXPECT_EQ(Calls, Journal{});
}

} // namespace
} // namespace portico
