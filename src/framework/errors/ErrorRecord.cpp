#include "framework/errors/ErrorRecord.h"

#include <utility>

namespace portico {

const String& LazyText::Text() const {
  static const String none;
  if (!m_text) return none;
  if (m_text->Compose) m_text->Text = std::exchange(m_text->Compose, nullptr)();
  return m_text->Text;
}

Error::Error(ErrorRecord record) : Error(std::make_shared<const State>(State{std::move(record), {}, false, {}})) {}

Error Error::WithHeldCopy(ErrorRecord held) {
  return Error(std::make_shared<const State>(State{{}, std::move(held), true, {}}));
}

const char* Error::what() const noexcept {
  try {
    const ErrorRecord& known = m_state->HasHeld ? m_state->Held : m_state->Record;
    m_state->What = ToUtf8(known.Description.Text());
    return m_state->What.c_str();
  } catch (...) {
    return "error";
  }
}

} // namespace portico
