#pragma once

#include "framework/text/text.h"

namespace portico {

/// What the settings store keeps of a window, in the section of the window's class. Needs `gSettingsStore`.
class WindowSettings final {
public:
  explicit WindowSettings(StringView window) : m_section(window) {}

  /// The standard for what is not stored.
  String Read(StringView key, StringView standard) const;
  void Save(StringView key, StringView value) const;

  // The window's place in form units, kept as single floats. What is stored and is no number raises `TypeMismatch`.
  double Left() const { return ReadSingle(LeftKey, u"1000"); }
  void Left(double newValue) const { SaveSingle(LeftKey, newValue); }
  double Top() const { return ReadSingle(TopKey, u"1000"); }
  void Top(double newValue) const { SaveSingle(TopKey, newValue); }
  double Width() const { return ReadSingle(WidthKey, u"6500"); }
  void Width(double newValue) const { SaveSingle(WidthKey, newValue); }
  double Height() const { return ReadSingle(HeightKey, u"6500"); }
  void Height(double newValue) const { SaveSingle(HeightKey, newValue); }

private:
  static constexpr StringView LeftKey = u"MainLeft";
  static constexpr StringView TopKey = u"MainTop";
  static constexpr StringView WidthKey = u"MainWidth";
  static constexpr StringView HeightKey = u"MainHeight";

  double ReadSingle(StringView key, StringView standard) const;
  void SaveSingle(StringView key, double newValue) const;

  String m_section;
};

} // namespace portico
