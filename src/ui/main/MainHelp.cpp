#include "ui/main/MainHelp.h"

#include "framework/shared/Application.h"
#include "platform/ICommonDialog.h"
#include "platform/IDesktop.h"

namespace portico {

void MainHelp::ShowTopics() const {
  Show(HelpFinder, u"Unable to display help contents. There is no Help associated with this project.");
}

void MainHelp::Search() const {
  Show(HelpPartialKey, u"Unable to search for help on a topic. There is no Help associated with this project.");
}

void MainHelp::Show(std::int32_t command, StringView refusal) const {
  if (m_file.empty()) {
    gMessageBox->Show(String(refusal), m_form.Caption(), MessageBoxButtons::OKOnly, MessageBoxIcon::Information);
    return;
  }
  String fault;
  try {
    gHelpViewer->WinHelp(m_file, command, {});
    return;
  } catch (const Error& error) {
    fault = error.Record().Description;
  }
  gMessageBox->Show(fault, ApplicationTitle);
}

} // namespace portico
