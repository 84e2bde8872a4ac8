#pragma once

#include "ui/dialogs/DialogForm.h"

namespace portico {

/// Asks for the query whose answer is to be fetched, and begins with one that is offered. Nothing but blanks is refused
/// in a message box, and so is what the instrument's code page lacks; the dialog stays.
class QueryDialog final : public DialogForm {
public:
  QueryDialog();
  StringView ClassName() const override { return u"QueryDialog"; }

  void Form_Initialize() override;
  void Offer(const String& query) { m_offered = query; }
  /// Empty if the user has cancelled, by whatever road.
  const String& Query() const { return m_query; }

private:
  void Form_Load() override;
  void Accept();

  String m_offered;
  String m_query;
};

} // namespace portico
