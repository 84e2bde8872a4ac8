#pragma once

#include "document/entities/CDataPosition.h"

namespace portico {

/// A half-open range of positions. Members raise `NotInitialized` before `Initialize`.
class CDataSelection final : public IObject {
public:
  StringView ClassName() const override { return u"CDataSelection"; }

  /// A null position raises `InvalidArgument`.
  void Initialize(const Ref<CDataPosition>& Start, const Ref<CDataPosition>& End);
  Ref<CDataPosition> StartingPosition() const;
  Ref<CDataPosition> EndingPosition() const;
  bool IsEmpty() const;

private:
  bool m_initialized = false;
  Ref<CDataPosition> m_start;
  Ref<CDataPosition> m_end;
};

} // namespace portico
