#pragma once

#include "framework/shared/IMainWindow.h"
#include "memory/RichTextBox.h"
#include "platform/IScratchArea.h"
#include "platform/StandardFont.h"

namespace portico::memory {

/// The main window of a program that has none: it remembers what it is told and draws nothing. Its font is that of its
/// scratch area.
class HeadlessWindow final : public IMainWindow, public IScratchArea {
public:
  StringView ClassName() const override { return u"HeadlessWindow"; }

  std::int32_t MousePointer() const override { return m_pointer; }
  void MousePointer(std::int32_t shape) override { m_pointer = shape; }
  bool Executing() const override { return m_executing; }
  void Executing(bool newValue) override { m_executing = newValue; }
  bool StopRequested() const override { return m_stopRequested; }
  void StopRequested(bool newValue) override { m_stopRequested = newValue; }
  void UpdateUI(const String&, const String&) override {}

  Ref<IRichTextBox> rtfScratchArea() const override { return m_scratchArea; }
  String FontName() const override { return String(StandardFontName); }
  double FontSize() const override { return StandardFontSize; }

private:
  std::int32_t m_pointer = 0;
  bool m_executing = false;
  bool m_stopRequested = false;
  Ref<IRichTextBox> m_scratchArea = New<RichTextBox>();
};

} // namespace portico::memory
