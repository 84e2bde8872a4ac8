#pragma once

#include "document/entities/IDataEntity.h"

#include <ostream>
#include <string>

namespace portico {

/// Prints what the history shows, a line for each, and leaves it to others to flush the stream: `> ` and an
/// instruction, `* ` and an automatic instruction, `< ` and each line of a response, `# ` and a remark or blank line,
/// `! ` and the text of any other kind. On a terminal, question marks stand for the control characters that would spoil
/// it.
class ConversationPrinter final {
public:
  /// The stream must outlive the printer.
  explicit ConversationPrinter(std::ostream& out, bool toTerminal = false) : m_out(out), m_toTerminal(toTerminal) {}

  /// An entity of a line end alone is not shown.
  void Show(const IDataEntity& entity);
  void Remark(StringView line) { Print("# ", line); }

private:
  void Print(std::string_view mark, StringView text);

  std::ostream& m_out;
  const bool m_toTerminal;
  std::string m_line; // a member so that its storage is used again
};

} // namespace portico
