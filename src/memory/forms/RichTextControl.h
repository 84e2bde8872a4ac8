#pragma once

#include "memory/RichTextBox.h"
#include "memory/forms/FocusControl.h"
#include "memory/forms/Placement.h"
#include "platform/IRichTextControl.h"
#include "platform/shared/OfferState.h"

#include <optional>
#include <vector>

namespace portico::memory {

/// A rich text box in a form. Its text is that of the caption it is designed with.
class RichTextControl final : public FocusControl, public Placement, public virtual IRichTextControl {
public:
  RichTextControl(ControlOwner& form, const ControlDesign& design, Control* container);
  StringView ClassName() const override { return u"RichTextBox"; }

  std::int32_t SelStart() const override { return m_box->SelStart(); }
  void SelStart(std::int32_t position) override { m_box->SelStart(position); }
  std::int32_t SelLength() const override { return m_box->SelLength(); }
  void SelLength(std::int32_t length) override { m_box->SelLength(length); }
  String SelText() const override { return m_box->SelText(); }
  std::int32_t SelTextLength() const override { return m_box->SelTextLength(); }
  void SelText(StringView text) override { m_box->SelText(text); }
  String SelRTF() const override { return m_box->SelRTF(); }
  void SelRTF(StringView fragment) override { m_box->SelRTF(fragment); }
  SelectionFormat SelFormat() const override { return m_box->SelFormat(); }
  void SelFormat(const SelectionFormat& changes) override { m_box->SelFormat(changes); }

  String Text() const override { return m_box->Text(); }
  void Text(StringView text) override { m_box->Text(text); }
  std::int32_t TextLength() const override { return m_box->TextLength(); }
  String TextRTF() const override { return m_box->TextRTF(); }
  void TextRTF(StringView text) override { m_box->TextRTF(text); }
  std::int32_t Find(StringView text, std::int32_t Start, std::int32_t End = -1) override {
    return m_box->Find(text, Start, End);
  }
  void Span(StringView CharacterSet) override { m_box->Span(CharacterSet); }
  std::int32_t GetLineFromChar(std::int32_t position) const override { return m_box->GetLineFromChar(position); }
  void SetFocus() override { TakeFocus(); }
  Event<>& Change() override { return m_change; }

  /// To a context that is a memory platform's.
  void SelPrint(const Ref<IDeviceContext>& hDC) override;

  bool TabStop() const override { return IsTabStop(); }
  void TabStop(bool newValue) override { IsTabStop(newValue); }
  void Locked(bool newValue) override { m_locked = newValue; }
  void AsUser(const std::function<void()>& edit) override;
  Event<>& GotFocus() override { return FocusControl::GotFocus(); }
  Event<>& LostFocus() override { return FocusControl::LostFocus(); }
  Event<const MouseEvent&>& MouseDown() override { return m_mouseDown; }
  Event<const MouseEvent&>& MouseUp() override { return m_mouseUp; }

  void MarkLine(std::int32_t position) override { m_box->MarkLine(position); }
  void ClearMarks() override { m_box->ClearMarks(); }
  std::vector<std::int32_t> MarkedLines() const override { return m_box->MarkedLines(); }
  void GoToLine(std::int32_t line) override { m_box->GoToLine(line); }
  void ShowNotes(const Ref<ILineNotes>& notes) override { m_box->ShowNotes(notes); }
  Ref<ILineNotes> Notes() const override { return m_box->Notes(); }

  void OpenFind() override;
  void FindNext() override;
  void FindPrevious() override;
  void ChangeZoom(ZoomChange change) override;
  void UnderlinesUnsendable(bool newValue) override { m_underlinesUnsendable = newValue; }

  void ShowOffers(const std::vector<String>& offers, std::int32_t start) override;
  void CloseOffers() override { m_offers.Close(); }
  const std::vector<String>& Offers() const override { return m_offers.Offers(); }
  std::int32_t ChosenOffer() const override { return m_offers.Chosen(); }
  Event<std::int32_t>& OfferTaken() override { return m_offerTaken; }
  Event<>& CaretMoved() override { return m_caretMoved; }

  bool Locked() const { return m_locked; }
  /// What is looked for; none while the field has never been open.
  const std::optional<String>& SoughtText() const { return m_sought; }
  double ZoomFactor() const { return m_zoom; }
  /// What is seen with a line under it.
  std::vector<String> Underlined() const;

  // What the user does. False if the user cannot use the box.
  /// Typing and pasting replaces the selection; the box gets the focus first. False if the box is locked, too.
  bool Type(StringView text);
  /// With the arrow keys, say; the box gets the focus first.
  bool MoveCaret(std::int32_t position);
  /// A key while offers are shown. False if it is none of those that they heed.
  bool PressOfferKey(std::int32_t code);
  /// Takes the last step of the user's back; the caret goes where it stood. False if there is none.
  bool Undo();
  /// The left button gives the focus to the box before the event fires.
  bool PressMouse(const MouseEvent& event);
  bool ReleaseMouse(const MouseEvent& event);
  /// What is typed into the open field is found at the selection or behind it.
  void LookFor(StringView text);

private:
  /// What stood there before a step.
  struct Before {
    String Fragment;
    std::int32_t Caret;
  };
  /// Whether it is there.
  bool SelectIfThere(std::int32_t position, StringView text);

  Ref<RichTextBox> m_box = New<RichTextBox>();
  std::vector<Before> m_steps;
  bool m_isUsers = false; // the change that is about to be told
  bool m_locked = false;
  bool m_isPressed = false;
  std::optional<String> m_sought;
  double m_zoom = 1;
  bool m_underlinesUnsendable = false;
  OfferState m_offers;
  Event<std::int32_t> m_offerTaken;
  Event<> m_caretMoved;
  Event<> m_change;
  Event<const MouseEvent&> m_mouseDown;
  Event<const MouseEvent&> m_mouseUp;
};

} // namespace portico::memory
