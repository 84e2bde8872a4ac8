#pragma once

#include "framework/text/text.h"

#include <string>
#include <string_view>

namespace portico::test {

/// A log up to its first session.
inline const std::string LogHead =
    "<SCPICommLog><Header ApplicationName=\"Tolvane Portico\" ApplicationVersion=\"1.0.5\"/>";

/// An element of a log with a text for its payload.
inline std::string LogElementOf(const std::string& kind, const std::string& second, const std::string& text) {
  return "<" + kind + " DataType=\"" + kind + "\" Timestamp=\"2004-11-01T16:42:" + second +
         ".000000000-5:00\" DataFormat=\"String\"><![CDATA[" + text + "]]></" + kind + ">";
}

/// A response as the program writes it: UTF-16 in hexadecimal, which holds every byte.
inline std::string ResponseOf(const std::string& second, std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string payload;
  for (const std::uint8_t byte : ToBytes(FromCodePage(bytes))) {
    payload += digits[byte >> 4U];
    payload += digits[byte & 15U];
  }
  return "<Response DataType=\"Response\" Timestamp=\"2004-11-01T16:42:" + second + ".000000000-5:00\"><![CDATA[" +
         payload + "]]></Response>";
}

inline std::string LogOf(const std::string& sessions) { return LogHead + sessions + "</SCPICommLog>"; }
inline std::string LogSessionOf(const std::string& entities) {
  return "<Session SessionOpenTimeStamp=\"s\">" + entities + "</Session>";
}

} // namespace portico::test
