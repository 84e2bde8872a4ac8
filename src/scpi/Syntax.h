#pragma once

namespace portico::scpi {

// The character classes of IEEE 488.2, independent of the locale.

constexpr bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

constexpr bool IsLetter(char byte) { return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z'); }

/// What a word of a header may be made of.
constexpr bool IsMnemonicByte(char byte) { return IsLetter(byte) || IsDigit(byte) || byte == '_'; }

/// Every control character but the line feed is white space, the carriage return among them.
constexpr bool IsWhiteSpace(char byte) { return byte >= 0 && byte <= ' ' && byte != '\n'; }

constexpr char ToUpper(char byte) { return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte; }

} // namespace portico::scpi
