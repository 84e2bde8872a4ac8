#include "terminal/console/Interrupts.h"
#include "terminal/console/LineSource.h"

#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace portico::terminal {
namespace {

constexpr const char* InputName = "standard input";

/// Standard input as bytes.
class InputBytes {
public:
  explicit InputBytes(const Interrupts& interrupts) : m_interrupts(interrupts) {}

  /// Waits, and appends what has come; nothing at the end, once the user has interrupted, or after a fault.
  void AppendTo(std::string& bytes) {
    if (!m_interrupts.WaitForInput(STDIN_FILENO)) {
      m_ended = true;
      return;
    }
    std::array<char, 65536> chunk{};
    const auto count = read(STDIN_FILENO, chunk.data(), chunk.size());
    if (count > 0) {
      bytes.append(chunk.data(), static_cast<std::size_t>(count));
    } else if (count == 0) {
      m_ended = true;
    } else if (errno != EINTR && errno != EAGAIN) {
      m_fault.assign(errno, std::generic_category());
      m_ended = true;
    }
  }
  bool HasEnded() const { return m_ended; }
  /// Why nothing more can be read; empty if all is well.
  std::string Fault() const { return m_fault ? "cannot be read: " + m_fault.message() : std::string(); }

private:
  const Interrupts& m_interrupts;
  bool m_ended = false;
  std::error_code m_fault;
};

class StandardInput final : public LineSource {
public:
  explicit StandardInput(const Interrupts& interrupts) : m_interrupts(interrupts), m_input(interrupts) {}

  std::string Name() const override { return InputName; }

  std::variant<std::optional<String>, TextFault> Next() override {
    auto end = m_bytes.find('\n', m_start);
    while (end == std::string::npos && !m_input.HasEnded()) {
      const std::size_t searched = Compact();
      m_input.AppendTo(m_bytes);
      end = m_bytes.find('\n', searched);
    }
    if (std::string fault = m_input.Fault(); !fault.empty()) return TextFault{m_number + 1, 1, std::move(fault)};
    if (m_interrupts.Requested() || m_start == m_bytes.size()) return std::optional<String>{};
    ++m_number;
    std::string_view bytes = std::string_view(m_bytes).substr(m_start, end - m_start);
    m_start = end == std::string::npos ? m_bytes.size() : end + 1;
    if (m_number == 1 && bytes.substr(0, ByteOrderMark.size()) == ByteOrderMark) {
      bytes.remove_prefix(ByteOrderMark.size());
    }
    auto line = DecodeLine(bytes, m_number);
    if (auto* fault = std::get_if<TextFault>(&line)) return std::move(*fault);
    return std::optional(std::move(std::get<String>(line)));
  }
  bool HasLineAtHand() const override { return m_bytes.find('\n', m_start) != std::string::npos; }
  std::optional<std::size_t> LinesLeft() const override { return {}; }

private:
  /// Drops the lines that were taken; returns how many bytes are left, in which there is no line end.
  std::size_t Compact() {
    m_bytes.erase(0, m_start);
    m_start = 0;
    return m_bytes.size();
  }

  const Interrupts& m_interrupts;
  InputBytes m_input;
  std::string m_bytes;
  std::size_t m_start = 0;
  std::size_t m_number = 0;
};

} // namespace

std::unique_ptr<LineSource> ReadStandardInput(const Interrupts& interrupts) {
  return std::make_unique<StandardInput>(interrupts);
}

std::variant<std::unique_ptr<LineSource>, FileFault> ReadWholeStandardInput(const Interrupts& interrupts) {
  InputBytes input(interrupts);
  std::string bytes;
  while (!input.HasEnded()) {
    input.AppendTo(bytes);
    if (bytes.size() > LongestWholeInput) {
      return FileFault{std::string(InputName) + ": more than " + std::to_string(LongestWholeInput) +
                       " bytes cannot be read whole; name a file"};
    }
  }
  if (const std::string fault = input.Fault(); !fault.empty()) {
    return FileFault{std::string(InputName) + ": " + fault};
  }
  if (interrupts.Requested()) bytes.clear();
  return ReadText(InputName, bytes);
}

} // namespace portico::terminal
