#include "document/log/LogRewriter.h"

#include "document/log/LogText.h"

#include <memory>
#include <new>
#include <system_error>
#include <utility>
#include <vector>

#include <expat.h>

namespace portico {
namespace {

constexpr std::size_t ChunkSize = std::size_t{256} * 1024;

/// Gathers the document; the caller takes the bytes away between two chunks, so that no exception crosses the parser.
class Rewriter {
public:
  Rewriter() : m_parser(XML_ParserCreate(nullptr), XML_ParserFree) {
    if (!m_parser) throw std::bad_alloc();
    XML_SetUserData(m_parser.get(), this);
    XML_SetElementHandler(m_parser.get(), StartElement, EndElement);
    XML_SetCharacterDataHandler(m_parser.get(), Characters);
    XML_SetCdataSectionHandler(m_parser.get(), StartCData, EndCData);
    XML_SetCommentHandler(m_parser.get(), Comment);
    XML_SetProcessingInstructionHandler(m_parser.get(), Instruction);
  }

  /// The document so far, once.
  std::string Feed(std::string_view bytes) {
    const auto status = XML_Parse(m_parser.get(), bytes.data(), static_cast<int>(bytes.size()), bytes.empty() ? 1 : 0);
    // It was read without a fault a moment ago.
    if (status != XML_STATUS_OK) throw std::system_error(std::make_error_code(std::errc::io_error));
    return std::exchange(m_out, {});
  }

private:
  static Rewriter& Of(void* user) { return *static_cast<Rewriter*>(user); }

  /// The end of a start tag is written when it is known whether the element is empty.
  void EndTag() {
    if (m_inTag) m_out += '>';
    m_inTag = false;
  }
  void SetApart() {
    if (m_depth == 0) m_out += '\n';
  }

  static void XMLCALL StartElement(void* user, const XML_Char* name, const XML_Char** attributes) {
    Rewriter& self = Of(user);
    self.EndTag();
    self.SetApart();
    self.m_out.append("<").append(name);
    for (; *attributes != nullptr; attributes += 2) {
      LogText::AppendAttribute(self.m_out, std::string_view(attributes[0]), std::string_view(attributes[1]));
    }
    self.m_inTag = true;
    ++self.m_depth;
  }
  static void XMLCALL EndElement(void* user, const XML_Char* name) {
    Rewriter& self = Of(user);
    if (--self.m_depth == 0) return self.EndTag(); // the root's end comes last
    if (self.m_inTag) {
      self.m_out += "/>";
    } else {
      self.m_out.append("</").append(name).append(">");
    }
    self.m_inTag = false;
  }
  static void XMLCALL Characters(void* user, const XML_Char* text, int length) {
    Rewriter& self = Of(user);
    self.EndTag();
    const std::string_view characters(text, static_cast<std::size_t>(length));
    if (self.m_inCData) {
      self.m_out += characters;
    } else {
      LogText::AppendText(self.m_out, characters);
    }
  }
  static void XMLCALL StartCData(void* user) {
    Rewriter& self = Of(user);
    self.EndTag();
    self.m_inCData = true;
    self.m_out += "<![CDATA[";
  }
  static void XMLCALL EndCData(void* user) {
    Of(user).m_inCData = false;
    Of(user).m_out += "]]>";
  }
  static void XMLCALL Comment(void* user, const XML_Char* text) {
    Rewriter& self = Of(user);
    self.EndTag();
    self.SetApart();
    self.m_out.append("<!--").append(text).append("-->");
  }
  static void XMLCALL Instruction(void* user, const XML_Char* target, const XML_Char* text) {
    Rewriter& self = Of(user);
    self.EndTag();
    self.SetApart();
    self.m_out.append("<?").append(target).append(" ").append(text).append("?>");
  }

  std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> m_parser;
  std::string m_out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
  std::size_t m_depth = 0;
  bool m_inTag = false;
  bool m_inCData = false;
};

} // namespace

std::uint64_t RewriteLog(const LogReader::Source& source, const ILogDisk::Sink& sink) {
  Rewriter rewriter;
  std::vector<char> chunk(ChunkSize);
  std::uint64_t written = 0;
  std::size_t count = 0;
  do {
    count = source(chunk.data(), chunk.size());
    const std::string bytes = rewriter.Feed({chunk.data(), count});
    written += bytes.size();
    sink(bytes);
  } while (count > 0);
  sink(LogText::RootEnd);
  return written;
}

} // namespace portico
