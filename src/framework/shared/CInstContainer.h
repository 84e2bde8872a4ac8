#pragma once

#include "framework/containers/KeyedList.h"
#include "framework/errors/Ref.h"
#include "framework/errors/Value.h"

#include <memory>

namespace portico {

/// The parameters of an instruction in insertion order, each under its name. Shared with whoever got the list.
using InstructionParams = std::shared_ptr<KeyedList<Value>>;

/// An instruction: one request to the instrument. A plain record that does not validate. Nobody changes an instruction
/// after sending it, since reports may hold it.
class CInstContainer final : public IObject {
public:
  CInstContainer();

  StringView ClassName() const override { return u"CInstContainer"; }

  const InstructionParams& Params() const;
  void Params(const InstructionParams& newValue);
  /// The function within the type, such as "Send".
  const String& FunctionName() const;
  void FunctionName(const String& newValue);
  /// "COMM", "SCPI" or "CONFIG": selects the handler.
  const String& CmdType() const;
  void CmdType(const String& newValue);

private:
  String m_cmdType;
  String m_functionName;
  InstructionParams m_params;
};

} // namespace portico
