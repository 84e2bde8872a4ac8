#pragma once

#include <chrono>
#include <map>
#include <string>
#include <string_view>

namespace portico::test {

/// What a scripted instrument does about one command.
struct Reaction {
  enum class Kind {
    Answer,
    /// Sends the first part of an answer; the rest comes when the test sends it, or never.
    Part,
    /// Takes the command and says nothing.
    Silence,
    /// Sends the text, if any, and closes the connection.
    Close,
    /// Sends the text over and over until the client goes away.
    Endless,
  };

  Kind kind = Kind::Silence;
  /// Sent as it stands, so with its terminator.
  std::string text = {};
  /// How long the answer takes. Only an instrument on a clock that the test moves can keep it.
  std::chrono::milliseconds delay = {};

  static Reaction Answer(std::string text, std::chrono::milliseconds delay = {}) {
    return {Kind::Answer, std::move(text), delay};
  }
  static Reaction Part(std::string text) { return {Kind::Part, std::move(text)}; }
  static Reaction Silence() { return {}; }
  static Reaction Close(std::string text = {}) { return {Kind::Close, std::move(text)}; }
  static Reaction Endless(std::string text) { return {Kind::Endless, std::move(text)}; }
};

/// Reactions by command, without its CR LF; a command that is not listed meets silence.
using InstrumentScript = std::map<std::string, Reaction, std::less<>>;

/// Cuts the first command off `input`, up to and including its line feed; false if there is no whole one.
inline bool TakeCommand(std::string& input, std::string& command) {
  const std::size_t end = input.find('\n');
  if (end == std::string::npos) return false;
  command = input.substr(0, end);
  input.erase(0, end + 1);
  if (!command.empty() && command.back() == '\r') command.pop_back();
  return true;
}

} // namespace portico::test
