#pragma once

#include "document/encoders/RTFEncoderBase.h"

namespace portico {

/// Encodes the entities of the command and history views.
class CRTFEncoder final : public RTFEncoderBase {
public:
  StringView ClassName() const override { return u"CRTFEncoder"; }

  /// The entity's fragment; its look is set on the display's selection. Notes the fragment's length on the entity.
  /// Raises `NotInitialized` before `Initialize`, `InvalidArgument` for a null entity.
  String Encode(const Ref<IDataEntity>& DataEntity) const;

private:
  String BuildRTF(const Ref<IDataEntity>& DataEntity) const;
};

} // namespace portico
