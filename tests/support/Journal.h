#pragma once

#include "framework/text/text.h"

#include <functional>
#include <string>
#include <vector>

namespace portico::test {

/// What happened, in order.
using Journal = std::vector<std::string>;

/// Writes lines into a journal, behind a name if it has one. The journal must outlive it.
class Writer {
public:
  explicit Writer(Journal& journal, const std::string& name = {});

  /// Called with each line; may raise.
  std::function<void(const std::string&)> OnCall;

protected:
  ~Writer();
  void Note(const std::string& line) const;

private:
  Journal& m_journal;
  std::string m_name;
};

/// Line ends as they are written in source.
std::string Escaped(StringView text);

/// The lines of a journal that change something.
Journal Writes(const Journal& journal);

} // namespace portico::test
