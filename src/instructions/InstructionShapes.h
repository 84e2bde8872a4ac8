#pragma once

#include "framework/text/text.h"

#include <array>
#include <utility>

namespace portico {

/// The shape of one instruction, before it is a container or a text: type, function, and the parameters in order.
struct InstructionShape {
  StringView CmdType;
  StringView FunctionName;
  std::array<std::pair<StringView, StringView>, 2> Params = {}; ///< those that have a name

  template <class Visit>
  void ForEachParam(Visit visit) const {
    for (const auto& [name, value] : Params) {
      if (!name.empty()) visit(name, value);
    }
  }
};

/// The table of all instructions, with its checks. Views refer to the arguments and must not outlive them.
namespace InstructionShapes {

InstructionShape Open(StringView Instrument);
InstructionShape Close();
InstructionShape Write(StringView Data);
InstructionShape SCPI(StringView Data);
InstructionShape Read();
InstructionShape SetAttribute(StringView Name, StringView Value);
/// The number of the error for an empty name differs between the two users of the table.
InstructionShape GetAttribute(StringView Name, std::int32_t emptyNameError);

} // namespace InstructionShapes
} // namespace portico
