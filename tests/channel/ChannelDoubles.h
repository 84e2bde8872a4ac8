#pragma once

#include "channel/IChannel.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/ICommand.h"
#include "framework/shared/IResponse.h"
#include "support/Journal.h"

#include <functional>
#include <string>
#include <vector>

namespace portico::test {

/// What happened, in order, across all doubles of one test.
using Trace = Journal;

/// A step that a test may put into a double.
using Hook = std::function<void()>;

Ref<IResponse> Response(std::int32_t code, const String& text);

/// A channel that gives one answer to everything.
class FakeChannel final : public IChannel {
public:
  explicit FakeChannel(Trace& trace);
  StringView ClassName() const override;

  Ref<IResponse> OpenChannel(const String& Name) override;
  Ref<IResponse> WriteData(const String& Data) override;
  Ref<IResponse> ReadData() override;
  Ref<IResponse> CloseChannel() override;
  Ref<IResponse> GetChannelAttribute(const String& Name) override;
  Ref<IResponse> SetChannelAttribute(const String& Name, const String& Value) override;

  std::int32_t Code = 0;
  String Text;
  Hook OnCall;

private:
  Ref<IResponse> Note(const std::string& operation, const std::vector<String>& arguments);
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
  explicit RecordingPublisher(Trace& trace);
  StringView ClassName() const override;

  void Subscribe(const Ref<ISubscriber>&) override;
  void Unsubscribe(const Ref<ISubscriber>&) override;
  void Notify(const Ref<IObject>& Subject) override;

  std::vector<Ref<IObject>> Subjects;
  std::vector<ReportText> Reports;
  Hook OnNotify;

private:
  Trace& m_trace;
};

/// An inner command that notes that it ran.
Ref<ICommand> InnerCommand(Trace& trace, Hook onExecute = {});

} // namespace portico::test
