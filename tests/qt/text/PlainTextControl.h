#pragma once

#include "platform/IRichTextControl.h"
#include "qt/controls/Control.h"
#include "qt/values/QtText.h"

#include <QPlainTextEdit>

namespace portico::test {

/// A text box for forms whose tests need no formats: only what makes it a control works.
class PlainTextControl final : public qt::PlacedControl, public virtual IRichTextControl {
public:
  PlainTextControl(const ControlDesign& design, QWidget& parent)
      : PlacedControl(design, std::make_shared<qt::FormLife>(), *new QPlainTextEdit(&parent)) {}
  static std::shared_ptr<IRichTextControl> Make(const ControlDesign& design, QWidget& parent) {
    return std::make_shared<PlainTextControl>(design, parent);
  }

  StringView ClassName() const override { return u"PlainTextControl"; }
  std::int32_t SelStart() const override { return 0; }
  void SelStart(std::int32_t /*position*/) override {}
  std::int32_t SelLength() const override { return 0; }
  void SelLength(std::int32_t /*length*/) override {}
  String SelText() const override { return {}; }
  std::int32_t SelTextLength() const override { return 0; }
  void SelText(StringView /*text*/) override {}
  String SelRTF() const override { return {}; }
  void SelRTF(StringView /*fragment*/) override {}
  SelectionFormat SelFormat() const override { return {}; }
  void SelFormat(const SelectionFormat& /*changes*/) override {}
  String Text() const override { return qt::FromQt(Edit().toPlainText()); }
  void Text(StringView text) override { Edit().setPlainText(qt::ToQt(text)); }
  std::int32_t TextLength() const override { return static_cast<std::int32_t>(Text().size()); }
  String TextRTF() const override { return {}; }
  void TextRTF(StringView /*text*/) override {}
  std::int32_t Find(StringView /*text*/, std::int32_t /*Start*/, std::int32_t /*End*/) override { return -1; }
  void Span(StringView /*CharacterSet*/) override {}
  std::int32_t GetLineFromChar(std::int32_t /*position*/) const override { return 0; }
  void SetFocus() override { Edit().setFocus(); }
  Event<>& Change() override { return m_event; }
  void SelPrint(const Ref<IDeviceContext>& /*hDC*/) override {}
  bool TabStop() const override { return true; }
  void TabStop(bool /*newValue*/) override {}
  void Locked(bool newValue) override { Edit().setReadOnly(newValue); }
  void MarkLine(std::int32_t /*position*/) override {}
  void ClearMarks() override {}
  std::vector<std::int32_t> MarkedLines() const override { return {}; }
  void GoToLine(std::int32_t /*line*/) override {}
  void ShowNotes(const Ref<ILineNotes>& /*notes*/) override {}
  Ref<ILineNotes> Notes() const override { return {}; }
  void AsUser(const std::function<void()>& edit) override { edit(); }
  void ShowOffers(const std::vector<String>& /*offers*/, std::int32_t /*start*/) override {}
  void CloseOffers() override {}
  const std::vector<String>& Offers() const override { return m_offers; }
  std::int32_t ChosenOffer() const override { return -1; }
  Event<std::int32_t>& OfferTaken() override { return m_offerTaken; }
  Event<>& CaretMoved() override { return m_event; }
  void OpenFind() override {}
  void FindNext() override {}
  void FindPrevious() override {}
  void ChangeZoom(ZoomChange /*change*/) override {}
  void UnderlinesUnsendable(bool /*newValue*/) override {}
  Event<>& GotFocus() override { return m_event; }
  Event<>& LostFocus() override { return m_event; }
  Event<const MouseEvent&>& MouseDown() override { return m_mouse; }
  Event<const MouseEvent&>& MouseUp() override { return m_mouse; }

private:
  QPlainTextEdit& Edit() const { return static_cast<QPlainTextEdit&>(Widget()); }

  const std::vector<String> m_offers;
  Event<std::int32_t> m_offerTaken;
  Event<> m_event;
  Event<const MouseEvent&> m_mouse;
};

} // namespace portico::test
