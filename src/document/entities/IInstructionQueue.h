#pragma once

#include "document/entities/CDataFIFO.h"

namespace portico {

/// Where a displayer puts what it shows: a view on a container of entities.
class IInstructionQueue : public virtual IObject {
public:
  virtual Ref<CDataFIFO> Instructions() = 0;
};

} // namespace portico
