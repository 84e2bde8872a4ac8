#include "framework/shared/CInstContainer.h"

namespace portico {

// The labels spell the class `CInstrContainer`; error reports have always shown it so.

CInstContainer::CInstContainer() try : m_params(std::make_shared<KeyedList<Value>>()) {
} catch (...) {
  FailConstruction(u"CInstrContainer.Class_Initialize");
}

const InstructionParams& CInstContainer::Params() const try { return m_params; } catch (...) {
  PassOn(u"CInstrContainer.Params");
}

void CInstContainer::Params(const InstructionParams& newValue) try { m_params = newValue; } catch (...) {
  PassOn(u"CInstrContainer.Params(newValue)");
}

const String& CInstContainer::FunctionName() const try { return m_functionName; } catch (...) {
  PassOn(u"CInstrContainer.FunctionName");
}

void CInstContainer::FunctionName(const String& newValue) try { m_functionName = newValue; } catch (...) {
  PassOn(u"CInstrContainer.FunctionName(newValue)", {newValue});
}

const String& CInstContainer::CmdType() const try { return m_cmdType; } catch (...) {
  PassOn(u"CInstrContainer.CmdType");
}

void CInstContainer::CmdType(const String& newValue) try { m_cmdType = newValue; } catch (...) {
  PassOn(u"CInstrContainer.CmdType(newValue)", {newValue});
}

} // namespace portico
