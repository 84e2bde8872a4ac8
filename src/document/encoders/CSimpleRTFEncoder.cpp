#include "document/encoders/CSimpleRTFEncoder.h"

#include "framework/errors/HuntERR.h"

namespace portico {
namespace {

constexpr StringView EncodeTextLabel = u"CSimpleRTFEncoder.Encode(sData)"; // all are reported alike

} // namespace

TextFragment CSimpleRTFEncoder::Compose(const String& sData, StringView DataType) const try {
  ShowDataType(DataType);
  return {sData, FragmentEnd};
} catch (...) {
  PassOn(EncodeTextLabel, {sData});
}

String CSimpleRTFEncoder::Encode(const String& sData, const String& DataType) const try {
  return Encode({sData, FragmentEnd}, DataType);
} catch (...) {
  PassOn(EncodeTextLabel, {sData});
}

String CSimpleRTFEncoder::EncodeWhite(const String& sData) const try {
  return Encode({sData, u"}"}, DataTypeName::White);
} catch (...) {
  PassOn(EncodeTextLabel, {sData});
}

String CSimpleRTFEncoder::Encode(const TextFragment& fragment, StringView DataType) const {
  ResetScratchArea();
  ApplyDataTypeFormat(DataType);
  ShowDataType(DataType);
  static_cast<void>(ScratchArea()->TextRTF()); // a box that cannot write its text fails here, not at the insertion
  return fragment.Rtf();
}

TextLook CSimpleRTFEncoder::LookOf(StringView DataType) const {
  if (DataType == DataTypeName::Remark) return {.Italic = false, .Bold = true, .Color = TextLook::DarkGreen};
  if (DataType == DataTypeName::White) return {.Italic = false, .Bold = false, .Color = TextLook::White};
  return RTFEncoderBase::LookOf(DataType);
}

} // namespace portico
