#pragma once

#include "platform/IDesktop.h"

#include <QObject>

namespace portico::qt {

/// The desktop's clipboard. Its text is fetched when the desktop tells of a change, and never asked for in between:
/// the program that owns it may be slow to answer.
class Clipboard final : public IClipboard {
public:
  Clipboard();
  String GetText() const override { return m_text; }

private:
  void Fetch();

  QObject m_context;
  String m_text;
};

} // namespace portico::qt
