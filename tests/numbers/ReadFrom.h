#pragma once

#include "numbers/BlockNumbers.h"

#include <gtest/gtest.h>

#include <variant>

namespace portico::numbers {

inline constexpr ByteOrder Big = ByteOrder::MostSignificantFirst;
inline constexpr ByteOrder Little = ByteOrder::LeastSignificantFirst;

/// What was read; a fault is told.
template <class Result>
Result ReadFrom(const std::variant<Result, Fault>& read) {
  const auto* fault = std::get_if<Fault>(&read);
  EXPECT_EQ(fault, nullptr) << ToUtf8(fault != nullptr ? fault->Text : String());
  return fault != nullptr ? Result() : std::get<Result>(read);
}

/// The fault; none is told.
template <class Result>
Fault FaultIn(const std::variant<Result, Fault>& read) {
  const auto* fault = std::get_if<Fault>(&read);
  EXPECT_NE(fault, nullptr) << "something was read";
  return fault != nullptr ? *fault : Fault{999, u""};
}

} // namespace portico::numbers
