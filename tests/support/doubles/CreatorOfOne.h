#pragma once

#include "framework/objects/IObjectFactory.h"

#include <cstddef>
#include <functional>
#include <utility>

namespace portico::test {

/// A creator that hands one object out, and counts the parameters that it is given.
class CreatorOfOne final : public ICreator {
public:
  CreatorOfOne(String specification, Ref<IObject> product, std::function<void()> onCreate = {})
      : m_specification(std::move(specification)), m_product(std::move(product)), m_onCreate(std::move(onCreate)) {}
  StringView ClassName() const override { return u"CreatorOfOne"; }
  Value Specification() const override { return m_specification; }
  Ref<IObject> Create(const Params& Parameters) override {
    LastCount = Parameters.size();
    if (m_onCreate) m_onCreate();
    return m_product;
  }
  bool IsMatch(const Value& Specification) const override { return Specification.ToString() == m_specification; }

  std::size_t LastCount = 0;

private:
  String m_specification;
  Ref<IObject> m_product;
  std::function<void()> m_onCreate;
};

} // namespace portico::test
