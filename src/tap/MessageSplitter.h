#pragma once

#include "drivers/session/MessageReader.h"
#include "scpi/MessageScanner.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace portico::tap {

/// A message that has crossed, without the line end that it ended with.
struct Message {
  /// What is kept of it.
  std::string Bytes;
  /// In bytes; more than is kept of one that was too long.
  std::uint64_t Length = 0;
  /// A question mark stands outside its strings and blocks.
  bool Asks = false;

  bool operator==(const Message&) const = default;
};

/// Gets each message as soon as it is complete.
using MessageSink = std::function<void(Message&&)>;

/// A message while its bytes come.
class KeptMessage {
public:
  /// Of a message no more than `limit` bytes are kept.
  explicit KeptMessage(std::size_t limit) : m_limit(limit) {}

  void Add(std::string_view bytes);
  void Ask() { m_message.Asks = true; }
  bool Empty() const { return m_message.Length == 0; }
  /// The message without its last `terminator` bytes; from here on there is none.
  Message Take(std::size_t terminator);
  /// Its last bytes are these.
  bool EndsWith(std::string_view bytes) const;

private:
  const std::size_t m_limit;
  Message m_message;
};

/// Cuts what a client sends, in pieces of any size, into program messages: at line feeds outside definite-length
/// blocks, and where the protocol marks an end. A carriage return in front of the line feed goes with it.
class InstructionSplitter {
public:
  explicit InstructionSplitter(std::size_t limit) : m_kept(limit) {}

  void Feed(std::string_view bytes, const MessageSink& sink);
  /// A message ends here, if one has begun.
  void End(const MessageSink& sink);

private:
  void Complete(std::size_t terminator, const MessageSink& sink);

  scpi::MessageScanner m_scanner{"\n?"};
  KeptMessage m_kept;
};

/// Cuts what an instrument answers into its answers, as the driver does it: at line feeds outside definite-length
/// blocks or, where the protocol marks their ends, at the marks alone.
class AnswerSplitter {
public:
  AnswerSplitter(std::size_t limit, drivers::Marks marks) : m_marks(marks), m_reader(Reader()), m_kept(limit) {}

  void Feed(std::string_view bytes, const MessageSink& sink);
  /// The protocol marks the end of an answer, which may be an empty one.
  void Mark(const MessageSink& sink);
  /// What has begun breaks off here; it is handed on as far as it came.
  void BreakOff(const MessageSink& sink);

private:
  drivers::MessageReader Reader() const { return drivers::MessageReader(Termination::Auto, m_marks); }
  void Complete(const MessageSink& sink);

  const drivers::Marks m_marks;
  drivers::MessageReader m_reader;
  KeptMessage m_kept;
};

} // namespace portico::tap
