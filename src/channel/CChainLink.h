#pragma once

#include "framework/objects/IPublisher.h"
#include "framework/shared/ICommand.h"
#include "framework/shared/IReport.h"
#include "framework/shared/IResponse.h"

#include <memory>

namespace portico {

/// What all links of an instruction's chain share. A link does its own operation, publishes itself as the report of it
/// and then runs the link that it wraps, so that a chain reads in the order of the conversation with the instrument.
/// A driver's failure is only reported; an error that is raised stops the chain.
class CChainLink : public ICommand, public IReport, public std::enable_shared_from_this<CChainLink> {
public:
  /// Raises `NotInitialized` before `Initialize` of the link. May be run again; it replaces the response.
  void Execute() override;

  // The report is there from the moment that the response is stored; before that they raise `MissingObject`.
  String GetCommand() const override { return String(ClassName()); }
  String GetData() const override { return m_response->ResponseData(); }
  String GetErrorMessage() const override { return m_response->ErrorMessage(); }
  std::int32_t GetErrorCode() const override { return m_response->ErrorCode(); }
  String GetSCPIInstruction() const override { return {}; }

protected:
  /// A missing inner command ends the chain, a missing publisher means silence.
  void SetUp(const Ref<ICommand>& InnerCommand, const Ref<IPublisher>& Publisher);

  /// The link's own step.
  virtual Ref<IResponse> Operate() = 0;
  /// Between the step and its publication.
  virtual void AfterOperation() {}
  /// The class whose source labels the link bears.
  virtual StringView LabelName() const { return ClassName(); }

private:
  bool m_initialized = false;
  Ref<ICommand> m_innerCommand;
  Ref<IResponse> m_response;
  Ref<IPublisher> m_publisher;
};

} // namespace portico
