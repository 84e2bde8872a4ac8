#include "qt/values/Pointers.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/PointerShapes.h"

namespace portico::qt {

QCursor PointerShape(std::int32_t shape) {
  switch (shape) {
  case ArrowPointer:
  case IconPointer:
    return Qt::ArrowCursor;
  case CrossPointer:
    return Qt::CrossCursor;
  case IBeamPointer:
    return Qt::IBeamCursor;
  case SizePointer:
  case SizeAllPointer:
    return Qt::SizeAllCursor;
  case SizeRisingPointer:
    return Qt::SizeBDiagCursor;
  case SizeVerticalPointer:
    return Qt::SizeVerCursor;
  case SizeFallingPointer:
    return Qt::SizeFDiagCursor;
  case SizeHorizontalPointer:
    return Qt::SizeHorCursor;
  case UpArrowPointer:
    return Qt::UpArrowCursor;
  case HourglassPointer:
    return Qt::WaitCursor;
  case NoDropPointer:
    return Qt::ForbiddenCursor;
  case BusyArrowPointer:
    return Qt::BusyCursor;
  case HelpPointer:
    return Qt::WhatsThisCursor;
  default:
    HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  }
}

} // namespace portico::qt
