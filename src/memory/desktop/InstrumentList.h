#pragma once

#include "platform/IInstrumentList.h"

#include <memory>
#include <string>
#include <vector>

namespace portico::memory {

/// A list of instruments that is made up: one tree, of which every branch has the same items. Writes down how it is
/// walked.
class InstrumentList final : public IInstrumentList {
public:
  enum class Step { OpenTree, SelectBranch, First, IsDone, Next, ItemName };

  explicit InstrumentList(std::vector<String> items = {});

  std::unique_ptr<IInstrumentTree> OpenTree(std::int32_t Kind) override;

  void Items(std::vector<String> items);
  /// From now on the step raises the error.
  void FailAt(Step step, std::int32_t error);
  /// Each step, with its argument: "OpenTree 7". Complete only as long as the list lives.
  const std::vector<std::string>& Calls() const;

private:
  struct State;
  class Tree;
  class Iterator;

  std::shared_ptr<State> m_state; // trees and iterators may outlive the list
};

} // namespace portico::memory
