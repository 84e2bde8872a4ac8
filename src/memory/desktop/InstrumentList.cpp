#include "memory/desktop/InstrumentList.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

#include <map>
#include <utility>

namespace portico::memory {

struct InstrumentList::State {
  std::vector<String> Items;
  std::map<Step, std::int32_t> Errors;
  std::vector<std::string> Calls;

  void Take(Step step, std::string call) {
    Calls.push_back(std::move(call));
    if (const auto error = Errors.find(step); error != Errors.end()) HuntERR::RaiseStandard(error->second);
  }
};

class InstrumentList::Iterator final : public IInstrumentIterator {
public:
  explicit Iterator(const std::shared_ptr<State>& state) : m_state(state), m_position(state->Items.size()) {}

  void First() override {
    m_state->Take(Step::First, "First");
    m_position = 0;
  }
  bool IsDone() const override {
    m_state->Take(Step::IsDone, "IsDone");
    return m_position >= m_state->Items.size();
  }
  void Next() override {
    m_state->Take(Step::Next, "Next");
    ++m_position;
  }
  String ItemName() const override {
    m_state->Take(Step::ItemName, "ItemName");
    if (m_position >= m_state->Items.size()) HuntERR::RaiseStandard(ErrorNumber::BadSubscript);
    return m_state->Items[m_position];
  }

private:
  std::shared_ptr<State> m_state;
  std::size_t m_position; // none until the first is asked for
};

class InstrumentList::Tree final : public IInstrumentTree {
public:
  explicit Tree(const std::shared_ptr<State>& state) : m_state(state) {}
  std::unique_ptr<IInstrumentIterator> SelectBranch(std::int32_t Branch) override {
    m_state->Take(Step::SelectBranch, "SelectBranch " + std::to_string(Branch));
    return std::make_unique<Iterator>(m_state);
  }

private:
  std::shared_ptr<State> m_state;
};

InstrumentList::InstrumentList(std::vector<String> items) : m_state(std::make_shared<State>()) {
  Items(std::move(items));
}

std::unique_ptr<IInstrumentTree> InstrumentList::OpenTree(std::int32_t Kind) {
  m_state->Take(Step::OpenTree, "OpenTree " + std::to_string(Kind));
  return std::make_unique<Tree>(m_state);
}

void InstrumentList::Items(std::vector<String> items) { m_state->Items = std::move(items); }

void InstrumentList::FailAt(Step step, std::int32_t error) { m_state->Errors[step] = error; }

const std::vector<std::string>& InstrumentList::Calls() const { return m_state->Calls; }

} // namespace portico::memory
