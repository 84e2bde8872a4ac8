#include "qt/loop/HandlerTurn.h"

#include <cstddef>
#include <vector>

namespace portico::qt {
namespace {

std::size_t running = 0;
std::vector<std::function<void()>> waiting;

} // namespace

HandlerTurn::HandlerTurn() { ++running; }

HandlerTurn::~HandlerTurn() {
  if (--running > 0) return;
  // What is called may run handlers itself, and have more calls waiting.
  while (!waiting.empty()) {
    const std::vector<std::function<void()>> calls = std::exchange(waiting, {});
    for (const auto& call : calls) call();
  }
}

void AtRest(std::function<void()> call) {
  if (running == 0) return call();
  waiting.push_back(std::move(call));
}

} // namespace portico::qt
