#pragma once

#include "document/entities/ConversationPrinter.h"
#include "document/log/CXMLDataStore.h"
#include "tap/MessageSplitter.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace portico::tap {

/// Keeps and shows what crosses: one session of the log for each client, an instruction for each message to the
/// instrument, a response for each answer. What it is told waits until Write(), so that nothing that crosses waits for
/// the disk. A log that cannot be written is told of once, and nothing else suffers from it.
///
/// Needs `gTimeStamper`.
class Recorder {
public:
  /// What is kept of a message, in bytes.
  static constexpr std::size_t LongestMessage = std::size_t{64} << 20U;
  /// A client's session.
  using Session = std::uint64_t;

  /// What it writes to. All must outlive it.
  struct Outputs {
    Ref<CXMLDataStore> Log = {};          ///< null where none is kept
    std::ostream* Conversation = nullptr; ///< null where it is not shown
    bool ToTerminal = false;
    std::function<void(const std::string&)> Tell = {}; ///< gets each diagnostic
  };
  explicit Recorder(Outputs outputs);
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  /// A client has come; the session before is over.
  Session Begin();
  void Instruction(Session session, Message&& message) { Add(session, DataTypeName::Instruction, std::move(message)); }
  void Response(Session session, Message&& message) { Add(session, DataTypeName::Response, std::move(message)); }
  void End(Session session);

  /// Nothing more comes: ends what is open, and writes it.
  void Finish();
  /// Writes what it was told since the last time.
  void Write();
  /// The log misses something that was to be in it: for good once nothing more comes.
  bool IsIncomplete() const { return m_outputs.Log && m_outputs.Log->IsAnythingUnwritten(); }

private:
  struct Entry {
    enum class Kind : std::uint8_t { Begin, Message, End } What;
    StringView DataType = {};
    std::string Bytes = {};
  };

  void Add(Session session, StringView dataType, Message&& message);
  void EndOpen();
  void Write(const Entry& entry);
  void WriteMessage(const Entry& entry);
  void CloseSession();

  const Outputs m_outputs;
  std::optional<ConversationPrinter> m_printer;
  Session m_last = 0;
  bool m_open = false;
  std::vector<Entry> m_waiting;
  bool m_failing = false;  ///< since the last save that succeeded
  bool m_unclosed = false; ///< the session's close stamp could not be written
};

} // namespace portico::tap
