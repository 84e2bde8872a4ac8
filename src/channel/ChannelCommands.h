#pragma once

#include "channel/CChainLink.h"
#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"

namespace portico {

// The links that use the channel `gChannel`, one operation each.

/// Opens the channel and notes in the configuration whether it is open.
class COpenCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"COpenCmd"; }
  void Initialize(const Ref<ICommand>& InnerCommand, const String& ChannelName, const Ref<IPublisher>& Publisher);

private:
  Ref<IResponse> Operate() override;
  void AfterOperation() override;
  String m_channelName;
};

class CWriteCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"CWriteCmd"; }
  void Initialize(const Ref<ICommand>& InnerCommand, const String& Data, const Ref<IPublisher>& Publisher);
  /// The data without the carriage return that the channel adds.
  String GetSCPIInstruction() const override { return m_data; }

private:
  Ref<IResponse> Operate() override;
  String m_data;
};

class CReadCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"CReadCmd"; }
  void Initialize(const Ref<ICommand>& InnerCommand, const Ref<IPublisher>& Publisher);

private:
  Ref<IResponse> Operate() override;
};

class CCloseCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"CCloseCmd"; }
  void Initialize(const Ref<ICommand>& InnerCommand, const Ref<IPublisher>& Publisher);

private:
  Ref<IResponse> Operate() override;
};

/// Kept for the contract: nothing in the program asks for it.
class CGetAttribCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"CGetAttribCmd"; }
  /// An empty name raises `InvalidArgument`.
  void Initialize(const Ref<ICommand>& InnerCommand, const String& AttributeName, const Ref<IPublisher>& Publisher);

private:
  Ref<IResponse> Operate() override;
  String m_attributeName;
};

class CSetAttribCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"CSetAttribCmd"; }
  /// An empty name raises `InvalidArgument`; an empty value is legal.
  void Initialize(const Ref<ICommand>& InnerCommand, const String& AttributeName, const String& AttributeValue,
                  const Ref<IPublisher>& Publisher);

private:
  Ref<IResponse> Operate() override;
  String m_attributeName;
  String m_attributeValue;
};

// The first parameter of each is the inner command; an unset one ends the chain.
namespace Class {

/// The second is the instrument's name.
inline constexpr ClassKey<ICommand, Ref<ICommand>, StringView> OpenCmd{u"OpenCmd"};
/// The second is what is sent.
inline constexpr ClassKey<ICommand, Ref<ICommand>, StringView> WriteCmd{u"WriteCmd"};
/// The second is empty; any other text raises `InvalidArgument`.
inline constexpr ClassKey<ICommand, Ref<ICommand>, StringView> ReadCmd{u"ReadCmd"};
inline constexpr ClassKey<ICommand, Ref<ICommand>> CloseCmd{u"CloseCmd"};
/// The second is the attribute's name.
inline constexpr ClassKey<ICommand, Ref<ICommand>, StringView> GetAttribCmd{u"GetAttribCmd"};
/// The second is the attribute's name, the third its value.
inline constexpr ClassKey<ICommand, Ref<ICommand>, StringView, StringView> SetAttribCmd{u"SetAttribCmd"};

} // namespace Class

extern const CreatorRow CtorOpenCmd;
extern const CreatorRow CtorWriteCmd;
extern const CreatorRow CtorReadCmd;
extern const CreatorRow CtorCloseCmd;
extern const CreatorRow CtorGetAttribCmd;
extern const CreatorRow CtorSetAttribCmd;

} // namespace portico
