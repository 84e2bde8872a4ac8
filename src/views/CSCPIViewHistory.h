#pragma once

#include "framework/objects/ClassKey.h"
#include "views/SCPIViewBase.h"

namespace portico {

/// The view model of the history window: it only grows, until the user clears it. Text that reaches the window by other
/// means does not concern the queue.
class CSCPIViewHistory final : public SCPIViewBase {
public:
  StringView ClassName() const override { return u"CSCPIViewHistory"; }

  void Initialize(const Ref<IRichTextBox>& InstructionDisplay) { SetUp(InstructionDisplay); }
  using SCPIViewBase::Instructions;
  /// Replaces the queue and redraws the window from it.
  void Instructions(const Ref<CDataFIFO>& newValue);
  Ref<IRichTextBox> InstructionDisplay() const;
  /// Empties the window; the queue keeps its entities.
  void Clear();
  /// Does nothing.
  void Refresh() {}

private:
  void m_Instructions_OnAdd(const Ref<IDataEntity>& DataEntity, std::int64_t Index) override;
  void m_Instructions_MaximumCountExceded(const Ref<IDataEntity>& DataEntity, std::int64_t Index) override;
  bool KeepsSelection() const override { return false; }
};

/// Puts the caret behind a box's text and brings it into view by giving the box the focus.
void FocusAtEnd(IRichTextBox& box);

namespace Class {

/// The display.
inline constexpr ClassKey<CSCPIViewHistory, Ref<IRichTextBox>> SCPIViewHistory{u"SCPIViewHistory"};

} // namespace Class

extern const CreatorRow CtorSCPIViewHistory;

} // namespace portico
