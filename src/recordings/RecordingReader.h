#pragma once

#include "document/log/LogElement.h"
#include "document/log/LogErrors.h"
#include "simulator/replay/ReplayBook.h"

#include <cstddef>
#include <optional>
#include <string>

namespace portico::recordings {

/// Takes a log over into a book: what was sent, whoever sent it, and the answers to it in the bytes that the instrument
/// sent. Messages of the driver are no answers, and other entities are passed over. What stands in front of the first
/// instruction of a session answers nothing.
class RecordingReader final : public ILogVisitor {
public:
  /// Thrown through the reading: why the log cannot be replayed, as a clause.
  struct Refusal {
    std::string Text;
  };

  /// `session` is the one that is wanted, from 1; without it, all are. `book` must outlive the reader.
  RecordingReader(simulator::ReplayBook& book, std::optional<std::size_t> session) : m_book(book), m_wanted(session) {}

  void SessionOpened(const LogElement& session) override;
  void Entity(const LogElement& element) override;

  /// How many sessions there were.
  std::size_t Sessions() const { return m_session; }

private:
  simulator::ReplayBook& m_book;
  const std::optional<std::size_t> m_wanted;
  std::size_t m_session = 0;
  bool m_isAsked = false; ///< something was sent in this session
  LogErrors m_errors;
};

} // namespace portico::recordings
