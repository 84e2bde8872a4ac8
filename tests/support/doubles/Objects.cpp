#include "support/doubles/Objects.h"

#include <utility>

namespace portico::test {

NamedObject::NamedObject(String name) : Name(std::move(name)) {}
StringView NamedObject::ClassName() const { return Name; }

CommandOf::CommandOf(std::function<void()> action) : m_action(std::move(action)) {}
StringView CommandOf::ClassName() const { return u"CommandOf"; }
void CommandOf::Execute() { m_action(); }

SubscriberOf::SubscriberOf(Action action) : m_action(std::move(action)) {}
StringView SubscriberOf::ClassName() const { return u"SubscriberOf"; }
void SubscriberOf::Update(const Ref<IObject>& Subject) { m_action(Subject); }

CreatorOf::CreatorOf(String specification, Maker make)
    : m_specification(std::move(specification)), m_make(std::move(make)) {}
CreatorOf::~CreatorOf() = default;
StringView CreatorOf::ClassName() const { return u"CreatorOf"; }
Value CreatorOf::Specification() const { return m_specification; }
Ref<IObject> CreatorOf::Create(const Params& Parameters) {
  LastCount = Parameters.size();
  return m_make(Parameters);
}
bool CreatorOf::IsMatch(const Value& Specification) const { return Specification.ToString() == m_specification; }

CreatorOfOne::CreatorOfOne(String specification, Ref<IObject> product)
    : CreatorOf(std::move(specification), [product = std::move(product)](const Params&) { return product; }) {}

} // namespace portico::test
