#pragma once

#include "framework/shared/IMainWindow.h"
#include "platform/IScratchArea.h"
#include "platform/StandardFont.h"
#include "views/CInstructionRunner.h"
#include "views/CSCPIViewHistory.h"
#include "views/RunFrame.h"

#include <functional>

namespace portico::terminal {

/// Stands in the place of the main window where there is none: the same boxes, views, runners and subscribers, and
/// nothing that anybody sees.
class TerminalWindow final : public IMainWindow, public IScratchArea {
public:
  /// `interrupted` is asked at every line boundary.
  TerminalWindow(const Ref<IRichTextBox>& txtFuture, const Ref<IRichTextBox>& txtPast,
                 const Ref<IRichTextBox>& rtfScratchArea, std::function<bool()> interrupted);
  StringView ClassName() const override { return u"TerminalWindow"; }

  /// Makes the views and what subscribes to reports. The window must be `gMainForm` and `gScratchArea`, the factory
  /// must be there.
  void Load();
  /// Lets go of all that, and of whoever listens, before the factory goes.
  void Unload();

  /// Runs command lines; CR LF is added behind each.
  void RunLines(const std::vector<String>& lines);
  /// How many of those lines have not been taken off yet.
  std::size_t LinesLeft() const;

  /// What the history shows, in order: entities, and remarks and blank lines.
  Event<const IDataEntity&> Shown;
  Event<const String&> Remarked;
  /// Drops what has been shown: the text first, then the queue.
  void ForgetHistory();

  std::int32_t MousePointer() const override { return m_pointer; }
  void MousePointer(std::int32_t shape) override { m_pointer = shape; }
  bool Executing() const override { return m_view->Executing(); }
  void Executing(bool newValue) override { m_view->Executing(newValue); }
  bool StopRequested() const override { return m_stopRequested || m_interrupted(); }
  void StopRequested(bool newValue) override { m_stopRequested = newValue; }
  void UpdateUI(const String&, const String&) override {}

  Ref<IRichTextBox> rtfScratchArea() const override { return m_scratch; }
  String FontName() const override { return String(StandardFontName); }
  double FontSize() const override { return StandardFontSize; }

private:
  Ref<IRichTextBox> m_txtFuture;
  Ref<IRichTextBox> m_txtPast;
  Ref<IRichTextBox> m_scratch;
  std::function<bool()> m_interrupted;
  std::int32_t m_pointer = 0;
  bool m_stopRequested = false;
  RunFrame m_frame;
  Ref<CSCPIView> m_view;
  Ref<CSCPIViewHistory> m_history;
  Ref<CInstructionRunner> m_runner;
  Ref<ISubscriber> m_displayer;
};

} // namespace portico::terminal
