#include "document/encoders/CRTFEncoder.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {

String CRTFEncoder::Encode(const Ref<IDataEntity>& DataEntity) const try {
  HuntERR::Check(IsInitialized(), ErrorNumber::NotInitialized, MethodBeforeInitialize);
  HuntERR::Check(bool(DataEntity), ErrorNumber::InvalidArgument, u"Data entity cannot be nothing.");
  ResetScratchArea();
  String fragment = BuildRTF(DataEntity);
  ApplyDataTypeFormat(DataEntity->DataType());
  CopyFormatToDisplay();
  return fragment;
} catch (...) {
  PassOn(u"CRTFEncoder.Encode(Dataentity)", {DataEntity});
}

String CRTFEncoder::BuildRTF(const Ref<IDataEntity>& DataEntity) const {
  String fragment = Fragment(FromBytes(DataEntity->ReadData()), FragmentEnd);
  ScratchArea()->TextRTF(fragment);
  // The leading blank is the place of a sign, which positive numbers leave empty.
  DataEntity->DataAttribute(AttributeName::RTFSelectionLength,
                            u" " + ToText(static_cast<std::int64_t>(fragment.size())));
  DataEntity->DataAttribute(AttributeName::RTFVisibleTextOffset, u"0");
  return fragment;
}

} // namespace portico
