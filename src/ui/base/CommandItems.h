#pragma once

#include "framework/errors/Value.h"
#include "framework/text/text.h"
#include "platform/IForm.h"

#include <array>
#include <cstddef>
#include <functional>
#include <span>

namespace portico {

/// An item of a menu that ends in a command.
struct CommandItem {
  StringView Name;
  StringView Failure; ///< stands first in the message box
  StringView Command;
};

/// What the commands of some items are made with, asked for at each click. Without it they take no parameters.
using CommandParameters = std::function<Params()>;

/// Lets each item's click run its command by way of `ExecutionEventHandler`. What fails is shown, and reported under
/// the form's name and the item's. The items must outlive the form.
void ConnectCommands(IForm& form, std::span<const CommandItem> items, const CommandParameters& parameters = {});
/// Only while this is true can the user choose them.
void EnableItems(IForm& form, std::span<const CommandItem> items, bool isEnabled);

/// Rows of tables in one.
template <class Row, std::size_t... Counts>
constexpr auto Joined(const std::array<Row, Counts>&... parts) {
  std::array<Row, (Counts + ...)> rows{};
  std::size_t count = 0;
  const auto append = [&](const auto& part) {
    for (const Row& row : part) rows[count++] = row;
  };
  (append(parts), ...);
  return rows;
}

} // namespace portico
