#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace portico {

/// A synchronous event: handlers run in the order of their connection, before the call returns. A handler may connect
/// or disconnect handlers, itself included, and may let the event's owner go; one connected meanwhile is first called
/// at the next firing.
template <class... Args>
class Event {
public:
  using Handler = std::function<void(Args...)>;
  /// Names a connection for as long as the event lives.
  using Connection = std::size_t;

  Connection Connect(Handler handler) {
    m_state->Slots.push_back({++m_state->Last, std::make_shared<Handler>(std::move(handler))});
    return m_state->Last;
  }

  /// No effect for a connection that is gone.
  void Disconnect(Connection connection) {
    for (Slot& slot : m_state->Slots) {
      if (slot.Name == connection) slot.Call.reset();
    }
    if (m_state->Running == 0) m_state->Sweep();
  }

  /// Whether there is a handler to call.
  bool IsConnected() const {
    return std::any_of(m_state->Slots.begin(), m_state->Slots.end(),
                       [](const Slot& slot) { return slot.Call != nullptr; });
  }

  void operator()(Args... args) const {
    const Turn turn(m_state);
    for (std::size_t i = 0; i < turn.Count; ++i) {
      const std::shared_ptr<Handler> call = turn.State->Slots[i].Call; // stays alive should it disconnect itself
      if (call) (*call)(args...);
    }
  }

private:
  struct Slot {
    Connection Name;
    std::shared_ptr<Handler> Call; // empty once disconnected
  };
  struct Shared {
    std::vector<Slot> Slots;
    Connection Last = 0;
    std::size_t Running = 0;
    void Sweep() {
      std::erase_if(Slots, [](const Slot& slot) { return !slot.Call; });
    }
  };
  struct Turn {
    explicit Turn(std::shared_ptr<Shared> state) : State(std::move(state)), Count(State->Slots.size()) {
      ++State->Running;
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() {
      if (--State->Running == 0) State->Sweep();
    }
    std::shared_ptr<Shared> State;
    std::size_t Count;
  };
  std::shared_ptr<Shared> m_state = std::make_shared<Shared>();
};

} // namespace portico
