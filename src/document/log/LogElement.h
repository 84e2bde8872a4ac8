#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace portico {

struct LogAttribute {
  std::string Name;
  std::string Value;
};

/// An element of a log as its reader tells of it, in UTF-8. Lives as long as the call that tells.
struct LogElement {
  std::string_view Name;
  /// In the file's order.
  std::span<const LogAttribute> Attributes;
  /// All text of an entity's element, but for white space around its CDATA sections. Empty for other elements.
  std::string_view Text;

  /// Nothing if there is no such attribute.
  std::optional<std::string_view> Attribute(std::string_view name) const {
    const auto found = std::find_if(Attributes.begin(), Attributes.end(),
                                    [name](const LogAttribute& attribute) { return attribute.Name == name; });
    if (found == Attributes.end()) return {};
    return found->Value;
  }
};

/// Is told what stands in a log, in document order. What it throws ends the reading and reaches the reader's caller.
class ILogVisitor {
public:
  virtual ~ILogVisitor() = default;

  virtual void Header(const LogElement&) {}
  virtual void SessionOpened(const LogElement&) {}
  virtual void Entity(const LogElement&) {}
  virtual void SessionClosed() {}
};

} // namespace portico
