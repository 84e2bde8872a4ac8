#pragma once

#include "framework/errors/Ref.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace portico::memory {

/// Keeps objects alive until it is told to let go and no handler is running any more. It may be a member of one of
/// them.
class Keeper {
public:
  /// A handler runs, for as long as this lives.
  class Turn {
  public:
    explicit Turn(Keeper& keeper) : m_keeper(keeper) { ++m_keeper.m_running; }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() {
      --m_keeper.m_running;
      m_keeper.Sweep();
    }

  private:
    Keeper& m_keeper;
  };

  void Keep(const Ref<IObject>& object) {
    if (!m_done) m_kept.push_back(object);
  }
  void LetGo() {
    m_done = true;
    Sweep();
  }

private:
  void Sweep() {
    if (!m_done || m_running > 0) return;
    // The first one may be the owner of all this, and is let go of last.
    for (std::vector<Ref<IObject>> kept = std::move(m_kept); !kept.empty();) kept.pop_back();
  }

  std::vector<Ref<IObject>> m_kept;
  std::size_t m_running = 0;
  bool m_done = false;
};

} // namespace portico::memory
