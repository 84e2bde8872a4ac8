#pragma once

#include "channel/CChainLink.h"
#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"

namespace portico {

// The links that use the configuration server. A text that is not XML raises `InvalidArgument`, and so stops the chain.
// Kept for the contract: nothing in the program asks for them, since nothing sends a "CONFIG" instruction.

/// Answers with the current values of the items that the text names.
class CGetConfigCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"CGetConfigCmd"; }
  void Initialize(const Ref<ICommand>& InnerCommand, const String& Configuration, const Ref<IPublisher>& Publisher);

private:
  Ref<IResponse> Operate() override;
  String m_configuration;
};

/// Stores the items of the text.
class CSetConfigCmd final : public CChainLink {
public:
  StringView ClassName() const override { return u"CSetConfigCmd"; }
  void Initialize(const Ref<ICommand>& InnerCommand, const String& Configuration, const Ref<IPublisher>& Publisher);

private:
  Ref<IResponse> Operate() override;
  /// Both source labels have always named the open command; error trails show them so.
  StringView LabelName() const override { return u"COpenCmd"; }
  String m_configuration;
};

// The parameters are the inner command and the configuration as XML.
namespace Class {

inline constexpr ClassKey<ICommand, Ref<ICommand>, StringView> GetConfigurationCommand{u"GetConfigurationCommand"};
inline constexpr ClassKey<ICommand, Ref<ICommand>, StringView> SetConfigurationCommand{u"SetConfigurationCommand"};

} // namespace Class

extern const CreatorRow CtorGetConfigCmd;
extern const CreatorRow CtorSetConfigCmd;

} // namespace portico
