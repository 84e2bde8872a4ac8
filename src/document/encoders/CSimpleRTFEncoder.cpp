#include "document/encoders/CSimpleRTFEncoder.h"

#include "framework/errors/HuntERR.h"

namespace portico {

String CSimpleRTFEncoder::Encode(const String& sData, const String& DataType) const try {
  ResetScratchArea();
  return Format(Fragment(sData, FragmentEnd), DataType);
} catch (...) {
  PassOn(u"CSimpleRTFEncoder.Encode(sData)", {sData});
}

String CSimpleRTFEncoder::EncodeWhite(const String& sData) const try {
  ResetScratchArea();
  return Format(Fragment(sData, u"}"), DataTypeName::White);
} catch (...) {
  PassOn(u"CSimpleRTFEncoder.Encode(sData)", {sData}); // both are reported alike
}

String CSimpleRTFEncoder::Format(String fragment, StringView DataType) const {
  ApplyDataTypeFormat(DataType);
  CopyFormatToDisplay();
  static_cast<void>(ScratchArea()->TextRTF()); // a box that cannot write its text fails here, not at the insertion
  return fragment;
}

SelectionFormat CSimpleRTFEncoder::FormatOf(StringView DataType) const {
  using namespace TextLook;
  if (DataType == DataTypeName::Remark) return Of(false, true, DarkGreen, 0);
  if (DataType == DataTypeName::White) return Of(false, false, White, 0);
  return RTFEncoderBase::FormatOf(DataType);
}

} // namespace portico
