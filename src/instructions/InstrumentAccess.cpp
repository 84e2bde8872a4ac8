#include "instructions/InstrumentAccess.h"

#include "channel/IChannel.h"
#include "channel/IChannelExtension.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/CInstGenerator.h"
#include "instructions/IInstProcessor.h"

namespace portico::InstrumentAccess {
namespace {

/// The server: what is written to it tells the main window nothing.
Ref<IConfiguration> Server() { return Create(Class::Configuration); }

/// Lasts as long as this.
class Diverting {
public:
  Diverting(const Ref<IChannelExtension>& channel, AnswerDiversion& diversion) : m_channel(channel) {
    m_channel->Divert(&diversion);
  }
  Diverting(const Diverting&) = delete;
  Diverting& operator=(const Diverting&) = delete;
  ~Diverting() { m_channel->Divert(nullptr); }

private:
  Ref<IChannelExtension> m_channel;
};

Ref<IChannelExtension> Channel() { return CreateAs<IChannelExtension>(Class::DriverSession); }

} // namespace

void Send(const Ref<CInstContainer>& Instruction) {
  const auto processor = Create(Class::InstructionProcessor);
  HuntERR::Check(processor->Send(Instruction) == IInstProcessor::Done, ErrorNumber::CannotCarryOut,
                 u"Instruction was not handled.");
}

std::optional<String> Open(const String& Name) {
  Send(CInstGenerator().ConstructXMLOpenCmdString(Name));
  const auto configuration = Server();
  configuration->ItemValue(Item::InstrumentName, Name);
  String termination = configuration->ItemValue(Item::TERMCHAR);
  if (!configuration->IsTrue(Item::InstrumentOpened)) return {};
  return termination;
}

void SetTermination(const String& Termination) {
  Send(CInstGenerator().ConstructXMLSetAttribCmdString(String(Item::TERMCHAR), Termination));
}

void Close() {
  Send(CInstGenerator().ConstructXMLCloseCmdString());
  const auto configuration = Server();
  configuration->ItemValue(Item::InstrumentName, u"");
  configuration->Set(Item::InstrumentOpened, false);
  configuration->Set(Item::OpenfromTree, false);
}

Ref<IResponse> Fetch(const String& Query, const AnswerSink& Sink) {
  const auto channel = Channel();
  if (auto refusal = channel->CanDivert(); refusal->ErrorCode() != 0) return refusal;
  const CInstGenerator generator;
  Send(generator.ConstructXMLWriteCmdString(Query));
  AnswerDiversion diversion{.Sink = Sink};
  const Diverting diverting(channel, diversion);
  Send(generator.ConstructXMLReadCmdString());
  return diversion.Response;
}

Ref<IResponse> SetTimeout(std::int32_t Milliseconds) { return Channel()->SetTimeout(Milliseconds); }

Ref<IResponse> ClearDevice() { return Channel()->ClearDevice(); }

Ref<IResponse> GoToLocal() { return Channel()->GoToLocal(); }

} // namespace portico::InstrumentAccess
