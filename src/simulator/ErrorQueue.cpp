#include "simulator/ErrorQueue.h"

#include "simulator/ResponseFormat.h"

namespace portico::simulator {

void ErrorQueue::Push(ErrorCode code) {
  if (errors_.size() < kCapacity) {
    errors_.push_back(code);
  } else {
    errors_.back() = ErrorCode::QueueOverflow;
  }
}

std::string ErrorQueue::Pop() {
  ErrorCode code = ErrorCode::NoError;
  if (!errors_.empty()) {
    code = errors_.front();
    errors_.pop_front();
  }
  return std::to_string(static_cast<int>(code)) + ',' + FormatString(ErrorText(code));
}

std::string ErrorQueue::PopAll() {
  std::string all = Pop();
  while (!errors_.empty()) all += ',' + Pop();
  return all;
}

} // namespace portico::simulator
