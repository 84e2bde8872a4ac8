#pragma once

#include "terminal/console/CommandText.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace portico::terminal {

class Interrupts;

/// Command lines in order, one after the other, with the place that each comes from.
class LineSource {
public:
  virtual ~LineSource() = default;

  /// As messages show it.
  virtual std::string Name() const = 0;
  /// The next line; none at the end or once the user has interrupted; a fault where a line is refused.
  virtual std::variant<std::optional<String>, TextFault> Next() = 0;
  /// `Next` would not have to wait.
  virtual bool HasLineAtHand() const = 0;
  /// How many lines are to come; none where nobody knows.
  virtual std::optional<std::size_t> LinesLeft() const = 0;
  /// Begins anew; false where the lines are gone, since they are read as they arrive.
  virtual bool Rewind() { return false; }
};

/// The lines of a file that has been read and checked whole.
class FileLines final : public LineSource {
public:
  FileLines(std::string name, std::vector<String> lines) : m_name(std::move(name)), m_lines(std::move(lines)) {}

  std::string Name() const override { return m_name; }
  std::variant<std::optional<String>, TextFault> Next() override {
    if (m_next == m_lines.size()) return std::optional<String>{};
    return std::optional(m_lines[m_next++]);
  }
  bool HasLineAtHand() const override { return m_next < m_lines.size(); }
  std::optional<std::size_t> LinesLeft() const override { return m_lines.size() - m_next; }
  bool Rewind() override {
    m_next = 0;
    return true;
  }

private:
  std::string m_name;
  std::vector<String> m_lines;
  std::size_t m_next = 0;
};

/// A file that cannot be read, or holds a line that is refused.
struct FileFault {
  std::string Text;
};

/// The lines of a text that has been read whole; a fault names its place.
std::variant<std::unique_ptr<LineSource>, FileFault> ReadText(const std::string& name, std::string_view bytes);

/// Reads and checks the file whole.
std::variant<std::unique_ptr<LineSource>, FileFault> ReadCommandFile(const std::string& path);

/// What is read whole from standard input at the most.
inline constexpr std::size_t LongestWholeInput = 16U << 20U; // bytes

/// Standard input, read to its end and checked whole. Once the user has interrupted there is no line.
std::variant<std::unique_ptr<LineSource>, FileFault> ReadWholeStandardInput(const Interrupts& interrupts);

/// Standard input, a line at a time as it arrives. `interrupts` must outlive it.
std::unique_ptr<LineSource> ReadStandardInput(const Interrupts& interrupts);

/// "NAME:LINE:COLUMN: REASON"
std::string Describe(const std::string& name, const TextFault& fault);

} // namespace portico::terminal
