#include "ui/dialogs/KnownInstruments.h"

#include "framework/shared/Application.h"
#include "platform/ISettingsStore.h"
#include "ui/base/Wired.h"

#include <algorithm>
#include <array>
#include <vector>

namespace portico {
namespace {

constexpr StringView Section = u"OpenedInstruments";
constexpr std::size_t MostRemembered = 10;
constexpr std::array<StringView, 3> Simulated = {u"SIM::dmm::INSTR", u"SIM::psu::INSTR", u"SIM::scope::INSTR"};

using Names = std::vector<String>;

String Key(std::size_t position) { return u"Name" + ToText(static_cast<std::int64_t>(position + 1)); }

bool IsIn(const Names& names, StringView name) {
  return std::any_of(names.begin(), names.end(), [&](const String& other) { return EqualNoCase(other, name); });
}

bool IsSimulated(StringView name) {
  return std::any_of(Simulated.begin(), Simulated.end(), [&](StringView other) { return EqualNoCase(other, name); });
}

/// The last one first.
Names OpenedBefore() {
  Names names;
  if (!gSettingsStore) return names;
  for (std::size_t i = 0; i < MostRemembered; ++i) {
    String name = gSettingsStore->GetSetting(ApplicationTitle, String(Section), Key(i), {});
    if (!name.empty() && !IsIn(names, name)) names.push_back(std::move(name));
  }
  return names;
}

String Item(StringView name) { return (IsSimulated(name) ? u"VInstr->" : u"Visa->") + String(name); }

Names Items(const KnownInstruments::Attached& attached) {
  Names names = OpenedBefore();
  for (StringView name : Simulated) {
    if (!IsIn(names, name)) names.emplace_back(name);
  }
  if (attached) {
    const Names others = attached(names);
    names.insert(names.end(), others.begin(), others.end());
  }
  std::transform(names.begin(), names.end(), names.begin(), [](const String& name) { return Item(name); });
  return names;
}

class Iterator final : public IInstrumentIterator {
public:
  explicit Iterator(Names items) : m_items(std::move(items)) {}
  void First() override { m_position = 0; }
  bool IsDone() const override { return m_position >= m_items.size(); }
  void Next() override { ++m_position; }
  String ItemName() const override { return m_items.at(m_position); }

private:
  Names m_items;
  std::size_t m_position = 0;
};

class Tree final : public IInstrumentTree {
public:
  explicit Tree(std::function<Names()> items) : m_items(std::move(items)) {}
  std::unique_ptr<IInstrumentIterator> SelectBranch(std::int32_t Branch) override {
    return std::make_unique<Iterator>(Branch == InstrumentBranch ? m_items() : Names());
  }

private:
  std::function<Names()> m_items;
};

} // namespace

std::unique_ptr<IInstrumentTree> KnownInstruments::OpenTree(std::int32_t Kind) {
  if (Kind != InstrumentTreeKind) return std::make_unique<Tree>([] { return Names(); });
  return std::make_unique<Tree>([attached = m_attached] { return Items(attached); });
}

void KnownInstruments::Remember(const String& name) {
  const StringView trimmed = Trim(name);
  if (trimmed.empty()) return;
  Names names = OpenedBefore();
  std::erase_if(names, [&](const String& other) { return EqualNoCase(other, trimmed); });
  names.emplace(names.begin(), trimmed);
  names.resize(MostRemembered);
  for (std::size_t i = 0; i < MostRemembered; ++i) {
    Wired(gSettingsStore).SaveSetting(ApplicationTitle, String(Section), Key(i), names[i]);
  }
}

} // namespace portico
