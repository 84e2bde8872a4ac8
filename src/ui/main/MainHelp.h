#pragma once

#include "platform/IForm.h"

namespace portico {

/// The help that the main window offers. Made and owned by the window, whose form must outlive it.
class MainHelp final {
public:
  /// The file is empty if the application has none: then a message box says so. What the help viewer raises goes to a
  /// plain message box.
  MainHelp(const IForm& form, StringView file) : m_form(form), m_file(file) {}

  void ShowTopics() const;
  void Search() const;

private:
  void Show(std::int32_t command, StringView refusal) const;

  const IForm& m_form;
  const String m_file;
};

} // namespace portico
