#include "document/entities/CDataSelection.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

namespace portico {

void CDataSelection::Initialize(const Ref<CDataPosition>& Start, const Ref<CDataPosition>& End) try {
  HuntERR::Check(bool(Start), ErrorNumber::InvalidArgument, u"Starting position cannot be nothing.");
  HuntERR::Check(bool(End), ErrorNumber::InvalidArgument, u"Ending position cannot be nothing.");
  m_start = Start;
  m_end = End;
  m_initialized = true;
} catch (...) {
  PassOn(u"CDataSelection.Initialize(Start,End)", {Start, End});
}

Ref<CDataPosition> CDataSelection::StartingPosition() const try {
  CheckAccessible(m_initialized);
  return m_start;
} catch (...) {
  PassOn(u"CDataSelection.StartingPosition");
}

Ref<CDataPosition> CDataSelection::EndingPosition() const try {
  CheckAccessible(m_initialized);
  return m_end;
} catch (...) {
  PassOn(u"CDataSelection.EndingPosition");
}

bool CDataSelection::IsEmpty() const try {
  CheckInitialized(m_initialized);
  return m_end->IsSame(m_start);
} catch (...) {
  PassOn(u"CDataSelection.IsEmpty()");
}

} // namespace portico
