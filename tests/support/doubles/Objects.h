#pragma once

#include "framework/objects/IObjectFactory.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/ICommand.h"

#include <cstddef>
#include <functional>

namespace portico::test {

/// An object that is nothing but its class name.
class NamedObject final : public IObject {
public:
  explicit NamedObject(String name = u"NamedObject");
  StringView ClassName() const override;

  String Name;
};

/// A command that runs a function.
class CommandOf final : public ICommand {
public:
  explicit CommandOf(std::function<void()> action);
  StringView ClassName() const override;
  void Execute() override;

private:
  std::function<void()> m_action;
};

/// A subscriber that runs a function.
class SubscriberOf final : public ISubscriber {
public:
  using Action = std::function<void(const Ref<IObject>&)>;
  explicit SubscriberOf(Action action = [](const Ref<IObject>&) {});
  StringView ClassName() const override;
  void Update(const Ref<IObject>& Subject) override;

private:
  Action m_action;
};

/// A creator that takes any parameters and makes what a function makes.
class CreatorOf : public ICreator {
public:
  using Maker = std::function<Ref<IObject>(const Params&)>;
  explicit CreatorOf(
      String specification, Maker make = [](const Params&) -> Ref<IObject> { return New<NamedObject>(); });
  ~CreatorOf() override;
  StringView ClassName() const override;
  Value Specification() const override;
  Ref<IObject> Create(const Params& Parameters) override;
  bool IsMatch(const Value& Specification) const override;

  /// How many parameters it was given last.
  std::size_t LastCount = 0;

private:
  String m_specification;
  Maker m_make;
};

/// A creator that hands one object out.
class CreatorOfOne final : public CreatorOf {
public:
  CreatorOfOne(String specification, Ref<IObject> product);
};

} // namespace portico::test
