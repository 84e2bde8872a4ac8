#pragma once

#include "framework/text/text.h"

#include <cstdint>

namespace portico {

/// Tells which entities of a log are about an error. It is told of all of them, in order.
class LogErrors {
public:
  enum class Finding : std::uint8_t {
    None,
    /// A response directly behind an automatic instruction that is not the pacing query, if its leading integer is not
    /// 0. The one other thing that is sent by itself is the error query.
    ErrorAnswer,
    /// A response that is a message of this driver. A write that failed has left none.
    DriverMessage,
  };

  /// A session begins.
  void Begin();
  /// An entity, by its data type and its text.
  Finding Add(StringView kind, StringView text);
  /// What the user has typed last, without its line end; empty if there is nothing in this session.
  const String& Instruction() const { return m_instruction; }

private:
  bool m_asksForError = false; // the entity before was an automatic error query
  String m_instruction;
};

} // namespace portico
