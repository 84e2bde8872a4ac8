#include "framework/objects/Creator.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/modGlobals.h"

namespace portico {
namespace {

/// "s" is chosen from a list that ends at two, so that three and more parameters read "parameter".
String CountText(std::size_t count) {
  const bool plural = count == 0 || count == 2;
  return u"Expected " + ToText(static_cast<std::int64_t>(count)) + u" parameter" + (plural ? u"s" : u"") + u".";
}

class CCreator : public ICreator {
public:
  explicit CCreator(const CreatorRow& row) : m_row(row) {}

  StringView ClassName() const override { return m_row.Name; }

  Value Specification() const override try { return m_row.Specification; } catch (...) {
    PassOn(Label(u".ICreator_Specification"));
  }

  bool IsMatch(const Value& Specification) const override try {
    return Specification.ToString() == m_row.Specification;
  } catch (...) {
    PassOn(Label(u".ICreator_IsMatch(Specification)"), {Specification});
  }

  Ref<IObject> Create(const Params& Parameters) override try {
    HuntERR::Check(modGlobals::ParamArrayCount(Parameters) == static_cast<std::int32_t>(m_row.ParamCount),
                   ErrorNumber::WrongParameterCount, [this] { return CountText(m_row.ParamCount); });
    Ref<IObject> product = Product(Parameters);
    if (m_row.FailureNumber != 0) HuntERR::Check(bool(product), m_row.FailureNumber, m_row.FailureText);
    return product;
  } catch (...) {
    PassOn(Label(u".ICreator_Create(Params)"), {Value(Parameters)});
  }

protected:
  virtual Ref<IObject> Product(const Params& Parameters) { return m_row.Make(Parameters); }
  const CreatorRow& Row() const { return m_row; }

private:
  String Label(StringView member) const {
    return String(m_row.LabelName.empty() ? m_row.Name : m_row.LabelName).append(member);
  }

  const CreatorRow& m_row;
};

/// Holds the one product and hands it to every caller.
class CSingletonCreator final : public CCreator {
public:
  explicit CSingletonCreator(const CreatorRow& row) try : CCreator(row), m_product(row.Make({})) {
  } catch (...) {
    FailConstruction(String(row.Name).append(u".Class_Initialize"));
  }

protected:
  Ref<IObject> Product(const Params&) override { return m_product; }

private:
  Ref<IObject> m_product;
};

} // namespace

Ref<ICreator> MakeCreator(const CreatorRow& row) {
  if (row.Singleton) return New<CSingletonCreator>(row);
  return New<CCreator>(row);
}

} // namespace portico
