#include "memory/desktop/MessageBox.h"

#include "framework/errors/Quit.h"

#include <stdexcept>

namespace portico::memory {
namespace {

bool HasButton(MessageBoxButtons buttons, MessageBoxAnswer answer) {
  return (answer == MessageBoxAnswer::OK) == (buttons == MessageBoxButtons::OKOnly);
}

} // namespace

MessageBoxAnswer MessageBox::Show(const String& Prompt, const String& Title, MessageBoxButtons Buttons,
                                  MessageBoxIcon Icon) {
  if (m_isQuitting && m_isQuitting()) throw Quit{};
  const Call call{Prompt, Title, Buttons, Icon};
  m_calls.push_back(call);
  MessageBoxAnswer answer = MessageBoxAnswer::OK;
  if (!m_answers.empty()) {
    answer = m_answers.front();
    m_answers.pop_front();
  } else if (!m_alwaysOK) {
    m_unexpected.push_back(call);
    throw std::logic_error("nobody expects the message \"" + ToUtf8(Prompt) + "\"");
  }
  if (!HasButton(Buttons, answer)) {
    m_unexpected.push_back(call);
    throw std::logic_error("the box has no such button: \"" + ToUtf8(Prompt) + "\"");
  }
  if (OnShow) OnShow(call);
  if (m_isQuitting && m_isQuitting()) throw Quit{};
  return answer;
}

} // namespace portico::memory
