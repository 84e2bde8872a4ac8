#pragma once

#include "drivers/ITransport.h"

#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <string>

namespace portico::test {

inline drivers::TimePoint In(std::chrono::milliseconds time) { return drivers::TimePoint::clock::now() + time; }
/// Long enough never to be over by accident.
inline drivers::TimePoint Soon() { return In(std::chrono::seconds(5)); }
/// For what is waited for in vain.
inline drivers::TimePoint VerySoon() { return In(std::chrono::milliseconds(50)); }

/// Reads that many bytes, in pieces, from a transport that marks no ends; fewer if a read fails.
inline std::string ReadAll(drivers::ITransport& transport, std::size_t length) {
  std::string text;
  std::array<char, 16> buffer = {};
  while (text.size() < length) {
    const drivers::Received received = transport.Read(buffer.data(), buffer.size(), Soon());
    if (!received.Result.Succeeded()) break;
    EXPECT_FALSE(received.End);
    text.append(buffer.data(), received.Count);
  }
  return text;
}

} // namespace portico::test
