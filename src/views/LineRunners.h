#pragma once

#include "framework/objects/Event.h"
#include "platform/IRichTextBox.h"
#include "views/CPopALine.h"

namespace portico {

/// Takes lines off the command window, one at a time, and gets the instructions among them sent. `Execute` returns when
/// the run is over; errors leave it at once, and the line that failed is gone. A run keeps nothing here, so that
/// another can begin within it. Needs `gMainForm`, which tells whether Stop was pressed, `gObjectFactory`,
/// `gConfiguration` and `gEventLoop`.
class LineRunner {
public:
  LineRunner() = default;
  LineRunner(const LineRunner&) = delete;
  LineRunner& operator=(const LineRunner&) = delete;
  virtual ~LineRunner() = default;

  // These two are part of the contract and without effect.
  void CharComment(const String& newValue) { m_charComment = newValue; }
  void Policy(const Ref<ICommandPolicy>& newValue) { m_policy = newValue; }

  void CommandQueue(const Ref<IRichTextBox>& newValue) { m_queue = newValue; }
  /// Who keeps account of what is taken off; null, as at first, for nobody.
  void Account(const Ref<TakenLines>& newValue) { m_account = newValue; }
  virtual void Execute() = 0;

  /// A remark or a blank line has come by.
  Event<const String&> Add2History;
  /// An instruction is about to be sent.
  Event<const String&> Sending;

protected:
  const Ref<IRichTextBox>& Queue() const { return m_queue; }
  void SetUp(CPopALine& popper) const;
  /// Does what the line's kind asks for; true if an instruction was sent.
  bool Act(const String& line, LineKind kind);
  /// The text has come to its end, or Stop was pressed.
  static bool IsOver(StringView line);

private:
  bool SendLine(const String& line);

  String m_charComment;
  Ref<ICommandPolicy> m_policy;
  Ref<IRichTextBox> m_queue;
  Ref<TakenLines> m_account;
};

/// Run: all lines. Stop loses the line that was taken off before it was seen.
class CCommandRunner final : public LineRunner {
public:
  void Execute() override;
};

/// Step: up to the first instruction, which is sent.
class CCommandStepper final : public LineRunner {
public:
  void Execute() override;
};

/// Run to Cursor: the lines above the caret's. With the caret on the first line it runs all of them.
class CCommandCursorRunner final : public LineRunner {
public:
  void Execute() override;
};

} // namespace portico
