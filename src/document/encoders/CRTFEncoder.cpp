#include "document/encoders/CRTFEncoder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

namespace portico {
namespace {

constexpr StringView EncodeLabel = u"CRTFEncoder.Encode(Dataentity)";

void NoteLength(IDataEntity& entity, const TextFragment& fragment) {
  static const String lengthName = AttributeName::RTFSelectionLength; // made once, and not for each entity
  static const String offsetName = AttributeName::RTFVisibleTextOffset;
  static const String offset = u"0";
  // The leading blank is the place of a sign, which positive numbers leave empty.
  entity.DataAttribute(lengthName, u" " + ToText(static_cast<std::int64_t>(fragment.Length())));
  entity.DataAttribute(offsetName, offset);
}

} // namespace

void CRTFEncoder::Check(const Ref<IDataEntity>& DataEntity) const {
  CheckInitialized(IsInitialized());
  HuntERR::Check(bool(DataEntity), ErrorNumber::InvalidArgument, u"Data entity cannot be nothing.");
}

TextFragment CRTFEncoder::Compose(const Ref<IDataEntity>& DataEntity) const try {
  Check(DataEntity);
  TextFragment fragment{FromBytes(DataEntity->ReadData()), FragmentEnd};
  NoteLength(*DataEntity, fragment);
  ShowDataType(DataEntity->DataType());
  return fragment;
} catch (...) {
  PassOn(EncodeLabel, {DataEntity}); // whichever of the two was called
}

String CRTFEncoder::Encode(const Ref<IDataEntity>& DataEntity) const try {
  Check(DataEntity);
  ResetScratchArea();
  const TextFragment fragment{FromBytes(DataEntity->ReadData()), FragmentEnd};
  String rtf = fragment.Rtf();
  ScratchArea()->TextRTF(rtf);
  NoteLength(*DataEntity, fragment);
  const String type = DataEntity->DataType();
  ApplyDataTypeFormat(type);
  ShowDataType(type);
  return rtf;
} catch (...) {
  PassOn(EncodeLabel, {DataEntity});
}

} // namespace portico
