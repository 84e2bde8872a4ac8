#pragma once

#include "framework/objects/IObjectFactory.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/ICommand.h"

#include <functional>
#include <utility>

namespace portico::test {

/// An object that is nothing but its class name.
class NamedObject final : public IObject {
public:
  explicit NamedObject(String name = u"NamedObject") : Name(std::move(name)) {}
  StringView ClassName() const override { return Name; }

  String Name;
};

/// A command that runs a function.
class CommandOf final : public ICommand {
public:
  explicit CommandOf(std::function<void()> action) : m_action(std::move(action)) {}
  StringView ClassName() const override { return u"CommandOf"; }
  void Execute() override { m_action(); }

private:
  std::function<void()> m_action;
};

/// A subscriber that runs a function.
class SubscriberOf final : public ISubscriber {
public:
  using Action = std::function<void(const Ref<IObject>&)>;
  explicit SubscriberOf(Action action = [](const Ref<IObject>&) {}) : m_action(std::move(action)) {}
  StringView ClassName() const override { return u"SubscriberOf"; }
  void Update(const Ref<IObject>& Subject) override { m_action(Subject); }

private:
  Action m_action;
};

/// A creator that takes any parameters and makes what a function makes.
class CreatorOf final : public ICreator {
public:
  using Maker = std::function<Ref<IObject>(const Params&)>;
  explicit CreatorOf(
      String specification, Maker make = [](const Params&) -> Ref<IObject> { return New<NamedObject>(); })
      : m_specification(std::move(specification)), m_make(std::move(make)) {}
  StringView ClassName() const override { return u"CreatorOf"; }
  Value Specification() const override { return m_specification; }
  Ref<IObject> Create(const Params& Parameters) override { return m_make(Parameters); }
  bool IsMatch(const Value& Specification) const override { return Specification.ToString() == m_specification; }

private:
  String m_specification;
  Maker m_make;
};

} // namespace portico::test
