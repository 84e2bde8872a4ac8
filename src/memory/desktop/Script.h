#pragma once

#include "framework/text/text.h"

#include <deque>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace portico::memory {

/// What the user does when something comes up, by its name: each script is played once, in the order of their coming.
template <class Stage>
class Script {
public:
  using Act = std::function<void(Stage&)>;

  void Add(StringView name, Act act) { m_acts[String(name)].push_back(std::move(act)); }
  /// The next one of a name; an empty one if there is none.
  Act Take(StringView name) {
    const auto found = m_acts.find(String(name));
    if (found == m_acts.end()) return {};
    Act act = std::move(found->second.front());
    found->second.pop_front();
    if (found->second.empty()) m_acts.erase(found);
    return act;
  }
  /// The names that still have one.
  std::vector<String> Names() const {
    std::vector<String> names;
    for (const auto& entry : m_acts) names.push_back(entry.first);
    return names;
  }

private:
  std::map<String, std::deque<Act>> m_acts;
};

} // namespace portico::memory
