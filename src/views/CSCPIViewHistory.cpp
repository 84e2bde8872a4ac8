#include "views/CSCPIViewHistory.h"

#include "framework/errors/HuntERR.h"

namespace portico {
namespace {

bool IsEmptyLine(const IDataEntity& entity) {
  constexpr auto units = static_cast<std::int32_t>(NewLine.size());
  constexpr auto unitSize = static_cast<std::int32_t>(sizeof(char16_t));
  return entity.DataLength() / unitSize == units && entity.ReadText() == NewLine;
}

} // namespace

void FocusAtEnd(IRichTextBox& box) {
  box.SetFocus();
  box.SelStart(box.TextLength() + 1);
  box.SetFocus();
  box.Span(u"\n");
}

void CSCPIViewHistory::Instructions(const Ref<CDataFIFO>& newValue) try {
  Attach(newValue);
  State(ViewState::Stale);
  UpdateDisplay();
} catch (...) {
  PassOn(Label(u".Instructions(newValue)"), {newValue});
}

Ref<IRichTextBox> CSCPIViewHistory::InstructionDisplay() const try { return Display(); } catch (...) {
  PassOn(Label(u".Display()"));
}

void CSCPIViewHistory::Clear() try { Display()->Text({}); } catch (...) {
  PassOn(Label(u".Clear()"));
}

void CSCPIViewHistory::m_Instructions_OnAdd(const Ref<IDataEntity>& DataEntity, std::int64_t Index) try {
  FocusAtEnd(*Display());
  if (IsEmptyLine(*DataEntity)) return; // it is in the queue only
  Show(DataEntity);
} catch (...) {
  PassOn(Label(u".m_Instructions_OnAdd(DataEntity, Index)"), {DataEntity, static_cast<double>(Index)});
}

void CSCPIViewHistory::m_Instructions_MaximumCountExceded(const Ref<IDataEntity>& DataEntity, std::int64_t Index) try {
  RemoveText(DataEntity, Index);
} catch (...) {
  PassOn(Label(u".m_Instructions_MaximumCountExceded"));
}

const CreatorRow CtorSCPIViewHistory = {
    .Name = u"CtorSCPIViewHistory",
    .Specification = Class::SCPIViewHistory,
    .ParamCount = Class::SCPIViewHistory.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto view = New<CSCPIViewHistory>();
          view->Initialize(Parameters[0].ToObject<IRichTextBox>());
          return Ref<IObject>(view);
        },
};

} // namespace portico
