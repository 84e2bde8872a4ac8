#pragma once

#include "platform/IDesktop.h"

namespace portico::qt {

class EventLoop;

/// Message boxes of the toolkit's. Texts show as they are; of a long one the user scrolls through what the screen has
/// no room for.
class MessageBox final : public IMessageBox {
public:
  /// The loop must outlive it.
  explicit MessageBox(EventLoop& loop) : m_loop(loop) {}

  MessageBoxAnswer Show(const String& Prompt, const String& Title, MessageBoxButtons Buttons,
                        MessageBoxIcon Icon) override;

private:
  EventLoop& m_loop;
};

} // namespace portico::qt
