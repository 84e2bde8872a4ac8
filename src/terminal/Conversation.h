#pragma once

#include "framework/IPublisher.h"
#include "framework/IReport.h"

#include <ostream>
#include <string>

namespace portico::terminal {

/// Prints what the history of the conversation shows, a line for each, flushed line by line: `> ` and an instruction,
/// `* ` and an automatic instruction, `< ` and each line of a response, `# ` and a remark or blank line, `! ` and the
/// text of any other kind.
class Conversation final : public ISubscriber {
public:
  /// The stream must outlive the subscription.
  explicit Conversation(std::ostream& out) : m_out(out) {}

  StringView ClassName() const override { return u"Conversation"; }
  void Update(const Ref<IObject>& Subject) override;
  void Remark(StringView line);

private:
  void Print(std::string_view mark, StringView text);
  void PrintLines(std::string_view mark, StringView text);

  std::ostream& m_out;
  std::string m_line; // kept for its storage
};

} // namespace portico::terminal
