#include "configuration/ConfigurationXml.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/errors/Ref.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string_view>
#include <utility>

namespace portico {
namespace {

// Everything is kept: comments, declaration, document type, blank text. As a fragment, because otherwise all text
// outside the root would be dropped, be it blank or not.
constexpr unsigned ParseFlags = pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment;
constexpr unsigned WriteFlags = pugi::format_raw | pugi::format_no_declaration;

bool IsElement(pugi::xml_node node) { return node.type() == pugi::node_element; }
bool IsText(pugi::xml_node node) { return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata; }

/// Whether what stands behind "&#" names a character, if it is a reference at all.
bool NamesCharacter(std::string_view reference) {
  const bool hexadecimal = reference.starts_with('x');
  if (hexadecimal) reference.remove_prefix(1);
  std::uint32_t number = 0;
  const char* end = reference.data() + reference.size();
  const auto [stop, failure] = std::from_chars(reference.data(), end, number, hexadecimal ? 16 : 10);
  if (stop == reference.data() || stop == end || *stop != ';') return true;
  const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
  return failure == std::errc() && number != 0 && number <= 0x10FFFF && !surrogate;
}

bool NameCharacters(std::string_view text) {
  constexpr std::string_view mark = "&#";
  for (auto at = text.find(mark); at != std::string_view::npos; at = text.find(mark, at)) {
    at += mark.size();
    if (!NamesCharacter(text.substr(at))) return false;
  }
  return true;
}

/// The parser resolves references to what is no character, too, such as &#0; and &#xD800;, which could not be given
/// back. So they are looked for in the document as it stands.
bool ReferencesNameCharacters(const std::string& bytes) {
  if (bytes.find("&#") == std::string::npos) return true;
  pugi::xml_document unresolved;
  unresolved.load_buffer(bytes.data(), bytes.size(), ParseFlags & ~pugi::parse_escapes, pugi::encoding_utf8);
  struct Reader final : pugi::xml_tree_walker {
    bool for_each(pugi::xml_node& node) override {
      const auto attributes = node.attributes();
      return (node.type() != pugi::node_pcdata || NameCharacters(node.value())) &&
             std::all_of(attributes.begin(), attributes.end(),
                         [](pugi::xml_attribute attribute) { return NameCharacters(attribute.value()); });
    }
  } reader;
  return unresolved.traverse(reader);
}

/// In UTF-8. U+0000 is left out: no document can hold it.
std::string ForXml(String text) {
  std::erase(text, u'\0');
  return ToUtf8(text);
}

/// From the leaves up, because the parser's own removal of a subtree recurses.
void RemoveChildren(pugi::xml_node node) {
  pugi::xml_node at = node;
  while (true) {
    while (const pugi::xml_node child = at.first_child()) at = child;
    if (at == node) return;
    const pugi::xml_node leaf = std::exchange(at, at.parent());
    at.remove_child(leaf);
  }
}

} // namespace

ConfigurationXml::ConfigurationXml() { m_document.append_child("Parameters"); }

ConfigurationXml::ConfigurationXml(const String& text) {
  const std::string bytes = ToUtf8(text);
  const auto result = m_document.load_buffer(bytes.data(), bytes.size(), ParseFlags, pugi::encoding_utf8);
  const auto nodes = m_document.children();
  const bool oneRoot = std::count_if(nodes.begin(), nodes.end(), IsElement) == 1;
  const bool textOutside = std::any_of(nodes.begin(), nodes.end(), [](pugi::xml_node node) {
    return node.type() == pugi::node_cdata ||
           (node.type() == pugi::node_pcdata &&
            std::string_view(node.value()).find_first_not_of(" \t\r\n") != std::string_view::npos);
  });
  const bool wholeText = text.find(u'\0') == String::npos; // the parser stops there
  HuntERR::Check(result && oneRoot && !textOutside && wholeText && ReferencesNameCharacters(bytes),
                 ErrorNumber::InvalidArgument, u"Syntax Error: Configuration is not valid XML");
}

void ConfigurationXml::Append(const String& name, const String& value) {
  pugi::xml_node parameter = m_document.document_element().append_child("Parameter");
  parameter.append_attribute("Name").set_value(ForXml(name).c_str());
  SetValue(parameter, value);
}

String ConfigurationXml::NameOf(pugi::xml_node parameter) {
  const pugi::xml_attribute name = parameter.attribute("Name");
  if (!name) RaiseUnsetReference();
  return FromUtf8(name.value()).Text;
}

String ConfigurationXml::ValueOf(pugi::xml_node parameter) {
  struct Gatherer final : pugi::xml_tree_walker { // walks without recursion, however deep the document is
    bool for_each(pugi::xml_node& node) override {
      if (IsText(node)) Text += node.value();
      return true;
    }
    std::string Text;
  } gatherer;
  parameter.traverse(gatherer);
  return FromUtf8(gatherer.Text).Text;
}

void ConfigurationXml::SetValue(pugi::xml_node parameter, const String& value) {
  RemoveChildren(parameter);
  const std::string text = ForXml(value);
  if (!text.empty()) parameter.append_child(pugi::node_pcdata).set_value(text.c_str());
}

std::string ConfigurationXml::Bytes() const {
  std::ostringstream stream;
  m_document.save(stream, "", WriteFlags, pugi::encoding_utf8);
  return stream.str();
}

} // namespace portico
