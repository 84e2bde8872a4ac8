#pragma once

#include "numbers/BlockNumbers.h"
#include "platform/FormDesign.h"
#include "plot/Curves.h"

#include <optional>
#include <span>

namespace portico {

/// How the plot window is made up.
extern const FormDesign PlotDesign;

/// Items of which one is checked, and what each stands for.
template <class Value>
struct ChoiceItem {
  StringView Name;
  Value Chosen;
};

std::span<const ChoiceItem<plot::CurveKind>> KindItems();
/// None is what the conversation tells.
std::span<const ChoiceItem<std::optional<numbers::ElementType>>> TypeItems();
std::span<const ChoiceItem<std::optional<numbers::ByteOrder>>> OrderItems();

} // namespace portico
