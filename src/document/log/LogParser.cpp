#include "document/log/LogParser.h"

#include "document/log/LogText.h"

#include <new>

#include <expat.h>

namespace portico {

struct LogParser::Handlers {
  /// A log has three levels; each takes memory until it is closed.
  static constexpr int MostDepth = 256;

  static LogParser& Of(void* user) { return *static_cast<LogParser*>(user); }

  static void XMLCALL StartElement(void* user, const XML_Char* name, const XML_Char** attributes) {
    LogParser& parser = Of(user);
    if (parser.m_silent) return;
    if (++parser.m_depth > MostDepth) return parser.Refuse("the elements are nested too deeply");
    parser.Tell([&] { parser.m_structure.StartElement(name, attributes, parser.End()); });
  }
  static void XMLCALL EndElement(void* user, const XML_Char* /*name*/) {
    LogParser& parser = Of(user);
    --parser.m_depth;
    parser.Tell([&] { parser.m_structure.EndElement(parser.End()); });
  }
  static void XMLCALL Characters(void* user, const XML_Char* text, int length) {
    LogParser& parser = Of(user);
    parser.Tell([&] { parser.m_structure.Characters({text, static_cast<std::size_t>(length)}, parser.End()); });
  }
  static void XMLCALL StartCData(void* user) {
    LogParser& parser = Of(user);
    parser.Tell([&] { parser.m_structure.StartCData(); });
  }
  static void XMLCALL EndCData(void* user) {
    LogParser& parser = Of(user);
    parser.Tell([&] { parser.m_structure.EndCData(parser.End()); });
  }
  static void XMLCALL Comment(void* user, const XML_Char* /*text*/) {
    LogParser& parser = Of(user);
    parser.Tell([&] { parser.m_structure.Aside(parser.End()); });
  }
  static void XMLCALL Instruction(void* user, const XML_Char* /*target*/, const XML_Char* text) { Comment(user, text); }
  static void XMLCALL Declaration(void* user, const XML_Char* /*version*/, const XML_Char* encoding, int /*alone*/) {
    if (encoding != nullptr && !EqualNoCase(FromAscii(encoding), u"UTF-8")) Of(user).m_reading.IsUtf8 = false;
  }
  static void XMLCALL DocumentType(void* user, const XML_Char*, const XML_Char*, const XML_Char*, int) {
    Of(user).Refuse("a document type is not allowed");
  }
};

LogParser::LogParser(LogStructure& structure, LogReading& reading, std::uint64_t position, std::uint64_t line)
    : m_parser(XML_ParserCreate(nullptr)),
      m_structure(structure),
      m_reading(reading),
      m_start(position),
      m_firstLine(line) {
  if (!m_parser) throw std::bad_alloc();
  XML_SetUserData(m_parser.get(), this);
  XML_SetElementHandler(m_parser.get(), Handlers::StartElement, Handlers::EndElement);
  XML_SetCharacterDataHandler(m_parser.get(), Handlers::Characters);
  XML_SetCdataSectionHandler(m_parser.get(), Handlers::StartCData, Handlers::EndCData);
  XML_SetCommentHandler(m_parser.get(), Handlers::Comment);
  XML_SetProcessingInstructionHandler(m_parser.get(), Handlers::Instruction);
  XML_SetXmlDeclHandler(m_parser.get(), Handlers::Declaration);
  XML_SetStartDoctypeDeclHandler(m_parser.get(), Handlers::DocumentType);
}

void LogParser::Free::operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }

LogParser::Status LogParser::Feed(std::string_view bytes, bool last) {
  m_moved = false;
  const auto status = XML_Parse(m_parser.get(), bytes.data(), static_cast<int>(bytes.size()), last ? 1 : 0);
  if (m_thrown) std::rethrow_exception(m_thrown);
  if (status == XML_STATUS_OK) return Status::Fine;
  switch (XML_GetErrorCode(m_parser.get())) {
  case XML_ERROR_NO_MEMORY:
    throw std::bad_alloc();
  case XML_ERROR_NO_ELEMENTS:
  case XML_ERROR_UNCLOSED_TOKEN:
  case XML_ERROR_PARTIAL_CHAR:
  case XML_ERROR_UNCLOSED_CDATA_SECTION:
    return Status::EndsEarly;
  default:
    return Status::Wrong;
  }
}

void LogParser::OpenRootSilently() {
  const std::string root = "<" + std::string(LogName::Root) + ">";
  m_silent = true;
  Feed(root, false);
  m_silent = false;
  m_start -= root.size(); // wraps around at the log's start, and back again when a position is added
}

std::uint64_t LogParser::Position() const {
  return m_start + static_cast<std::uint64_t>(XML_GetCurrentByteIndex(m_parser.get()));
}

std::uint64_t LogParser::Line() const { return m_firstLine + XML_GetCurrentLineNumber(m_parser.get()) - 1; }

std::string LogParser::Reason() const {
  if (!m_refusal.empty()) return m_refusal;
  return XML_ErrorString(XML_GetErrorCode(m_parser.get()));
}

std::uint64_t LogParser::End() const {
  return Position() + static_cast<std::uint64_t>(XML_GetCurrentByteCount(m_parser.get()));
}

void LogParser::Refuse(const char* reason) {
  m_refusal = reason;
  XML_StopParser(m_parser.get(), XML_FALSE);
}

template <class Call>
void LogParser::Tell(Call call) {
  if (m_thrown) return;
  m_moved = true;
  try {
    call();
  } catch (...) {
    m_thrown = std::current_exception();
    XML_StopParser(m_parser.get(), XML_FALSE);
  }
}

} // namespace portico
