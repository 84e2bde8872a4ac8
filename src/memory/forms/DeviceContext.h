#pragma once

#include "platform/IRichTextControl.h"

#include <vector>

namespace portico::memory {

/// A printer that keeps what is printed to it.
class DeviceContext final : public IDeviceContext {
public:
  /// Whether the dialog was left with the selection chosen.
  explicit DeviceContext(bool isForSelection = false) : m_isForSelection(isForSelection) {}
  StringView ClassName() const override { return u"DeviceContext"; }

  bool IsForSelection() const { return m_isForSelection; }
  void Print(const String& text) { m_printed.push_back(text); }
  /// The texts, one for each call.
  const std::vector<String>& Printed() const { return m_printed; }

private:
  bool m_isForSelection;
  std::vector<String> m_printed;
};

} // namespace portico::memory
