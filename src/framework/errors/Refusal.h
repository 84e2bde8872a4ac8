#pragma once

#include "framework/errors/HuntERR.h"

#include <concepts>
#include <initializer_list>
#include <memory>

namespace portico {

/// What a stack line calls a procedure. Both are literals, or live as long.
struct Procedure {
  StringView Class; ///< empty if the label has it
  StringView Label;

  String Name() const { return String(Class).append(Label); }
};

/// An error that is foreseen, as a value: who meets it hands it to the caller instead of raising it, and each caller
/// adds its stack line and hands it on. Where it ends it has left behind what raising it and passing as many tails
/// would have, to the letter, but nothing unwinds and the report is composed only if somebody reads it.
class [[nodiscard]] Refusal {
public:
  /// None: nothing was refused.
  Refusal();
  /// As `Check` raises it; the message is a literal.
  Refusal(std::int32_t Number, StringView Message);
  Refusal(Refusal&&) noexcept;
  Refusal& operator=(Refusal&&) noexcept;
  ~Refusal();

  explicit operator bool() const { return m_content != nullptr; }

  /// Adds a stack line. Of the values that are objects only their class's name is kept; borrowed texts must be
  /// literals.
  void Pass(const Procedure& procedure, std::initializer_list<Value> values);
  /// Adds the last one: the error ends here.
  void StopHere(const Procedure& procedure, std::initializer_list<Value> values) &&;
  /// For a caller that expects to be thrown at.
  [[noreturn]] void Raise() const;

private:
  struct Content;

  std::unique_ptr<Content> m_content;
};

/// Runs the body of a procedure that may refuse. It passes on both what the body refuses and what it raises.
template <std::invocable Body, class... Values>
Refusal Refusable(const Procedure& procedure, Body&& body, const Values&... values) try {
  Refusal refusal = std::forward<Body>(body)();
  if (refusal) refusal.Pass(procedure, {Value(values)...});
  return refusal;
} catch (...) {
  PassOn(procedure.Name(), {Value(values)...});
}

} // namespace portico
