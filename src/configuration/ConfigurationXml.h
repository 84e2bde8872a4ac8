#pragma once

#include "framework/text/text.h"

#include <pugixml.hpp>

#include <string>

namespace portico {

/// A configuration as XML: a root `Parameters` of `Parameter` elements, each with the attribute `Name` and the value as
/// its text. A document that was parsed gives everything back as it stood, but for the values written.
class ConfigurationXml {
public:
  /// A document with an empty root.
  ConfigurationXml();
  /// Text that is not one well-formed document raises `InvalidArgument`.
  explicit ConfigurationXml(const String& text);

  void Append(const String& name, const String& value);

  /// Calls `visit(name, parameter)` for each `Parameter` below the root `Parameters`, in document order. One without a
  /// name raises `MissingObject`.
  template <class Visit>
  void ForEach(Visit visit) {
    for (pugi::xml_node parameter : m_document.child("Parameters").children("Parameter")) {
      visit(NameOf(parameter), parameter);
    }
  }

  /// All text below the element.
  static String ValueOf(pugi::xml_node parameter);
  /// Replaces everything below the element.
  static void SetValue(pugi::xml_node parameter, const String& value);

  String Text() const { return FromUtf8(Bytes()).Text; }

private:
  static String NameOf(pugi::xml_node parameter);
  /// In UTF-8.
  std::string Bytes() const;

  pugi::xml_document m_document;
};

} // namespace portico
