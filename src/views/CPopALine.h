#pragma once

#include "platform/IRichTextBox.h"
#include "views/CSCPICmdPolicy.h"
#include "views/LineKind.h"
#include "views/recall/TakenLines.h"

namespace portico {

/// Cuts the first line off a box and tells its kind. The runners make one per run. It keeps no position: what a handler
/// changes in the box between two lines counts.
class CPopALine final {
public:
  void CmdQueue(const Ref<IRichTextBox>& newValue) { m_queue = newValue; }
  /// Who keeps account of what is taken off; null for nobody.
  void Account(const Ref<TakenLines>& newValue) { m_account = newValue; }

  /// The line without its leading blanks and line end; `EndOfText` for an empty box. Gives the event loop a turn while
  /// the line is off the box already.
  String Pop(LineKind& LineType);

private:
  /// By the first characters of a line, which comes without leading blanks.
  static LineKind Classify(StringView line, bool atEnd);
  String TakeFirstLine(LineKind& LineType);
  String TakeLastLine();

  Ref<IRichTextBox> m_queue;
  Ref<TakenLines> m_account;
  CSCPICmdPolicy m_policy; // part of the contract, and not asked: the two classifications differ
};

/// Another popper, without kinds and without trimming. Part of the contract; nothing in the program uses it.
class CPopInstruction final {
public:
  /// Takes the characters in front of the first line end, which stays in the box.
  String Pop(const Ref<IRichTextBox>& Box);
};

} // namespace portico
