#include "channel/ChannelCommands.h"

#include "channel/IChannel.h"
#include "channel/Link.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"

namespace portico {
namespace {

void CheckAttributeName(const String& name) {
  HuntERR::Check(!name.empty(), ErrorNumber::InvalidArgument, u"Attribute name cannot be an empty string.");
}

} // namespace

void COpenCmd::Initialize(const Ref<ICommand>& InnerCommand, const String& ChannelName,
                          const Ref<IPublisher>& Publisher) try {
  m_channelName = ChannelName;
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"COpenCmd.Initialize(InnerCommand,ChannelName)", {InnerCommand, ChannelName});
}

Ref<IResponse> COpenCmd::Operate() { return gChannel->OpenChannel(m_channelName); }

void COpenCmd::AfterOperation() { Create(Class::Configuration)->Set(Item::InstrumentOpened, GetErrorCode() == 0); }

void CWriteCmd::Initialize(const Ref<ICommand>& InnerCommand, const String& Data,
                           const Ref<IPublisher>& Publisher) try {
  m_data = Data;
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"CWriteCmd.Initialize(InnerCommand,Data)", {InnerCommand, Data});
}

Ref<IResponse> CWriteCmd::Operate() { return gChannel->WriteData(m_data); }

void CReadCmd::Initialize(const Ref<ICommand>& InnerCommand, const Ref<IPublisher>& Publisher) try {
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"CReadCmd.Initialize(InnerCommand)", {InnerCommand});
}

Ref<IResponse> CReadCmd::Operate() { return gChannel->ReadData(); }

void CCloseCmd::Initialize(const Ref<ICommand>& InnerCommand, const Ref<IPublisher>& Publisher) try {
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"CCloseCmd.Initialize(InnerCommand)", {InnerCommand});
}

Ref<IResponse> CCloseCmd::Operate() { return gChannel->CloseChannel(); }

void CGetAttribCmd::Initialize(const Ref<ICommand>& InnerCommand, const String& AttributeName,
                               const Ref<IPublisher>& Publisher) try {
  CheckAttributeName(AttributeName);
  m_attributeName = AttributeName;
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"CGetAttribCmd.Initialize(InnerCommand,AttributeName)", {InnerCommand, AttributeName});
}

Ref<IResponse> CGetAttribCmd::Operate() { return gChannel->GetChannelAttribute(m_attributeName); }

void CSetAttribCmd::Initialize(const Ref<ICommand>& InnerCommand, const String& AttributeName,
                               const String& AttributeValue, const Ref<IPublisher>& Publisher) try {
  CheckAttributeName(AttributeName);
  m_attributeName = AttributeName;
  m_attributeValue = AttributeValue;
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"CSetAttribCmd.Initialize(InnerCommand,AttributeName)", {InnerCommand, AttributeName});
}

Ref<IResponse> CSetAttribCmd::Operate() { return gChannel->SetChannelAttribute(m_attributeName, m_attributeValue); }

const CreatorRow CtorOpenCmd = {
    .Name = u"CtorOpenCmd",
    .Specification = Class::OpenCmd,
    .ParamCount = Class::OpenCmd.ParamCount,
    .Make = [](const Params& Parameters) { return Link<COpenCmd>(Parameters, Parameters[1].ToString()); },
};

const CreatorRow CtorWriteCmd = {
    .Name = u"CtorWriteCmd",
    .Specification = Class::WriteCmd,
    .ParamCount = Class::WriteCmd.ParamCount,
    .Make = [](const Params& Parameters) { return Link<CWriteCmd>(Parameters, Parameters[1].ToString()); },
};

const CreatorRow CtorReadCmd = {
    .Name = u"CtorReadCmd",
    .Specification = Class::ReadCmd,
    .ParamCount = Class::ReadCmd.ParamCount,
    .Make =
        [](const Params& Parameters) {
          // One parameter too many, because the builder treats all its commands alike.
          HuntERR::Check(Parameters[1].ToString().empty(), ErrorNumber::InvalidArgument,
                         u"Second parameter cannot have a value.");
          return Link<CReadCmd>(Parameters);
        },
};

const CreatorRow CtorCloseCmd = {
    .Name = u"CtorCloseCmd",
    .Specification = Class::CloseCmd,
    .ParamCount = Class::CloseCmd.ParamCount,
    .Make = [](const Params& Parameters) { return Link<CCloseCmd>(Parameters); },
};

const CreatorRow CtorGetAttribCmd = {
    .Name = u"CtorGetAttribCmd",
    .Specification = Class::GetAttribCmd,
    .ParamCount = Class::GetAttribCmd.ParamCount,
    .Make = [](const Params& Parameters) { return Link<CGetAttribCmd>(Parameters, Parameters[1].ToString()); },
};

const CreatorRow CtorSetAttribCmd = {
    .Name = u"CtorSetAttribCmd",
    .Specification = Class::SetAttribCmd,
    .ParamCount = Class::SetAttribCmd.ParamCount,
    .Make =
        [](const Params& Parameters) {
          return Link<CSetAttribCmd>(Parameters, Parameters[1].ToString(), Parameters[2].ToString());
        },
};

} // namespace portico
