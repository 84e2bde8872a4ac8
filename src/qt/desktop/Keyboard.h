#pragma once

#include "platform/IDesktop.h"

#include <QObject>

namespace portico::qt {

class Screen;

/// Keys that the program types. They go to the widget that has the focus when they arrive; while another program has
/// it, to the one that will have it in the window in front.
class Keyboard final : public IKeyboard {
public:
  /// The screen must outlive it.
  explicit Keyboard(const Screen& screen) : m_screen(screen) {}
  void SendKeys(const String& keys) override;

private:
  void Type(const String& keys) const;

  const Screen& m_screen;
  QObject m_context;
};

} // namespace portico::qt
