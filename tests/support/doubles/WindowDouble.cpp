#include "support/doubles/WindowDouble.h"

#include "memory/RichTextBox.h"

#include <utility>

namespace portico::test {

WindowDouble::WindowDouble(Journal& journal, Ref<IRichTextBox> scratch)
    : m_journal(journal), m_scratch(scratch ? std::move(scratch) : New<memory::RichTextBox>()) {}
WindowDouble::~WindowDouble() = default;

StringView WindowDouble::ClassName() const { return u"WindowDouble"; }

std::int32_t WindowDouble::MousePointer() const { return m_pointer; }
void WindowDouble::MousePointer(std::int32_t shape) { m_pointer = shape; }

bool WindowDouble::Executing() const { return m_executing; }
void WindowDouble::Executing(bool newValue) {
  m_executing = newValue;
  Note(newValue ? "Executing on" : "Executing off");
}

bool WindowDouble::StopRequested() const { return m_stopRequested; }
void WindowDouble::StopRequested(bool newValue) {
  m_stopRequested = newValue;
  Note(newValue ? "StopRequested on" : "StopRequested off");
}

void WindowDouble::UpdateUI(const String& Name, const String& Value) {
  Note("UpdateUI " + ToUtf8(Name) + "=" + ToUtf8(Value), OnUpdate);
}

Ref<IRichTextBox> WindowDouble::rtfScratchArea() const { return m_scratch; }
String WindowDouble::FontName() const { return u"Window Font"; }
double WindowDouble::FontSize() const { return 8.25; }

void WindowDouble::Show() { Note("show", OnShow); }
void WindowDouble::mnuFileOpenInstrument_Click() { Note("open instrument", OnClick); }

void WindowDouble::Note(const std::string& line, const std::function<void()>& call) {
  m_journal.push_back(line);
  if (call) call();
}

} // namespace portico::test
