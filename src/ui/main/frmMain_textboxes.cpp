#include "platform/IEventLoop.h"
#include "ui/base/ShowFailure.h"
#include "ui/main/frmMain.h"

namespace portico {
namespace {

constexpr std::int32_t KeyMilliseconds = 1; // until a key has reached the selection

} // namespace

void frmMain::ConnectTextBoxes() {
  tmrSelection = gEventLoop->MakeTimer();
  tmrSelection->Interval(KeyMilliseconds);
  tmrSelection->Timer().Connect([this] { tmrSelection_Timer(); });
  m_form->Events().KeyDown.Connect([this](std::int32_t, std::int32_t) { tmrSelection->Enabled(true); });
  for (const auto& box : {m_txtFuture, m_txtPast}) {
    box->MouseUp().Connect([this](const MouseEvent&) { tmrSelection->Enabled(true); });
  }
  m_txtFuture->Change().Connect([this] { txtFuture_Change(); });
  m_txtFuture->GotFocus().Connect([this] { TextGotFocus(true, u"frmMain.txtFuture_GotFocus"); });
  m_txtPast->GotFocus().Connect([this] { TextGotFocus(false, u"frmMain.txtPast_GotFocus"); });
  m_txtFuture->MouseDown().Connect([this](const MouseEvent& mouse) { txtFuture_MouseDown(mouse); });
  m_txtPast->MouseDown().Connect([this](const MouseEvent& mouse) { txtPast_MouseDown(mouse); });
}

void frmMain::txtFuture_Change() {
  RunHandler(u"frmMain.txtFuture_Change", FocusFailure, [this] {
    UpdateUI({}, {});
    const std::int32_t start = m_txtFuture->SelStart();
    m_txtFuture->Find(NewLine, start - 2, start);
    m_txtFuture->SelStart(start);
    ResetTypingFormat();
  });
}

void frmMain::ResetTypingFormat() {
  m_txtFuture->SelFormat({.SelBold = false, .SelCharOffset = 0, .SelColor = 0, .SelItalic = false});
}

void frmMain::TextGotFocus(bool isCommandWindow, StringView label) {
  RunHandler(label, FocusFailure, [&] {
    m_gotFocus = true;
    m_CommandHasFocus = isCommandWindow;
    UpdateUI({}, {});
  });
}

/// What can be cut and copied follows what the user selects, with no menu opened.
void frmMain::tmrSelection_Timer() {
  tmrSelection->Enabled(false);
  RunHandler(u"frmMain.tmrSelection_Timer", FocusFailure, [this] { UpdateUI({}, {}); });
}

void frmMain::txtFuture_MouseDown(const MouseEvent& mouse) {
  if (mouse.Button != RightButton) return;
  RunHandler(u"frmMain.txtFuture_MouseDown", FocusFailure, [this] {
    m_txtFuture->SetFocus();
    gEventLoop->DoEvents();
    m_form->PopupMenu(FindControl<IMenuItem>(*m_form, u"mnuPopupCMD"));
    gEventLoop->DoEvents();
  });
}

void frmMain::txtPast_MouseDown(const MouseEvent& mouse) {
  RunHandler(u"frmMain.txtPast_MouseDown", FocusFailure, [&] {
    m_txtPast->SetFocus();
    if (mouse.Button == RightButton) m_form->PopupMenu(FindControl<IMenuItem>(*m_form, u"mnuPopupHistory"));
  });
}

} // namespace portico
