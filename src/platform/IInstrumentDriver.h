#pragma once

#include <cstdint>
#include <string>

namespace portico {

/// The instrument driver library, seen from the channel: nine functions, one for one those of `TVSCPI_32.h`.
///
/// Every function blocks until it is done or its time-out is over, and answers with a signed status: 0 is success,
/// anything else is a failure whose text `TVSCPI_error_message` knows. No function throws. Text crosses as 8-bit
/// strings in the instrument's code page (Windows-1252 with its five undefined bytes mapped to themselves).
/// A session handle is never 0; 0 means that there is no session.
class IInstrumentDriver {
public:
  virtual ~IInstrumentDriver() = default;

  /// Opens the named instrument and writes its handle to `session`, which stays untouched on failure.
  /// `idQuery` and `reset` are always 0.
  virtual std::int32_t TVSCPI_init(const std::string& name, std::int32_t idQuery, std::int32_t reset,
                                   std::int32_t& session) = 0;

  virtual std::int32_t TVSCPI_close(std::int32_t session) = 0;

  /// Sends the text, which already ends in the carriage return that the channel appends.
  virtual std::int32_t TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) = 0;

  /// Fills `buffer` (of `size` bytes) with one response message. `count` is the number of bytes delivered, the last of
  /// which is not part of the data; what stands behind them in the buffer is of no meaning, and nobody looks at it.
  /// A message that does not fit is consumed to its end and `count` is `size`.
  virtual std::int32_t TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                            std::int32_t& count) = 0;

  /// `zero` is always 0 in the four attribute functions.
  virtual std::int32_t TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                  std::int32_t& value) = 0;

  /// Writes the attribute's text and a zero byte to the start of `buffer` and leaves what stands behind them.
  virtual std::int32_t TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                   std::int32_t size, char* buffer) = 0;

  virtual std::int32_t TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                  std::int32_t value) = 0;

  virtual std::int32_t TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                   const std::string& text) = 0;

  /// Writes the message of `status` to the start of `buffer`, which has 256 bytes: at most 254 bytes of text, a line
  /// feed and a zero byte. `session` may be 0: the last open that failed still has its message then.
  virtual std::int32_t TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) = 0;
};

/// Attribute of a session: how a read finds the end of a message (signed 32-bit, one of those of `Termination`).
inline constexpr std::int32_t TVSCPI_ATTR_TERMCHAR = 1150007;
/// Attribute of a session: the command that asks for the next error (text).
inline constexpr std::int32_t TVSCPI_ATTR_ERRORQUERYSCPI = 1150002;

} // namespace portico
