#pragma once

#include "platform/IDesktop.h"

#include <deque>
#include <functional>
#include <utility>
#include <vector>

namespace portico::memory {

/// A message box that is answered from a queue. One that nobody has answered beforehand throws `std::logic_error`,
/// unless all are to be answered with OK.
class MessageBox final : public IMessageBox {
public:
  struct Call {
    String Prompt;
    String Title;
    MessageBoxButtons Buttons = MessageBoxButtons::OKOnly;
    MessageBoxIcon Icon = MessageBoxIcon::None;
    bool operator==(const Call&) const = default;
  };

  /// `isQuitting`: the program has been told to end, and the box throws `Quit`.
  explicit MessageBox(std::function<bool()> isQuitting = {}) : m_isQuitting(std::move(isQuitting)) {}

  /// An answer for which the box has no button throws `std::logic_error`.
  MessageBoxAnswer Show(const String& Prompt, const String& Title,
                        MessageBoxButtons Buttons = MessageBoxButtons::OKOnly,
                        MessageBoxIcon Icon = MessageBoxIcon::None) override;

  void Answer(MessageBoxAnswer answer = MessageBoxAnswer::OK) { m_answers.push_back(answer); }
  /// From now on every box without an answer of its own that has an OK button is answered with it.
  void AnswerAllWithOK() { m_alwaysOK = true; }
  /// Called while the box is open.
  std::function<void(const Call&)> OnShow;

  const std::vector<Call>& Calls() const { return m_calls; }
  /// The boxes that threw `std::logic_error`.
  const std::vector<Call>& Unexpected() const { return m_unexpected; }
  std::size_t AnswersLeft() const { return m_answers.size(); }

private:
  std::function<bool()> m_isQuitting;
  std::deque<MessageBoxAnswer> m_answers;
  bool m_alwaysOK = false;
  std::vector<Call> m_calls;
  std::vector<Call> m_unexpected;
};

} // namespace portico::memory
