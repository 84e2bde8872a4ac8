#pragma once

#include "document/entities/CDataPosition.h"

namespace portico {

/// A half-open range of positions. Members raise 0x80041460 before `Initialize`.
class CDataSelection final : public IObject {
public:
  StringView ClassName() const override { return u"CDataSelection"; }

  /// Neither may be nothing: 5.
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
