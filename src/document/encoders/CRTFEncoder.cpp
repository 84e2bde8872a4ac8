#include "document/encoders/CRTFEncoder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

namespace portico {
namespace {

constexpr StringView EncodeEntityLabel = u"CRTFEncoder.Encode(Dataentity)";

void NoteLength(IDataEntity& entity, const TextFragment& fragment) {
  static const KeptName lengthName(AttributeName::RTFSelectionLength);
  static const KeptName offsetName(AttributeName::RTFVisibleTextOffset);
  static const PackedText offset(u"0");
  // The leading blank is the place of a sign, which positive numbers leave empty.
  entity.KeepAttribute(lengthName, Shared(u" " + ToText(static_cast<std::int64_t>(fragment.Length()))));
  entity.KeepAttribute(offsetName, offset);
}

} // namespace

void CRTFEncoder::Check(const Ref<IDataEntity>& DataEntity) const {
  CheckInitialized(IsInitialized());
  HuntERR::Check(bool(DataEntity), ErrorNumber::InvalidArgument, u"Data entity cannot be nothing.");
}

TextFragment CRTFEncoder::Compose(const Ref<IDataEntity>& DataEntity) const try {
  Check(DataEntity);
  TextFragment fragment{DataEntity->ReadText(), FragmentEnd};
  NoteLength(*DataEntity, fragment);
  ShowDataType(DataEntity->DataType());
  return fragment;
} catch (...) {
  PassOn(EncodeEntityLabel, {DataEntity}); // whichever of the two was called
}

String CRTFEncoder::Encode(const Ref<IDataEntity>& DataEntity) const try {
  Check(DataEntity);
  ResetScratchArea();
  const TextFragment fragment{DataEntity->ReadText(), FragmentEnd};
  String rtf = fragment.Rtf();
  ScratchArea()->TextRTF(rtf);
  NoteLength(*DataEntity, fragment);
  const String type = DataEntity->DataType();
  ApplyDataTypeFormat(type);
  ShowDataType(type);
  return rtf;
} catch (...) {
  PassOn(EncodeEntityLabel, {DataEntity});
}

} // namespace portico
