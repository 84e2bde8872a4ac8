#include "configuration/ConfigurationXml.h"

#include "framework/ErrorNumbers.h"
#include "framework/HuntERR.h"
#include "framework/Ref.h"

#include <algorithm>
#include <sstream>

namespace portico {
namespace {

// Everything is kept: comments, declaration, document type, blank text. As a fragment, because otherwise all text
// outside the root would be dropped, be it blank or not.
constexpr unsigned ParseFlags = pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment;
constexpr unsigned WriteFlags = pugi::format_raw | pugi::format_no_declaration;

bool IsElement(pugi::xml_node node) { return node.type() == pugi::node_element; }
bool IsText(pugi::xml_node node) { return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata; }

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
  // A reference to what is no character, such as &#xD800;, passes the parser but could not be given back.
  const bool noCharacter = text.find(u"&#") != String::npos && FromUtf8(Bytes()).BadByte.has_value();
  HuntERR::Check(result && oneRoot && !textOutside && !noCharacter, ErrorNumber::InvalidArgument,
                 u"Syntax Error: Configuration is not valid XML");
}

void ConfigurationXml::Append(const String& name, const String& value) {
  pugi::xml_node parameter = m_document.document_element().append_child("Parameter");
  parameter.append_attribute("Name").set_value(ToUtf8(name).c_str());
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
  parameter.remove_children();
  if (!value.empty()) parameter.append_child(pugi::node_pcdata).set_value(ToUtf8(value).c_str());
}

std::string ConfigurationXml::Bytes() const {
  std::ostringstream stream;
  m_document.save(stream, "", WriteFlags, pugi::encoding_utf8);
  return stream.str();
}

} // namespace portico
