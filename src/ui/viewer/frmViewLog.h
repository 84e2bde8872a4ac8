#pragma once

#include "platform/IEventLoop.h"
#include "platform/IForm.h"
#include "platform/IRichTextControl.h"
#include "platform/IToolBar.h"
#include "ui/plot/PlotSource.h"
#include "ui/viewer/LogShowing.h"
#include "ui/viewer/ShownErrors.h"
#include "ui/viewer/ShownNotes.h"
#include "views/AnswerAtCaret.h"
#include "views/CSCPIView.h"

#include <memory>

namespace portico {

/// Shows a log as it lay on disk when the viewer was opened: to read, to copy from and to print. Any number of viewers
/// can be open. One that is shown is kept by its form until that is unloaded. Its place comes from the settings store;
/// it never stores it.
class frmViewLog final : public IObject, public std::enable_shared_from_this<frmViewLog> {
public:
  /// Null without `gForms`.
  static Ref<frmViewLog> Make();

  StringView ClassName() const override { return u"frmViewLog"; }

  /// The log, by its path as it was given. To be set before `Show`.
  void FileName(const String& newValue) { m_fileName = newValue; }
  /// Reads the log and shows its first lines, without blocking, in front of the owner; the rest follows in turns of the
  /// event loop, and the caption tells how far it has come. A log that cannot be read ends in a message box and an
  /// empty window; one whose reading the user gives up in none. Of one whose end is missing the rest is shown, and a
  /// message box says so.
  void Show(IForm* Owner);
  /// Lets menu states follow selection and content. Both arguments are without use.
  void UpdateUI(const String& ItemName, const String& ItemValue);

private:
  void Connect();
  /// A handler of an event, which keeps the viewer alive while it runs.
  template <class... Args>
  void On(Event<Args...>& event, void (frmViewLog::*handler)());
  void OnMenu(StringView name, void (frmViewLog::*handler)());
  /// Runs the body of a handler that has a sentence of its own.
  template <class Body>
  bool Run(StringView handler, Body&& body);

  /// Runs the body. False if the user has given up what it does.
  template <class Body>
  static bool RunUnlessGivenUp(Body&& body);

  /// False if the user has given up the reading.
  bool Form_Load();
  void PlaceForm();
  void LoadLog();
  /// Goes on with the loading.
  void ShowMore();
  void ShowPortion();
  /// All that is still to be shown, at once. False if the user has given it up; it goes on in turns of the loop then.
  bool ShowRest();
  void GoOn();
  void StopLoading();
  void HideWhatIsNotOffered();
  void MarkErrors(const Ref<CDataFIFO>& queue);
  void ConnectNotes();
  void ShowNotes();
  void DrawNumbers(const Ref<CDataFIFO>& queue);
  void Form_Resize();
  void Form_Activate();
  void Form_KeyDown();
  void tmrKey_Timer();
  void tmrLoad_Timer();
  void Form_Unload();
  void txtPast_LostFocus();
  void txtPast_MouseUp();
  void mnuEdit_Click();
  void mnuCopy_Click();
  void mnuFilePrint_Click();
  void mnuFilePageSetup_Click();
  void mnuFileClose_Click();
  void mnuHelpAbout_Click();
  void tbToolBar_ButtonClick(IToolButton& Button);

  template <class Control>
  Control& Find(StringView name) const {
    return FindControl<Control>(*m_form, name);
  }
  IMenuItem& Menu(StringView name) const { return Find<IMenuItem>(name); }
  IRichTextControl& txtPast() const { return Find<IRichTextControl>(u"txtPast"); }
  Ref<IRichTextControl> SharedText() const { return ShareControl<IRichTextControl>(m_form, u"txtPast"); }
  IToolBar& tbToolBar() const { return Find<IToolBar>(ToolBarName); }

  String m_fileName;
  String m_warning; // to be shown once the log is
  Ref<IForm> m_form;
  Ref<CSCPIView> m_view;
  std::unique_ptr<LogShowing> m_showing; // until all is shown
  std::unique_ptr<ShownErrors> m_errors; // from the loading on
  Ref<AnswerAtCaret> m_answers;          // from the loading on
  Ref<LogNotes> m_notes;
  std::unique_ptr<ShownNotes> m_shownNotes; // from the loading on
  Ref<PlotSource> m_numbers;                // from the loading on
  std::unique_ptr<ITimer> m_tmrKey;
  std::unique_ptr<ITimer> m_tmrLoad;
};

} // namespace portico
