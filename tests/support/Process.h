#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace portico::test {

/// How a program ended and all that it wrote.
struct Outcome {
  /// Its exit status; the negative number of the signal if one ended it.
  int status = 0;
  std::string out = {};
  std::string err = {};
};

/// A program that runs beside the test, with pipes for its three streams. Something that is waited for in vain for
/// `Patience` fails the test, and the program is killed; so it is with the object, should it still run.
class Process {
public:
  static constexpr std::chrono::seconds Patience = std::chrono::seconds(60);

  /// The first text is the program's path.
  explicit Process(const std::vector<std::string>& command);
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// Goes to standard input, while waiting if it does not fit at once.
  void Write(std::string_view bytes);

  /// Waits until the text stands in standard output, behind the last one that was waited for.
  void WaitForOutput(std::string_view text);
  /// Waits for the rest of a line of standard output, behind the last text that was waited for.
  std::string ReadLine();

  void Signal(int number) const;

  /// Closes standard input behind what was written, and waits for the end of the program.
  Outcome Wait();
  /// Sends the signal again and again, and waits for the end of the program.
  Outcome SignalUntilEnd(int number);

private:
  using TimePoint = std::chrono::steady_clock::time_point;

  static TimePoint Deadline() { return std::chrono::steady_clock::now() + Patience; }
  bool Running() const { return m_output >= 0 || m_error >= 0; }
  bool Pump(TimePoint deadline);
  bool PumpUntil(TimePoint deadline, TimePoint moment);
  void Feed();
  void Kill(std::string_view waitedFor);
  Outcome Reap();

  int m_id = -1;
  int m_input = -1;
  int m_output = -1;
  int m_error = -1;
  std::string m_unsent;
  bool m_closesInput = false;
  Outcome m_outcome;
  std::size_t m_seen = 0;
};

} // namespace portico::test
