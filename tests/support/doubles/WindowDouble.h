#pragma once

#include "framework/shared/IMainWindow.h"
#include "platform/IScratchArea.h"
#include "support/doubles/RecordingTextBox.h"

namespace portico::test {

/// A main window that writes down what it is told, with a scratch area that does the same.
class WindowDouble final : public IMainWindow, public IScratchArea {
public:
  /// Both journals must outlive the window.
  WindowDouble(Journal& journal, const Ref<IRichTextBox>& scratch) : m_journal(journal), m_scratch(scratch) {}
  StringView ClassName() const override { return u"WindowDouble"; }

  std::int32_t MousePointer() const override { return m_pointer; }
  void MousePointer(std::int32_t shape) override { m_pointer = shape; }
  bool Executing() const override { return m_executing; }
  void Executing(bool newValue) override {
    m_journal.emplace_back(newValue ? "Executing on" : "Executing off");
    m_executing = newValue;
  }
  bool StopRequested() const override { return m_stopRequested; }
  void StopRequested(bool newValue) override {
    m_journal.emplace_back(newValue ? "StopRequested on" : "StopRequested off");
    m_stopRequested = newValue;
  }
  void UpdateUI(const String& Name, const String& Value) override {
    m_journal.push_back("UpdateUI " + ToUtf8(Name) + "=" + ToUtf8(Value));
  }

  Ref<IRichTextBox> rtfScratchArea() const override { return m_scratch; }
  String FontName() const override { return u"Window Font"; }
  double FontSize() const override { return 8.25; }

private:
  Journal& m_journal;
  Ref<IRichTextBox> m_scratch;
  std::int32_t m_pointer = 0;
  bool m_executing = false;
  bool m_stopRequested = false;
};

} // namespace portico::test
