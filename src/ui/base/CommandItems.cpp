#include "ui/base/CommandItems.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/modAppGlobals.h"
#include "ui/base/ShowFailure.h"

namespace portico {

void ConnectCommands(IForm& form, std::span<const CommandItem> items, const CommandParameters& parameters) {
  for (const CommandItem& item : items) {
    const String label = String(form.Name()).append(u".").append(item.Name).append(u"_Click");
    FindControl<IMenuItem>(form, item.Name).Click().Connect([label, &item, parameters] {
      RunHandler(label, item.Failure, [&] {
        modAppGlobals::ExecutionEventHandler(String(item.Command), parameters ? parameters() : modGlobals::VarArray());
      });
    });
  }
}

void EnableItems(IForm& form, std::span<const CommandItem> items, bool isEnabled) {
  for (const CommandItem& item : items) FindControl<IMenuItem>(form, item.Name).Enabled(isEnabled);
}

} // namespace portico
