#pragma once

#include "memory/desktop/Desktop.h"
#include "memory/desktop/Screen.h"

#include <memory>
#include <vector>

namespace portico::memory {

/// Keeps keys until somebody delivers them, as the program's own turn would.
class Keyboard final : public IKeyboard {
public:
  /// Keys go to the control of the screen that has the focus, which copies to the clipboard and pastes from it.
  Keyboard(const std::shared_ptr<Screen>& screen, const std::shared_ptr<Clipboard>& clipboard)
      : m_screen(screen), m_clipboard(clipboard) {}

  void SendKeys(const String& keys) override;
  /// Delivers all that was sent and not yet delivered: in a rich text box ^X, ^C and ^V act on the selection, and other
  /// characters are typed. Elsewhere keys get lost.
  void Deliver();

  /// Every call, delivered or not.
  const std::vector<String>& Sent() const { return m_sent; }

private:
  void DeliverCtrl(char16_t letter) const;

  std::shared_ptr<Screen> m_screen;
  std::shared_ptr<Clipboard> m_clipboard;
  std::vector<String> m_sent;
  String m_pending;
};

} // namespace portico::memory
