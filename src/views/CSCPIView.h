#pragma once

#include "framework/objects/ClassKey.h"
#include "views/SCPIViewBase.h"

namespace portico {

/// The view model of the command window. Typing makes its queue stale, and costs no more than that: the queue is made
/// anew when somebody asks for it. During a run the queue is left alone, so that taking lines off makes no work.
class CSCPIView final : public SCPIViewBase {
public:
  CSCPIView() = default;
  ~CSCPIView() override;
  StringView ClassName() const override { return u"CSCPIView"; }

  void Initialize(const Ref<IRichTextBox>& InstructionDisplay);
  using SCPIViewBase::Instructions;
  /// Replaces the queue and redraws the window from it. A null queue raises `BadPropertyValue`.
  void Instructions(const Ref<CDataFIFO>& newValue);
  // Before `Initialize` both raise `NotInitialized`.

  /// Empties the window and its queue.
  void Clear();
  /// Redraws nothing.
  void Refresh();
  /// True while a run takes lines from the window.
  bool Executing() const { return m_executing; }
  void Executing(bool newValue) { m_executing = newValue; }

private:
  void m_Instructions_OnAdd(const Ref<IDataEntity>& DataEntity, std::int64_t Index) override;
  void m_Instructions_MaximumCountExceded(const Ref<IDataEntity>& DataEntity, std::int64_t Index) override;
  bool KeepsSelection() const override { return true; }
  void DisplayTaken() override;
  void m_txtFuture_Change();

  bool m_executing = false;
  Ref<IRichTextBox> m_txtFuture; // whose changes are heard
  Event<>::Connection m_change = 0;
};

namespace Class {

/// The display.
inline constexpr ClassKey<CSCPIView, Ref<IRichTextBox>> SCPIView{u"SCPIView"};

} // namespace Class

extern const CreatorRow CtorSCPIView;

} // namespace portico
