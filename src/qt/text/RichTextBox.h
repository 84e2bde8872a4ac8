#pragma once

#include "platform/IRichTextControl.h"
#include "platform/shared/ControlState.h"
#include "qt/text/MarkMargin.h"
#include "qt/text/OfferList.h"
#include "qt/text/RichTextEditor.h"
#include "qt/values/Placed.h"

namespace portico::qt {

/// The rich text box of a form. It is shown by a `TextView`, a child of `parent` that bears the design's name; that one
/// belongs to its window, and may go before the box, which then has no place any more.
class RichTextBox final : public RichTextEditor,
                          public ControlState,
                          public Placed,
                          private IMarkedText,
                          private IOfferOwner,
                          public virtual IRichTextControl {
public:
  /// The font is that of the standard formatting. Its size is in points.
  RichTextBox(const ControlDesign& design, QWidget& parent, StringView fontName, double fontSize);
  ~RichTextBox() override;
  StringView ClassName() const override { return u"RichTextBox"; }

  /// Null when the window has gone.
  TextView* Widget() const { return m_widget; }

  void SelPrint(const Ref<IDeviceContext>& hDC) override;

  bool TabStop() const override { return m_tabStop; }
  void TabStop(bool newValue) override;
  void Locked(bool newValue) override;
  void AsUser(const std::function<void()>& edit) override { EditAsUser(edit); }

  void OpenFind() override;
  void FindNext() override { FindAgain(false); }
  void FindPrevious() override { FindAgain(true); }
  void ChangeZoom(ZoomChange change) override;
  void UnderlinesUnsendable(bool newValue) override;

  void ShowOffers(const std::vector<String>& offers, std::int32_t start) override;
  void CloseOffers() override;
  const std::vector<String>& Offers() const override;
  std::int32_t ChosenOffer() const override;
  Event<std::int32_t>& OfferTaken() override { return m_offerTaken; }
  Event<>& CaretMoved() override { return m_caretMoved; }

  Event<>& GotFocus() override { return m_gotFocus; }
  Event<>& LostFocus() override { return m_lostFocus; }
  Event<const MouseEvent&>& MouseDown() override { return m_mouseDown; }
  Event<const MouseEvent&>& MouseUp() override { return m_mouseUp; }

private:
  QRect Place() const override { return m_widget ? m_widget->geometry() : QRect(0, 0, 0, 0); }
  void Put(const QRect& place) override;

  void FindAgain(bool backwards);
  void ShowToolTipText() override;
  void ShowEnabled() override;
  void ShowVisible() override;

  const richtext::MarkedLines& Marks() const override { return RichTextEditor::Marks(); }
  std::size_t LineCount() const override { return Lines().Count(); }
  std::optional<std::size_t> LineOf(int block) const override { return ShownLine(block); }
  Ref<ILineNotes> LineNotes() const override { return Notes(); }
  void OnMarks() override;

  void OnOfferTaken(std::int32_t offer) override;
  void OnCaretMoved() override;
  void OnUserChange() override;
  void OnFocus(bool hasFocus) override;
  void OnMouseDown(const MouseEvent& event) override;
  void OnMouseUp(const MouseEvent& event) override;

  QPointer<TextView> m_widget;
  QPointer<MarkMargin> m_margin; // made with the first mark or note
  QPointer<OfferList> m_offers;  // made with the first list
  bool m_tabStop = true;
  Event<std::int32_t> m_offerTaken;
  Event<> m_caretMoved;
  Event<> m_gotFocus;
  Event<> m_lostFocus;
  Event<const MouseEvent&> m_mouseDown;
  Event<const MouseEvent&> m_mouseUp;
};

} // namespace portico::qt
