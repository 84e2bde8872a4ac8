#pragma once

#include "framework/errors/Ref.h"

#include <memory>

namespace portico {

/// A part of the platform. One that is not there raises `MissingObject`.
template <class Seam>
Seam& Wired(const std::shared_ptr<Seam>& seam) {
  if (!seam) RaiseUnsetReference();
  return *seam;
}

} // namespace portico
