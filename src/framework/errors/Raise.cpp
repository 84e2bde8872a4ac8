#include "framework/errors/Raise.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/ErrorState.h"

#include <utility>

namespace portico::HuntERR {
namespace {

/// The run time's own text of a standard number.
StringView StandardText(std::int32_t number) {
  switch (number) {
  case ErrorNumber::InvalidArgument:
    return u"Invalid argument.";
  case ErrorNumber::Overflow:
    return u"Overflow.";
  case ErrorNumber::OutOfMemory:
    return u"Out of memory.";
  case ErrorNumber::BadSubscript:
    return u"Subscript out of range.";
  case ErrorNumber::DivisionByZero:
    return u"Division by zero.";
  case ErrorNumber::TypeMismatch:
    return u"Type mismatch.";
  case ErrorNumber::MissingObject:
    return u"Object reference is not set.";
  case ErrorNumber::BadPropertyValue:
    return u"Invalid property value.";
  case ErrorNumber::DuplicateKey:
    return u"This key is in the list already.";
  case ErrorNumber::PropertyNotFound:
    return u"The object does not have this property or method.";
  case ErrorNumber::ControlNotFound:
    return u"The form has no control of this name.";
  case ErrorNumber::DialogCancelled:
    return u"Cancel was selected.";
  case ErrorNumber::IndexOutOfBounds:
    return u"Index out of bounds.";
  case ErrorNumber::ElementNotFound:
    return u"Element not found.";
  default:
    return u"Error of the run time.";
  }
}

} // namespace

void Raise(std::int32_t Number, StringView Source, StringView Description, StringView HelpFile,
           std::int32_t HelpContext) {
  ErrorRecord record;
  record.Number = Number;
  record.Source = Source;
  record.Description = String(Description);
  record.HelpFile = HelpFile;
  record.HelpContext = HelpContext;
  Raise(std::move(record));
}

void Raise(ErrorRecord record) {
  SettledErrors().Current = record;
  throw Error(std::move(record));
}

void RaiseStandard(std::int32_t Number) { Raise(StandardError(Number)); }

ErrorRecord StandardError(std::int32_t Number) {
  ErrorRecord record;
  record.Number = Number;
  record.Source = u"Portico";
  record.Description = String(StandardText(Number));
  return record;
}

} // namespace portico::HuntERR
