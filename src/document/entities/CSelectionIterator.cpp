#include "document/entities/CSelectionIterator.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

namespace portico {
namespace {

/// What `ComparePositions` answers when the first position stands before the second.
constexpr std::int32_t StandsBefore = 1;

} // namespace

void CSelectionIterator::Initialize(const String& Specification) try {
  if (Specification == u"IterateAll") {
    m_kind = Kind::All;
  } else if (Specification == u"IterateSelection") {
    m_kind = Kind::Selection;
  } else {
    HuntERR::Raise(ErrorNumber::InvalidArgument, ClassName(),
                   u"Specification, " + Specification + u", is not recognized.");
  }
  m_state = State::Running;
} catch (...) {
  PassOn(u"CSelectionIterator.Initialize(Specification)", {Specification});
}

void CSelectionIterator::Attach(const Ref<IIteratableObject>& Object) try {
  CheckAccessible(m_state != State::NotInitialized);
  HuntERR::Check(bool(Object), ErrorNumber::InvalidArgument, u"Iteratable object cannot be nothing.");
  m_object = Object;
  switch (m_kind) {
  case Kind::All:
    m_start = Object->StartOfObject();
    m_end = Object->EndOfObject();
    break;
  case Kind::Selection: {
    const auto selectable = Cast<ISelectableObject>(Object);
    m_start = selectable->StartOfSelection();
    m_end = selectable->EndOfSelection();
    break;
  }
  default:
    m_state = State::NotInitialized;
    HuntERR::Check(false, ErrorNumber::InternalState, u"Iterator was initialized with an unknown specification.");
  }
  m_current = m_start;
  m_state = State::Running;
} catch (...) {
  PassOn(u"CSelectionIterator.IIterator_Attach(Object)", {Object});
}

Value CSelectionIterator::FirstItem() try {
  m_current = m_start;
  m_state = m_object->ComparePositions(m_current, m_end) == StandsBefore ? State::Running : State::Done;
  return CurrentItem();
} catch (...) {
  PassOn(u"CSelectionIterator.IIterator_FirstItem()");
}

Value CSelectionIterator::CurrentItem() const try {
  CheckAccessible(m_state != State::NotInitialized);
  HuntERR::Check(bool(m_object), ErrorNumber::ObjectRequired, u"No iteratable object has been attached.");
  HuntERR::Check(bool(m_current), ErrorNumber::ObjectRequired, u"There is no current position.");
  return IsDone() ? Value(Ref<IDataEntity>()) : m_object->Item(m_current);
} catch (...) {
  PassOn(u"CSelectionIterator.IIterator_CurrentItem()");
}

bool CSelectionIterator::IsDone() const try {
  CheckAccessible(m_state != State::NotInitialized);
  return m_state == State::Done;
} catch (...) {
  PassOn(u"CSelectionIterator.IIterator_IsDone()");
}

Value CSelectionIterator::NextItem() try {
  const auto next = m_object->NextPosition(m_current);
  if (m_object->ComparePositions(next, m_end) == StandsBefore) {
    m_current = next;
  } else {
    m_state = State::Done;
  }
  return CurrentItem();
} catch (...) {
  PassOn(u"CSelectionIterator.IIterator_NextItem()");
}

Value CSelectionIterator::SkipTo(const String& Name, const String& Value) try {
  HuntERR::Check(m_state != State::NotInitialized, ErrorNumber::NotImplemented, u"This method is not implemented.");
  return {};
} catch (...) {
  PassOn(u"CSelectionIterator.IIterator_SkipTo(Name,Value)", {Name, Value});
}

namespace {

Ref<IObject> MakeIterator(const Params& parameters) {
  auto iterator = New<CSelectionIterator>();
  iterator->Initialize(parameters[0].ToString());
  return iterator;
}

} // namespace

// Its errors bear the name of an older creator.
const CreatorRow CtorIterator = {
    .Name = u"CtorIterator",
    .Specification = Class::SelectionIterator,
    .ParamCount = Class::SelectionIterator.ParamCount,
    .Make = MakeIterator,
    .LabelName = u"CtorSubscriptionAgent",
};

} // namespace portico
