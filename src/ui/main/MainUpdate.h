#pragma once

#include "platform/IRichTextControl.h"
#include "platform/IStatusBar.h"
#include "ui/base/ActionGroup.h"

#include <functional>

namespace portico {

/// Recomputes every enabled, checked and visible state of the main window, its texts and the placeholder of the command
/// window, from the configuration and the focus. It decides nothing else, and keeps nothing between two updates.
class MainUpdate {
public:
  /// What the configuration does not know. It is asked where an update needs it, since what an update changes on the
  /// way may give the event loop a turn.
  struct Circumstances {
    std::function<bool()> CommandHasFocus;
    std::function<bool()> Executing;
  };
  /// The form of the main window, which must outlive this, and its two text boxes.
  MainUpdate(IForm& form, const Ref<IRichTextControl>& txtFuture, const Ref<IRichTextControl>& txtPast,
             Circumstances circumstances);

  /// No `gConfiguration` raises `ObjectRequired`. Ends with a turn of the event loop, in which it can be entered again.
  void Run() const;

private:
  struct State;

  void ShowInstrument(const State& state) const;
  void ShowPlaceholder(const State& state) const;
  void ShowProtocol(const State& state) const;
  void ShowLog(const State& state) const;
  void ShowEditGroup(bool hasSelection, bool cmdFocus) const;
  void ShowRunGroup(const State& state, bool cmdFocus) const;

  IForm& m_form;
  Ref<IRichTextControl> m_txtFuture;
  Ref<IRichTextControl> m_txtPast;
  Circumstances m_circumstances;
  IStatusPanel& m_status;
  IStatusPanel& m_protocol;
  IMenuItem& mnuFileOpenInstrument;
  IMenuItem& mnuFileCloseInstrument;
  IMenuItem& mnuFileNewLog;
  IMenuItem& mnuFilePause;
  IMenuItem& mnuCloseLog;
  IMenuItem& mnuFilePrint;
  IMenuItem& mnuPasteFrom;
  IMenuItem& mnuRead;
  IMenuItem& mnuOPC;
  IMenuItem& mnuGetStatus;
  IMenuItem& mnuSCPI;
  IMenuItem& mnuDDC;
  IToolButton& m_openButton;
  IToolButton& m_loggerButton;
  IToolButton& m_pauseButton;
  IToolButton& m_readButton;
  ActionGroup m_pause;
  ActionGroup m_cut;
  ActionGroup m_copy;
  ActionGroup m_paste;
  ActionGroup m_pasteFrom;
  ActionGroup m_copyTo;
  ActionGroup m_step;
  ActionGroup m_run;
  ActionGroup m_runToCursor;
  ActionGroup m_stop;
};

} // namespace portico
