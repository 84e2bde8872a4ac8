#include "platform/shared/EventLoopBase.h"

#include "framework/errors/Quit.h"

namespace portico {

void EventLoopBase::ThrowIfQuitting() const {
  if (IsQuitting()) throw Quit{};
}

void EventLoopBase::DoEvents() {
  if (m_finished) return;
  ThrowIfQuitting();
  Process();
  ThrowIfQuitting();
}

void EventLoopBase::WaitForEvent() {
  if (m_finished) return;
  ThrowIfQuitting();
  BeforeWait();
  Wait();
  ThrowIfQuitting();
}

void EventLoopBase::RequestQuit() noexcept {
  m_quit = true;
  Wake();
}

} // namespace portico
