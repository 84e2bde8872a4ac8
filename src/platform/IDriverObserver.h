#pragma once

#include <cstddef>
#include <string>

namespace portico {

/// Is told what an instrument driver did beyond what it was asked for. Called on the thread of the call that caused it,
/// before that call returns; must not call the driver.
class IDriverObserver {
public:
  virtual ~IDriverObserver() = default;

  /// The driver is about to wait for the instrument.
  virtual void Waits() {}

  /// A session that was out of step has a fresh connection; answers to what it sent before are lost.
  /// `resourceName` is in canonical form.
  virtual void Reconnected(const std::string& resourceName) = 0;

  /// A session that was out of step is in step again on the connection that it has: the instrument has dropped what it
  /// was asked, or was listened to until it fell silent. Answers to what was sent before are lost.
  virtual void Cleared(const std::string& /*resourceName*/) {}

  /// The instrument had ended the connection while nothing was asked, and there is a fresh one. Answers that had come
  /// are still there to be read.
  virtual void Restored(const std::string& /*resourceName*/) {}

  /// A read has delivered as many bytes as its buffer holds, and its caller cannot tell whether that was all. The
  /// answer had `length` bytes.
  virtual void AnswerFilledBuffer(const std::string& resourceName, std::size_t length) = 0;
};

} // namespace portico
