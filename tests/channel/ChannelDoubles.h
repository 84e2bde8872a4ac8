#pragma once

#include "channel/IChannel.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/CResponse.h"
#include "framework/shared/ICommand.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IReport.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace portico::test {

/// What happened, in order, across all doubles of one test.
using Trace = std::vector<std::string>;

/// A step that a test may put into a double.
using Hook = std::function<void()>;

inline Ref<IResponse> Response(std::int32_t code, const String& text) {
  auto response = New<CResponse>();
  response->Initialize(code, text);
  return response;
}

/// A channel that gives one answer to everything.
class FakeChannel final : public IChannel {
public:
  explicit FakeChannel(Trace& trace) : m_trace(trace) {}
  StringView ClassName() const override { return u"FakeChannel"; }

  Ref<IResponse> OpenChannel(const String& Name) override { return Note("OpenChannel", {Name}); }
  Ref<IResponse> WriteData(const String& Data) override { return Note("WriteData", {Data}); }
  Ref<IResponse> ReadData() override { return Note("ReadData", {}); }
  Ref<IResponse> CloseChannel() override { return Note("CloseChannel", {}); }
  Ref<IResponse> GetChannelAttribute(const String& Name) override { return Note("GetChannelAttribute", {Name}); }
  Ref<IResponse> SetChannelAttribute(const String& Name, const String& Value) override {
    return Note("SetChannelAttribute", {Name, Value});
  }

  std::int32_t Code = 0;
  String Text;
  Hook OnCall;

private:
  Ref<IResponse> Note(const std::string& operation, const std::vector<String>& arguments) {
    std::string list;
    for (const String& argument : arguments) list += (list.empty() ? "" : ",") + ToUtf8(argument);
    m_trace.push_back(operation + "(" + list + ")");
    if (OnCall) OnCall();
    return Response(Code, Text);
  }
  Trace& m_trace;
};

/// A configuration server that remembers what it is asked and gives one answer.
class FakeConfigurationServer final : public IConfiguration, public IConfigurationServer {
public:
  explicit FakeConfigurationServer(Trace& trace) : m_trace(trace) {}
  StringView ClassName() const override { return u"FakeConfigurationServer"; }

  String ItemValue(StringView Name) override { return Note("Get(" + ToUtf8(Name) + ")"); }
  void ItemValue(StringView Name, StringView Value) override {
    Note("Set(" + ToUtf8(Name) + "," + ToUtf8(Value) + ")");
  }
  Ref<IResponse> Update(const String& Configuration) override {
    return Response(0, Note("Update(" + ToUtf8(Configuration) + ")"));
  }
  Ref<IResponse> Retrieve(const String& Configuration) override {
    return Response(0, Note("Retrieve(" + ToUtf8(Configuration) + ")"));
  }

  String Text;
  Hook OnCall;

private:
  const String& Note(const std::string& call) {
    m_trace.push_back(call);
    if (OnCall) OnCall();
    return Text;
  }
  Trace& m_trace;
};

/// A report as it reads while it is being published.
struct ReportText {
  String Command;
  String Data;
  String Message;
  std::int32_t Code = 0;
  String Instruction;
};

class RecordingPublisher final : public IPublisher {
public:
  explicit RecordingPublisher(Trace& trace) : m_trace(trace) {}
  StringView ClassName() const override { return u"RecordingPublisher"; }

  void Subscribe(const Ref<ISubscriber>&) override {}
  void Unsubscribe(const Ref<ISubscriber>&) override {}
  void Notify(const Ref<IObject>& Subject) override {
    const auto report = Cast<IReport>(Subject);
    m_trace.push_back("Notify(" + ToUtf8(report->GetCommand()) + ")");
    Subjects.push_back(Subject);
    Reports.push_back({report->GetCommand(), report->GetData(), report->GetErrorMessage(), report->GetErrorCode(),
                       report->GetSCPIInstruction()});
    if (OnNotify) OnNotify();
  }

  std::vector<Ref<IObject>> Subjects;
  std::vector<ReportText> Reports;
  Hook OnNotify;

private:
  Trace& m_trace;
};

/// An inner command that notes that it ran.
class RecordingCommand final : public ICommand {
public:
  explicit RecordingCommand(Trace& trace, Hook onExecute = {}) : m_trace(trace), m_onExecute(std::move(onExecute)) {}
  StringView ClassName() const override { return u"RecordingCommand"; }
  void Execute() override {
    m_trace.emplace_back("Inner");
    if (m_onExecute) m_onExecute();
  }

private:
  Trace& m_trace;
  Hook m_onExecute;
};

} // namespace portico::test
