#pragma once

#include "terminal/SampleInstrument.h"

#include <string>
#include <vector>

namespace portico::test {

/// What a protocol and its options make of each line.
struct ModelOptions {
  bool OPCPacing = true;
  bool AutoRead = true;
  bool ErrorChecking = true;
  std::string ErrorCheckingCommand = ":SYST:ERR?";
  /// In milliseconds; 0 is none.
  int PacingInterval = 0;
  std::int32_t Session = 0;
};

enum class Look { Instruction, AutomaticInstruction, Response, Remark, Marker };

/// A stretch of the history that looks alike.
struct Passage {
  Look Is;
  std::string Text;
};

struct ModelEntity {
  std::string DataType;
  std::string Text;
  /// The number of its stamp within the second in which the time stands still.
  int Stamp;
  /// Of the fragment that it was shown by; 0 if it was not shown.
  std::size_t FragmentLength;
};

/// What a run of lines must come to, in bytes of the code page.
struct Conversation {
  /// Driver calls, each behind the milliseconds since the first line.
  std::vector<std::string> Calls;
  std::vector<Passage> History;
  std::vector<ModelEntity> Queue;
  std::vector<ModelEntity> Log;
  std::string Printed;

  std::string HistoryText() const;
};

/// A plain account of how lines become a conversation, which shares nothing with the system. Lines hold no CR and no
/// LF; their braces are balanced, their control words mean nothing. `lastStamp` is the last one drawn before the run.
Conversation ModelConversation(const std::vector<std::string>& lines, const ModelOptions& options, int lastStamp);

} // namespace portico::test
