#pragma once

#include "logtool/ILogOutput.h"

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <ostream>
#include <vector>

namespace portico::logtool {

/// Compares two conversations, which it keeps: what was asked, case and blanks around it left out, and what was
/// answered to each. Sessions, stamps and whether an instruction was typed make no difference.
class LogDiff final : public ILogOutput {
public:
  explicit LogDiff(std::optional<double> tolerance) : m_tolerance(tolerance) {}

  /// The first of the two, or the second.
  void BeginFile(const std::string& name) override;
  std::string Add(const LogEntry& entry) override;

  /// A line for each instruction of the first log that the second does not have, or answers otherwise, marked `<`, and
  /// the same for the second, marked `>`. Whether there was any.
  bool Print(std::ostream& out) const;

private:
  struct Exchange {
    std::size_t Entity; ///< from 1, among those of the file that can be read
    String Instruction; ///< empty for answers in front of the first
    String Answer;      ///< without the last line end
  };
  struct Side {
    std::string Name;
    std::size_t Entities = 0;
    std::vector<Exchange> Exchanges;
    std::vector<std::size_t> Numbers; ///< equal for instructions that are the same
  };

  void Begin(StringView instruction);
  static void Print(std::ostream& out, char mark, const Side& side, std::size_t place, std::size_t difference);

  std::optional<double> m_tolerance;
  std::array<Side, 2> m_sides;
  Side* m_side = nullptr;
  std::map<String, std::size_t> m_numbers;
};

} // namespace portico::logtool
