#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>

namespace portico {

/// A text that may be composed only when somebody reads it: an error report is, because most errors that are stopped
/// on the spot are never looked at. What goes into it is captured when it is made.
class LazyText {
public:
  LazyText() = default;
  LazyText(String text) : m_text(std::make_shared<Cell>(Cell{std::move(text), {}})) {}
  explicit LazyText(std::function<String()> compose) : m_text(std::make_shared<Cell>(Cell{{}, std::move(compose)})) {}

  const String& Text() const;
  operator const String&() const { return Text(); }

private:
  struct Cell {
    String Text;
    std::function<String()> Compose; // dropped once it has run
  };
  std::shared_ptr<Cell> m_text;
};

/// All that is known of an error.
struct ErrorRecord {
  std::int32_t Number = 0;
  String Source;
  LazyText Description;
  String HelpFile;
  std::int32_t HelpContext = 0;
  /// Last error number of the operating system; 0 unless whoever raises sets it.
  std::uint32_t LastDllError = 0;
  /// Source line, 0 when unknown.
  std::int32_t Erl = 0;
};

/// The one type in which errors unwind. It carries its record, because destructors that run on the way may disturb the
/// current error; a tail loads the record again.
class Error : public std::exception {
public:
  explicit Error(ErrorRecord record);
  /// An error of number 0 out of a constructor: `held` is the copy that the caller's tail goes on with.
  static Error WithHeldCopy(ErrorRecord held);

  const ErrorRecord& Record() const { return m_state->Record; }
  /// The held copy, or a null pointer.
  const ErrorRecord* Held() const { return m_state->HasHeld ? &m_state->Held : nullptr; }

  /// The description in UTF-8.
  const char* what() const noexcept override;

private:
  struct State {
    ErrorRecord Record;
    ErrorRecord Held;
    bool HasHeld = false;
    mutable std::string What;
  };
  explicit Error(std::shared_ptr<const State> state) : m_state(std::move(state)) {}

  std::shared_ptr<const State> m_state; // shared, so that copying an exception cannot throw
};

} // namespace portico
