#pragma once

#include "platform/IScratchArea.h"
#include "support/Journal.h"
#include "ui/base/IMainForm.h"

#include <cstdint>
#include <functional>

namespace portico::test {

/// A main window that writes down what it is told, with a scratch area. Pointers come and go unwritten.
class WindowDouble : public IMainForm, public IScratchArea {
public:
  /// The journal must outlive the window. Without a scratch area it has an empty one.
  explicit WindowDouble(Journal& journal, Ref<IRichTextBox> scratch = {});
  ~WindowDouble() override;
  StringView ClassName() const override;

  std::int32_t MousePointer() const override;
  void MousePointer(std::int32_t shape) override;
  bool Executing() const override;
  void Executing(bool newValue) override;
  bool StopRequested() const override;
  void StopRequested(bool newValue) override;
  void UpdateUI(const String& Name, const String& Value) override;

  Ref<IRichTextBox> rtfScratchArea() const override;
  String FontName() const override;
  double FontSize() const override;

  void Show() override;
  void mnuFileOpenInstrument_Click() override;

  /// Called behind what is written down; may raise.
  std::function<void()> OnUpdate;
  std::function<void()> OnShow;
  std::function<void()> OnClick;

private:
  void Note(const std::string& line, const std::function<void()>& call = {});

  Journal& m_journal;
  Ref<IRichTextBox> m_scratch;
  std::int32_t m_pointer = 0;
  bool m_executing = false;
  bool m_stopRequested = false;
};

} // namespace portico::test
