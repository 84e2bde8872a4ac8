#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/ICommand.h"
#include "views/CSCPIView.h"

#include <memory>

namespace portico {

/// The second engine: sends the first entity of a view's queue whenever a report tells it to go on. Subscribes itself.
/// That engine is part of the contract and nothing in the program starts it: what the runner does there is to clear
/// "CurrentInstruction" when an instruction has ended.
class CInstructionRunner final : public ISubscriber, public std::enable_shared_from_this<CInstructionRunner> {
public:
  StringView ClassName() const override { return u"CInstructionRunner"; }

  /// A null source raises `InvalidArgument`, no factory `ObjectRequired`.
  void Initialize(const Ref<CSCPIView>& InstructionSource);
  Ref<CSCPIView> InstructionSource() const { return m_source; }
  /// Before `Initialize` it raises `NotInitialized`; a null subject raises `InvalidArgument`.
  void Update(const Ref<IObject>& Subject) override;

  /// During a run: the next instruction can come.
  Event<> ReadyForInstruction;

private:
  void SendNextInstruction();
  String TakeInstructionText();

  Ref<CSCPIView> m_source;
  Ref<ICommand> m_stop;
  bool m_initialized = false;
};

namespace Class {

/// The view.
inline constexpr ClassKey<ISubscriber, Ref<CSCPIView>> InstructionRunner{u"InstructionRunner"};

} // namespace Class

extern const CreatorRow CtorInstructionRunner;

} // namespace portico
