#pragma once

#include "framework/objects/IObjectFactory.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace portico {

/// All that sets one creator apart from the others. Tables of rows are constants of the subsystem that offers them.
struct CreatorRow {
  /// Name of the creator, such as u"CtorWriteCmd".
  StringView Name;
  StringView Specification;
  std::size_t ParamCount;
  /// Makes the product from exactly `ParamCount` parameters; further checks of the parameters belong here.
  Ref<IObject> (*Make)(const Params& Parameters);
  /// Raised when the product was not made; number 0 for a creator without that check.
  std::int32_t FailureNumber = 0;
  StringView FailureText = {};
  /// One product for the creator's whole life, made when the creator is made.
  bool Singleton = false;
  /// The creator whose source labels this one bears, if not its own.
  StringView LabelName = {};
};

/// The creator of a row, to be owned by the factory.
Ref<ICreator> MakeCreator(const CreatorRow& row);

} // namespace portico
