#include "ui/base/CommandItems.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/modAppGlobals.h"
#include "ui/base/ShowFailure.h"

namespace portico {

void ConnectCommands(IForm& form, std::span<const CommandItem> items) {
  for (const CommandItem& item : items) {
    const String label = String(form.Name()).append(u".").append(item.Name).append(u"_Click");
    FindControl<IMenuItem>(form, item.Name).Click().Connect([label, &item] {
      RunHandler(label, item.Failure,
                 [&item] { modAppGlobals::ExecutionEventHandler(String(item.Command), modGlobals::VarArray()); });
    });
  }
}

} // namespace portico
