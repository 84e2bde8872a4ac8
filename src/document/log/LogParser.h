#pragma once

#include "document/log/LogStructure.h"

#include <exception>
#include <memory>
#include <string>

struct XML_ParserStruct;

namespace portico {

/// The XML parser behind a log's reader: strict, streaming, and without document types.
class LogParser {
public:
  enum class Status {
    Fine,
    EndsEarly, ///< the bytes begin a document and do not end it
    Wrong,
  };

  /// The first byte stands at that position and in that line of the log.
  LogParser(LogStructure& structure, LogReading& reading, std::uint64_t position = 0, std::uint64_t line = 1);

  /// Throws what a visitor has thrown.
  Status Feed(std::string_view bytes, bool last);
  /// Opens the root without telling anybody; positions are counted from behind it.
  void OpenRootSilently();

  /// The last `Feed` has seen something end.
  bool HasMoved() const { return m_moved; }

  // Of a status that is not fine.
  std::uint64_t Position() const;
  std::uint64_t Line() const;
  std::string Reason() const;

private:
  struct Handlers;
  struct Free {
    void operator()(XML_ParserStruct* parser) const;
  };

  /// Where the markup ends that is being told of.
  std::uint64_t End() const;
  void Refuse(const char* reason);
  /// Tells the structure; an exception must not cross the parser, which is written in C.
  template <class Call>
  void Tell(Call call);

  std::unique_ptr<XML_ParserStruct, Free> m_parser;
  LogStructure& m_structure;
  LogReading& m_reading;
  std::uint64_t m_start;
  std::uint64_t m_firstLine;
  int m_depth = 0;
  bool m_silent = false;
  bool m_moved = false;
  std::string m_refusal;
  std::exception_ptr m_thrown;
};

} // namespace portico
