#pragma once

#include "framework/errors/Ref.h"

#include <cstdint>

namespace portico {

/// The answer of a channel or of the configuration server. A driver's failure is a value of this type, not an error.
class IResponse : public virtual IObject {
public:
  /// The data on success, the error message on failure.
  virtual String ResponseData() const = 0;
  /// 0 on success, else the code that was given.
  virtual std::int32_t ErrorCode() const = 0;
  /// "Success" on success, else the text that was given.
  virtual String ErrorMessage() const = 0;
};

} // namespace portico
