#include "document/encoders/CSimpleRTFEncoder.h"

#include "framework/errors/HuntERR.h"

namespace portico {
namespace {

constexpr StringView EncodeLabel = u"CSimpleRTFEncoder.Encode(sData)"; // all are reported alike

} // namespace

TextFragment CSimpleRTFEncoder::Compose(StringView sData, StringView DataType) const try {
  ShowDataType(DataType);
  return Fragment(sData, FragmentEnd);
} catch (...) {
  PassOn(EncodeLabel, {String(sData)});
}

String CSimpleRTFEncoder::Encode(const String& sData, const String& DataType) const try {
  return Encode(Fragment(sData, FragmentEnd), DataType);
} catch (...) {
  PassOn(EncodeLabel, {sData});
}

String CSimpleRTFEncoder::EncodeWhite(const String& sData) const try {
  return Encode(Fragment(sData, u"}"), DataTypeName::White);
} catch (...) {
  PassOn(EncodeLabel, {sData});
}

String CSimpleRTFEncoder::Encode(const TextFragment& fragment, StringView DataType) const {
  ResetScratchArea();
  ApplyDataTypeFormat(DataType);
  ShowDataType(DataType);
  static_cast<void>(ScratchArea()->TextRTF()); // a box that cannot write its text fails here, not at the insertion
  return fragment.Rtf();
}

void CSimpleRTFEncoder::FormatDataType(SelectionFormat& format, StringView DataType) const {
  using namespace TextLook;
  if (DataType == DataTypeName::Remark) return Set(format, false, true, DarkGreen, 0);
  if (DataType == DataTypeName::White) return Set(format, false, false, White, 0);
  RTFEncoderBase::FormatDataType(format, DataType);
}

} // namespace portico
