#pragma once

#include "document/log/LogElement.h"
#include "document/log/LogReading.h"

namespace portico {

/// Follows the elements of a log and tells a visitor of what belongs to it. Positions are bytes from the log's start.
class LogStructure {
public:
  LogStructure(LogReading& reading, ILogVisitor& visitor) : m_reading(reading), m_visitor(visitor) {}

  /// `attributes` is a list of names and values that ends in a null pointer.
  void StartElement(std::string_view name, const char* const* attributes, std::uint64_t end);
  void EndElement(std::uint64_t end);
  void Characters(std::string_view text, std::uint64_t end);
  void StartCData();
  void EndCData(std::uint64_t end);
  /// A comment or a processing instruction.
  void Aside(std::uint64_t end);

  bool RootEnded() const { return m_rootEnded; }
  /// Between the root's children.
  bool InRoot() const { return Here() == Place::Root; }

private:
  enum class Place { Elsewhere, Root, Session, Entity };

  Place Here() const;
  /// What ends here is kept when the log is extended.
  void KeepUpTo(std::uint64_t end);
  void TakeAttributes(const char* const* attributes);
  LogElement Element(std::string_view name) const;
  void EndTextRun();

  LogReading& m_reading;
  ILogVisitor& m_visitor;
  std::size_t m_depth = 0;
  bool m_inHeader = false;
  bool m_inSession = false;
  bool m_rootEnded = false;
  bool m_inCData = false;

  std::string m_name;
  std::vector<LogAttribute> m_attributes; // grows only, for its storage
  std::size_t m_attributeCount = 0;
  std::string m_text;
  std::size_t m_runStart = 0; // of the text since the last markup
};

} // namespace portico
