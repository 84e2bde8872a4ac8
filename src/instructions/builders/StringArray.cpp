#include "instructions/builders/StringArray.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {

StringArray::StringArray(std::size_t count) : m_elements(count) {
  if (count == 0) HuntERR::RaiseStandard(ErrorNumber::BadSubscript);
}

const std::vector<String>& StringArray::Elements() const {
  if (!m_elements) HuntERR::RaiseStandard(ErrorNumber::BadSubscript);
  return *m_elements;
}

std::int32_t StringArray::LowerBound() const {
  Elements();
  return 0;
}

std::int32_t StringArray::UpperBound() const { return static_cast<std::int32_t>(Elements().size()) - 1; }

const String& StringArray::operator[](std::int32_t index) const {
  if (index < LowerBound() || index > UpperBound()) HuntERR::RaiseStandard(ErrorNumber::BadSubscript);
  return (*m_elements)[static_cast<std::size_t>(index)];
}

String& StringArray::operator[](std::int32_t index) {
  return const_cast<String&>(static_cast<const StringArray&>(*this)[index]);
}

} // namespace portico
