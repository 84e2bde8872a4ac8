#pragma once

#include "document/encoders/CRTFEncoder.h"
#include "document/entities/IInstructionQueue.h"

namespace portico {

/// What the two view models share: each ties a box to a queue of entities that mirrors its text, and keeps the box in
/// step by the queue's events alone. The box belongs to the window; entity lengths count bytes, its positions
/// characters.
class SCPIViewBase : public IInstructionQueue {
public:
  ~SCPIViewBase() override;

  // Before `Initialize` both raise `NotInitialized`.

  /// The queue, made anew from the text if that has changed.
  Ref<CDataFIFO> Instructions() override;
  /// Takes nothing off and gives nothing. Part of the contract; nothing in the program calls it.
  Ref<IDataEntity> PopNextInstruction();

  /// An entity stands in the box now: from one position, its hidden mark included, to another.
  Event<const Ref<IDataEntity>&, std::int32_t, std::int32_t> Shown;

protected:
  enum class ViewState : std::int32_t { NotInitialized = 0, InStep = 1, Stale = 2 };

  /// A null display raises `InvalidArgument`.
  void SetUp(const Ref<IRichTextBox>& InstructionDisplay);
  void CheckInitialized() const;
  String Label(StringView member) const { return String(ClassName()).append(member); }

  const Ref<IRichTextBox>& Display() const { return m_display; }
  void State(ViewState newValue) { m_viewState = newValue; }
  Ref<CDataFIFO> GetInstructionQueue();
  void UpdateDisplay();
  /// Takes over another queue and its events.
  void Attach(const Ref<CDataFIFO>& queue);
  void CaretToEnd();
  /// Writes an entity where the caret is, behind its hidden mark if it has one.
  void Show(const Ref<IDataEntity>& DataEntity);
  void RemoveText(const Ref<IDataEntity>& DataEntity, std::int64_t Index);

private:
  /// Before the display is read and redrawn.
  virtual void DisplayTaken() {}
  void m_Instructions_OnRemove(const Ref<IDataEntity>& DataEntity, std::int64_t Index);
  virtual void m_Instructions_OnAdd(const Ref<IDataEntity>& DataEntity, std::int64_t Index) = 0;
  virtual void m_Instructions_MaximumCountExceded(const Ref<IDataEntity>& DataEntity, std::int64_t Index) = 0;
  /// Whether the selection stays when the queue is made anew.
  virtual bool KeepsSelection() const = 0;

  void Detach();
  /// The encoder sets the entity's look on the box's selection; what it gives takes the selection's place.
  void Insert(const Ref<IDataEntity>& DataEntity) { m_display->SelFragment(m_encoder->Compose(DataEntity)); }
  void InsertHidden(char16_t marker);
  Ref<CDataFIFO> ReadQueue();
  void SelectEntityText(std::int64_t Start, std::int64_t Length);
  void DeleteSelectedText() { m_display->SelText({}); }
  /// Raises `DivisionByZero` before `Initialize`, when the bytes for a character are not known: a queue may have been
  /// attached by then.
  std::int64_t Characters(std::int64_t bytes) const;

  ViewState m_viewState = ViewState::NotInitialized;
  std::int32_t m_bytesPerChar = 0;
  Ref<IRichTextBox> m_display;
  Ref<CRTFEncoder> m_encoder;
  Ref<CDataFIFO> m_instructions;
  struct Connections {
    CDataFIFO::EntityEvent::Connection Exceded;
    CDataFIFO::EntityEvent::Connection Added;
    CDataFIFO::EntityEvent::Connection Removed;
  } m_connections{};
};

} // namespace portico
