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

  /// A read has delivered as many bytes as its buffer holds, and its caller cannot tell whether that was all. The
  /// answer had `length` bytes.
  virtual void AnswerFilledBuffer(const std::string& resourceName, std::size_t length) = 0;
};

} // namespace portico
