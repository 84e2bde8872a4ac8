#pragma once

#include "document/encoders/RTFEncoderBase.h"

namespace portico {

/// Encodes plain texts, such as the remarks that a run writes into the history. Its members check nothing.
class CSimpleRTFEncoder final : public RTFEncoderBase {
public:
  StringView ClassName() const override { return u"CSimpleRTFEncoder"; }

  TextFragment Compose(const String& sData, StringView DataType) const;
  String Encode(const String& sData, const String& DataType) const;
  /// White on the white window: hidden, but there. Part of the contract; nothing in the program calls it.
  String EncodeWhite(const String& sData) const;

protected:
  TextLook LookOf(StringView DataType) const override;

private:
  String Encode(const TextFragment& fragment, StringView DataType) const;
};

} // namespace portico
