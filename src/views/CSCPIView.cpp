#include "views/CSCPIView.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {

CSCPIView::~CSCPIView() {
  if (m_txtFuture) m_txtFuture->Change().Disconnect(m_change);
}

void CSCPIView::Initialize(const Ref<IRichTextBox>& InstructionDisplay) try { SetUp(InstructionDisplay); } catch (...) {
  PassOn(Label(u".Initialize(InstructionDisplay)"), {InstructionDisplay});
}

void CSCPIView::DisplayTaken() {
  if (m_txtFuture) m_txtFuture->Change().Disconnect(m_change);
  m_txtFuture = Display();
  m_change = m_txtFuture->Change().Connect([this] { m_txtFuture_Change(); });
}

void CSCPIView::Instructions(const Ref<CDataFIFO>& newValue) try {
  CheckInitialized();
  HuntERR::Check(bool(newValue), ErrorNumber::BadPropertyValue, u"Instructions cannot be set to nothing.");
  Attach(newValue);
  State(ViewState::Stale);
  UpdateDisplay();
} catch (...) {
  PassOn(Label(u".Instructions(newValue)"), {newValue});
}

void CSCPIView::Clear() try {
  CheckInitialized();
  Display()->Text({});
  State(ViewState::Stale);
  GetInstructionQueue();
} catch (...) {
  PassOn(Label(u".Clear()"));
}

void CSCPIView::Refresh() try { CheckInitialized(); } catch (...) {
  PassOn(Label(u".Refresh()"));
}

void CSCPIView::m_txtFuture_Change() try {
  if (!m_executing) State(ViewState::Stale);
} catch (...) {
  PassOn(Label(u".m_txtFuture_Change()"));
}

void CSCPIView::m_Instructions_OnAdd(const Ref<IDataEntity>& DataEntity, std::int64_t Index) try {
  CaretToEnd();
  Display()->Span(u"\n");
  Show(DataEntity);
} catch (...) {
  PassOn(Label(u".m_Instructions_OnAdd(DataEntity, Index)"), {DataEntity, static_cast<double>(Index)});
}

void CSCPIView::m_Instructions_MaximumCountExceded(const Ref<IDataEntity>& DataEntity, std::int64_t Index) try {
  RemoveText(DataEntity, Index);
} catch (...) {
  PassOn(Label(u".m_Instructions_MaximumCountExceded(DataEntity, Index)"), {DataEntity, static_cast<double>(Index)});
}

const CreatorRow CtorSCPIView = {
    .Name = u"CtorSCPIView",
    .Specification = Class::SCPIView,
    .ParamCount = Class::SCPIView.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto view = New<CSCPIView>();
          view->Initialize(Parameters[0].ToObject<IRichTextBox>());
          return Ref<IObject>(view);
        },
};

} // namespace portico
