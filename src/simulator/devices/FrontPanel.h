#pragma once

#include "simulator/language/CommandTree.h"
#include "simulator/status/Executor.h"

#include <string>

namespace portico::simulator {

/// The DISPlay subsystem of an instrument: a display that can be darkened, and can show a text.
class FrontPanel {
public:
  explicit FrontPanel(Executor& executor) : m_executor(executor) {}

  void AddTo(CommandTree& tree);
  /// On, and without a text.
  void Reset();

private:
  void SetDisplay(const Call& call);
  void Display(const Call& call);
  void SetText(const Call& call);
  void Text(const Call& call);
  void ClearText(const Call& call);

  Executor& m_executor;
  bool m_on = true;
  std::string m_text;
};

} // namespace portico::simulator
