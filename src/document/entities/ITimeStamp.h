#pragma once

#include "framework/errors/Ref.h"

namespace portico {

class ITimeStamp : public virtual IObject {
public:
  /// A new stamp; none comes twice within a run.
  virtual String TimeStamp() = 0;
};

/// Source of the stamps of all data entities. Set and cleared by the registrar of the data document.
extern Ref<ITimeStamp> gTimeStamper;

} // namespace portico
