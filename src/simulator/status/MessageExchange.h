#pragma once

#include "scpi/UnitParser.h"
#include "simulator/status/Misbehaviour.h"
#include "simulator/status/ResponseQueue.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace portico::simulator {

/// What one connection says and hears: the program messages that wait, the one that is being carried out, and the
/// response messages. A connection fills it and reads from it, the device's executor works it off.
class MessageExchange {
public:
  /// The longest response message; a query that would make it longer is deadlocked.
  static constexpr std::size_t LongestResponse = 64U << 20U;

  /// Carries out a message as a whole. May throw ScpiError.
  using Handler = std::function<void(std::string_view message)>;

  explicit MessageExchange(Handler handler = {}) : m_handler(std::move(handler)) {}

  // For the connection.

  /// Queues a program message.
  void Submit(std::string message);
  /// The memory that waiting messages take, in bytes.
  std::size_t InputBytes() const { return m_inputBytes; }
  /// Whether the unread responses, and no operation, are what holds the input.
  bool HeldByOutput() const { return !m_message && m_responses.Full(); }
  ResponseQueue& Responses() { return m_responses; }
  const ResponseQueue& Responses() const { return m_responses; }
  /// Whether something is still to be carried out or to be read.
  bool Busy() const { return m_message || (!m_halted && !m_input.empty()) || m_responses.NextReady(); }
  /// The connection is gone: what is queued goes on, and its answers go nowhere.
  void Abandon();
  bool Abandoned() const { return m_abandoned; }

  // For the executor.

  /// Takes up the next message; false if there is none, or no room for its answer.
  bool Begin();
  /// Hands the whole message to the handler; false if there is none.
  bool HandOver();
  /// Parses the next unit of the message; false at its end. Throws ScpiError.
  bool Next(scpi::Unit& unit) { return !m_halted && m_parser.Next(unit); }
  /// Whether a message is being carried out.
  bool Begun() const { return m_message.has_value(); }
  /// Ends the message, and with it the response message, if there is one.
  void Finish(TimePoint at, Misbehaviour& faults);
  /// Ends the response message, if there is one, and not the message.
  void EndResponse(TimePoint at, Misbehaviour& faults);
  /// Adds the data of one query to the response message. Throws ScpiError.
  void Respond(std::string_view data);
  /// The same with a block of so many bytes, which are made as they are read. Nothing can be added behind it.
  void RespondBlock(std::uint64_t length);
  /// Lets the response message never end.
  void MakeEndless() { m_endless = true; }
  /// Whether a response is unread or being made: bit 4 of the status byte.
  bool MessageAvailable() const { return m_responding || !m_responses.Empty(); }
  /// Carries out no further command, ever.
  void Halt() { m_halted = true; }
  bool Halted() const { return m_halted; }

private:
  Handler m_handler;
  std::deque<std::string> m_input;
  std::size_t m_inputBytes = 0;
  bool m_halted = false;
  bool m_abandoned = false;

  std::optional<std::string> m_message; ///< the one that is being carried out
  scpi::UnitParser m_parser;
  std::string m_response;
  bool m_responding = false;
  bool m_endless = false;
  std::uint64_t m_more = 0; ///< bytes behind the response, of its last block
  ResponseQueue m_responses;
};

} // namespace portico::simulator
