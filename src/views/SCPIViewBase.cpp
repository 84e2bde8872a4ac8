#include "views/SCPIViewBase.h"

#include "document/entities/IIteratableObject.h"
#include "document/reports/ReportEntities.h"
#include "framework/shared/Guards.h"
#include "views/LineMarks.h"

#include <cmath>

namespace portico {
namespace {

/// The nearest integer, halves to the even one.
std::int64_t Rounded(double number) { return static_cast<std::int64_t>(std::nearbyint(number)); }

std::int32_t MeasureBytesPerChar() {
  static constexpr StringView probe = u"A string";
  HuntERR::Check(!probe.empty(), ErrorNumber::InternalState, u"Cannot determine the number of bytes per character.");
  const double span = static_cast<double>(ToBytes(probe).size()) - 1; // upper bound minus lower bound
  const auto bytes = static_cast<std::int32_t>(Rounded(span / static_cast<double>(probe.size())));
  HuntERR::Check(bytes != 0, ErrorNumber::InternalState, u"Cannot determine the number of bytes per character.");
  return bytes;
}

} // namespace

SCPIViewBase::~SCPIViewBase() { Detach(); }

void SCPIViewBase::CheckInitialized() const { portico::CheckInitialized(m_viewState != ViewState::NotInitialized); }

void SCPIViewBase::SetUp(const Ref<IRichTextBox>& InstructionDisplay) {
  HuntERR::Check(bool(InstructionDisplay), ErrorNumber::InvalidArgument, u"Instruction display cannot be nothing.");
  auto encoder = New<CRTFEncoder>();
  HuntERR::Check(bool(encoder), ErrorNumber::CannotCreate, u"Cannot create an encoder.");
  encoder->Initialize(InstructionDisplay);
  m_encoder = encoder;
  m_display = InstructionDisplay;
  DisplayTaken();
  m_bytesPerChar = MeasureBytesPerChar(); // before the queue, which a display with text needs it for
  m_viewState = ViewState::Stale;
  GetInstructionQueue();
  UpdateDisplay();
}

Ref<CDataFIFO> SCPIViewBase::Instructions() try {
  CheckInitialized();
  return GetInstructionQueue();
} catch (...) {
  PassOn(Label(u".Instructions()"));
}

Ref<IDataEntity> SCPIViewBase::PopNextInstruction() try {
  CheckInitialized();
  Split(m_display->Text(), NewLine);
  return {};
} catch (...) {
  PassOn(Label(u".PopNextInstruction()"));
}

Ref<CDataFIFO> SCPIViewBase::GetInstructionQueue() try {
  if (m_viewState != ViewState::Stale) return m_instructions;
  const std::int32_t start = m_display->SelStart();
  const std::int32_t length = m_display->SelLength();
  const Ref<CDataFIFO> queue = ReadQueue();
  m_viewState = ViewState::InStep;
  Attach(queue); // only now, or its events would echo into the window
  if (KeepsSelection()) {
    m_display->SelStart(start);
    m_display->SelLength(length);
  }
  return m_instructions;
} catch (...) {
  PassOn(Label(u".GetInstructionQueue()"));
}

Ref<CDataFIFO> SCPIViewBase::ReadQueue() {
  const String text = m_display->Text();
  auto queue = Create(Class::DataContainer, 0);
  HuntERR::Check(bool(queue), ErrorNumber::CannotCreate, u"Can't create an instruction queue.");
  if (text.empty()) return queue;
  std::int64_t position = 0;
  for (const StringView piece : Split(text, NewLine)) {
    const String line = modAppGlobals::AddTerminalNewLineToString(String(piece));
    SelectEntityText(position, static_cast<std::int64_t>(line.size()));
    const auto entity = m_encoder->Decode(m_display->SelRTF());
    queue->Enqueue(entity);
    position += Characters(entity->DataLength());
  }
  return queue;
}

void SCPIViewBase::UpdateDisplay() try {
  const auto iterator = Create(Class::SelectionIterator, u"IterateAll");
  m_display->Text({});
  iterator->Attach(m_instructions);
  for (Value item = iterator->FirstItem(); !iterator->IsDone(); item = iterator->NextItem()) {
    Insert(item.ToObject<IDataEntity>());
  }
  m_viewState = ViewState::InStep;
} catch (...) {
  PassOn(Label(u".UpdateDisplay()"));
}

void SCPIViewBase::Attach(const Ref<CDataFIFO>& queue) {
  Detach();
  m_instructions = queue;
  if (!queue) return;
  using Entity = const Ref<IDataEntity>&;
  m_connections = {
      queue->MaximumCountExceded.Connect(
          [this](Entity entity, std::int64_t index) { m_Instructions_MaximumCountExceded(entity, index); }),
      queue->OnAdd.Connect([this](Entity entity, std::int64_t index) { m_Instructions_OnAdd(entity, index); }),
      queue->OnRemove.Connect([this](Entity entity, std::int64_t index) { m_Instructions_OnRemove(entity, index); }),
  };
}

void SCPIViewBase::Detach() {
  if (!m_instructions) return;
  m_instructions->MaximumCountExceded.Disconnect(m_connections.Exceded);
  m_instructions->OnAdd.Disconnect(m_connections.Added);
  m_instructions->OnRemove.Disconnect(m_connections.Removed);
  m_instructions = nullptr;
}

void SCPIViewBase::CaretToEnd() { m_display->SelStart(m_display->TextLength() + 1); }

void SCPIViewBase::Show(const Ref<IDataEntity>& DataEntity) {
  const std::int32_t start = m_display->SelStart();
  const String type = DataEntity->DataType();
  if (type == DataTypeName::Response) InsertHidden(ResponseMarker);
  if (type == DataTypeName::AutomaticInstruction) InsertHidden(AutomaticMarker);
  Insert(DataEntity);
  Shown(DataEntity, start, m_display->SelStart());
}

void SCPIViewBase::InsertHidden(char16_t marker) {
  SelectionFormat before;
  before.SelColor = m_display->SelFormat().SelColor;
  m_display->SelFormat({.SelColor = TextLook::White});
  m_display->SelText(StringView(&marker, 1));
  m_display->SelFormat(before);
}

void SCPIViewBase::RemoveText(const Ref<IDataEntity>& DataEntity, std::int64_t Index) {
  SelectEntityText(Characters(Index), Characters(DataEntity->DataLength()));
  DeleteSelectedText();
}

void SCPIViewBase::m_Instructions_OnRemove(const Ref<IDataEntity>& DataEntity, std::int64_t Index) try {
  RemoveText(DataEntity, Index);
} catch (...) {
  PassOn(Label(u".m_Instructions_OnRemove(DataEntity)"), {DataEntity});
}

void SCPIViewBase::SelectEntityText(std::int64_t Start, std::int64_t Length) {
  m_display->SelStart(static_cast<std::int32_t>(Start));
  m_display->SelLength(static_cast<std::int32_t>(Length));
  m_display->Span(u"\n");
  if (m_display->SelLength() < 1) {
    m_display->SelLength(static_cast<std::int32_t>(NewLine.size())); // an empty entity is its line end
  } else {
    // Two writes: a control that sees only one may leave the line end out.
    m_display->SelLength(m_display->SelLength() + 1);
    m_display->SelLength(m_display->SelLength() - 1);
  }
}

std::int64_t SCPIViewBase::Characters(std::int64_t bytes) const {
  if (m_bytesPerChar == 0) HuntERR::RaiseStandard(ErrorNumber::DivisionByZero);
  return Rounded(static_cast<double>(bytes) / m_bytesPerChar);
}

} // namespace portico
