#pragma once

#include "framework/Event.h"
#include "platform/IRichTextBox.h"
#include "views/CPopALine.h"

namespace portico {

/// Takes lines off the command window, one at a time, and gets the instructions among them sent. `Execute` returns when
/// the run is over; errors leave it at once, and the line that failed is gone. Needs `gMainForm`, which tells whether
/// Stop was pressed, `gObjectFactory`, `gConfiguration` and `gEventLoop`.
class LineRunner {
public:
  LineRunner() = default;
  LineRunner(const LineRunner&) = delete;
  LineRunner& operator=(const LineRunner&) = delete;
  virtual ~LineRunner() = default;

  /// Kept, and without effect, like the policy.
  void CharComment(const String& newValue) { m_charComment = newValue; }
  void Policy(const Ref<ICommandPolicy>& newValue) { m_policy = newValue; }
  void CommandQueue(const Ref<IRichTextBox>& newValue) { m_queue = newValue; }
  void Execute();

  /// A remark or a blank line has come by.
  Event<const String&> Add2History;

protected:
  const IRichTextBox& Queue() const { return *m_queue; }
  /// Does what the line's kind asks for; true if an instruction was sent.
  bool Act(const String& line, LineKind kind);
  /// The text has come to its end, or Stop was pressed.
  static bool IsOver(StringView line);

private:
  virtual void Begin() {}
  /// Acts on a line; true to go on with the next.
  virtual bool Handle(const String& line, LineKind kind) = 0;
  bool SendLine(const String& line);

  String m_charComment;
  Ref<ICommandPolicy> m_policy;
  Ref<IRichTextBox> m_queue;
};

/// Run: all lines. Stop loses the line that was taken off before it was seen.
class CCommandRunner final : public LineRunner {
private:
  void Begin() override { m_first = true; }
  bool Handle(const String& line, LineKind kind) override;
  bool m_first = true;
};

/// Step: up to the first instruction, which is sent.
class CCommandStepper final : public LineRunner {
private:
  bool Handle(const String& line, LineKind kind) override;
};

/// Run to Cursor: the lines above the caret's. With the caret on the first line it runs all of them.
class CCommandCursorRunner final : public LineRunner {
private:
  void Begin() override;
  bool Handle(const String& line, LineKind kind) override;
  std::int32_t m_target = 0; // in lines of the box, while what is counted are lines taken off
  std::int32_t m_count = 0;
};

} // namespace portico
