#pragma once

#include "platform/IExtendedDriver.h"
#include "support/Journal.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace portico::test {

/// An instrument driver that writes its calls down and answers as it is told. Texts for the instrument must end in the
/// carriage return that the driver's contract asks for.
class DriverDouble final : public IExtendedDriver {
public:
  /// What one read brings.
  struct Reading {
    std::int32_t Status = 0;
    std::string Bytes;                      ///< into the buffer, as they stand
    std::optional<std::int32_t> Count = {}; ///< if it is not the number of the bytes
  };

  /// The journal gets a line for each call that reaches the instrument: "init NAME", "close", "write TEXT", "read",
  /// "get NUMBER", "set NUMBER VALUE", "clear", "local", "stream", "timeout MILLISECONDS". It must outlive the driver.
  explicit DriverDouble(Journal& journal);

  /// Status of a call, by its line in the journal or by its function without the prefix; 0 for all others.
  std::map<std::string, std::int32_t> Statuses;
  /// Called with each line of the journal.
  std::function<void(const std::string&)> OnCall;
  /// Called with each call in full: "ReadInstrData(7,1048576)".
  std::function<void(const std::string&)> OnDetail;

  /// The handles that `init` writes, when it succeeds and when it does not; 0 for none.
  std::int32_t Handle = 7;
  std::int32_t HandleOfFailure = 0;

  /// What a read brings unless `OnRead` says so: this text, and the byte behind it.
  std::string Answer = "answer";
  std::function<Reading()> OnRead;
  /// What a read in pieces brings.
  std::vector<std::string> Pieces;
  /// Takes what is written, without the carriage return, and gives the status.
  std::function<std::int32_t(const std::string&)> OnWrite;

  /// What the attribute functions deliver; the text as it stands.
  std::int32_t Number = 0;
  std::string Text = std::string("text") + '\0';
  /// What the message function delivers, as it stands; "failure STATUS" otherwise.
  std::optional<std::string> Message;

  /// The last buffer as a function found it; kept from when it is first set.
  std::optional<std::string> Found;

  std::int32_t TVSCPI_init(const std::string& name, std::int32_t idQuery, std::int32_t reset,
                           std::int32_t& session) override;
  std::int32_t TVSCPI_close(std::int32_t session) override;
  std::int32_t TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) override;
  std::int32_t TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                    std::int32_t& count) override;
  std::int32_t TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                          std::int32_t& value) override;
  std::int32_t TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                           std::int32_t size, char* buffer) override;
  std::int32_t TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                          std::int32_t value) override;
  std::int32_t TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                           const std::string& text) override;
  std::int32_t TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) override;

  std::int32_t SetTimeout(std::chrono::milliseconds timeout) override;
  std::int32_t Clear(std::int32_t session) override;
  std::int32_t GoToLocal(std::int32_t session) override;
  std::int32_t CanReadInPieces(std::int32_t session) override;
  /// Hands on `Pieces`; the status is that of the call, or -1 where the sink gives up.
  std::int32_t ReadInPieces(std::int32_t session, const AnswerSink& sink) override;

private:
  void Detail(const std::string& function, std::initializer_list<std::string> arguments) const;
  std::int32_t Call(const std::string& line, const std::string& function);
  void Fill(char* buffer, std::size_t size, const std::string& bytes);

  Journal& m_journal;
};

} // namespace portico::test
