#pragma once

#include "document/encoders/RTFEncoderBase.h"

namespace portico {

/// Encodes the entities of the command and history views.
class CRTFEncoder final : public RTFEncoderBase {
public:
  StringView ClassName() const override { return u"CRTFEncoder"; }

  // Both set the entity's look on the display's selection, and note the length of the fragment's RTF on the entity.
  // They raise `NotInitialized` before `Initialize`, `InvalidArgument` for a null entity.

  TextFragment Compose(const Ref<IDataEntity>& DataEntity) const;
  String Encode(const Ref<IDataEntity>& DataEntity) const;

private:
  void Check(const Ref<IDataEntity>& DataEntity) const;
};

} // namespace portico
