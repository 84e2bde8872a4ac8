#include "channel/ChannelDoubles.h"

#include "framework/shared/CResponse.h"
#include "framework/shared/IReport.h"
#include "support/doubles/Objects.h"

#include <utility>

namespace portico::test {

Ref<IResponse> Response(std::int32_t code, const String& text) {
  auto response = New<CResponse>();
  response->Initialize(code, text);
  return response;
}

FakeChannel::FakeChannel(Trace& trace) : m_trace(trace) {}

StringView FakeChannel::ClassName() const { return u"FakeChannel"; }

Ref<IResponse> FakeChannel::OpenChannel(const String& Name) { return Note("OpenChannel", {Name}); }

Ref<IResponse> FakeChannel::WriteData(const String& Data) { return Note("WriteData", {Data}); }

Ref<IResponse> FakeChannel::ReadData() { return Note("ReadData", {}); }

Ref<IResponse> FakeChannel::CloseChannel() { return Note("CloseChannel", {}); }

Ref<IResponse> FakeChannel::GetChannelAttribute(const String& Name) { return Note("GetChannelAttribute", {Name}); }

Ref<IResponse> FakeChannel::SetChannelAttribute(const String& Name, const String& Value) {
  return Note("SetChannelAttribute", {Name, Value});
}

Ref<IResponse> FakeChannel::Note(const std::string& operation, const std::vector<String>& arguments) {
  std::string list;
  for (const String& argument : arguments) list += (list.empty() ? "" : ",") + ToUtf8(argument);
  m_trace.push_back(operation + "(" + list + ")");
  if (OnCall) OnCall();
  return Response(Code, Text);
}

RecordingPublisher::RecordingPublisher(Trace& trace) : m_trace(trace) {}

StringView RecordingPublisher::ClassName() const { return u"RecordingPublisher"; }

void RecordingPublisher::Subscribe(const Ref<ISubscriber>&) {}

void RecordingPublisher::Unsubscribe(const Ref<ISubscriber>&) {}

void RecordingPublisher::Notify(const Ref<IObject>& Subject) {
  const auto report = Cast<IReport>(Subject);
  m_trace.push_back("Notify(" + ToUtf8(report->GetCommand()) + ")");
  Subjects.push_back(Subject);
  Reports.push_back({report->GetCommand(), report->GetData(), report->GetErrorMessage(), report->GetErrorCode(),
                     report->GetSCPIInstruction()});
  if (OnNotify) OnNotify();
}

Ref<ICommand> InnerCommand(Trace& trace, Hook onExecute) {
  return New<CommandOf>([&trace, onExecute = std::move(onExecute)] {
    trace.emplace_back("Inner");
    if (onExecute) onExecute();
  });
}

} // namespace portico::test
