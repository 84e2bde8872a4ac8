#pragma once

#include <exception>
#include <string_view>

namespace portico::scpi {

/// The errors that the simulator itself raises, by their SCPI-99 numbers.
enum class ErrorCode : int {
  NoError = 0,
  InvalidCharacter = -101,
  SyntaxError = -102,
  InvalidSeparator = -103,
  ParameterNotAllowed = -108,
  MissingParameter = -109,
  HeaderSeparatorError = -111,
  MnemonicTooLong = -112,
  UndefinedHeader = -113,
  HeaderSuffixOutOfRange = -114,
  InvalidCharacterInNumber = -121,
  ExponentTooLarge = -123,
  TooManyDigits = -124,
  NumericDataNotAllowed = -128,
  InvalidSuffix = -131,
  SuffixTooLong = -134,
  SuffixNotAllowed = -138,
  InvalidCharacterData = -141,
  CharacterDataTooLong = -144,
  CharacterDataNotAllowed = -148,
  InvalidStringData = -151,
  StringDataNotAllowed = -158,
  InvalidBlockData = -161,
  BlockDataNotAllowed = -168,
  ExpressionError = -170,
  ExpressionDataNotAllowed = -178,
  ExecutionError = -200,
  TriggerIgnored = -211,
  InitIgnored = -213,
  TriggerDeadlock = -214,
  SettingsConflict = -221,
  DataOutOfRange = -222,
  TooMuchData = -223,
  IllegalParameterValue = -224,
  DataCorruptOrStale = -230,
  QueueOverflow = -350,
  InputBufferOverrun = -363,
  QueryInterrupted = -410,
  QueryUnterminated = -420,
  QueryDeadlocked = -430,
};

/// The standard's text of an error; for a positive number, which is the device's own, a text of ours. Empty if the
/// number is not a known one.
std::string_view ErrorText(ErrorCode code);

/// Thrown by whatever parses or carries out a command, and caught by the executor, which records it.
class ScpiError : public std::exception {
public:
  explicit ScpiError(ErrorCode code) : m_code(code) {}

  ErrorCode Code() const { return m_code; }
  const char* what() const noexcept override { return ErrorText(m_code).data(); }

private:
  ErrorCode m_code;
};

} // namespace portico::scpi
