#include "framework/shared/ErrorAnswer.h"

namespace portico {

bool ReportsError(StringView answer) {
  answer = TrimLeft(answer);
  if (!answer.empty() && (answer.front() == u'+' || answer.front() == u'-')) answer.remove_prefix(1);
  const auto digits = answer.substr(0, answer.find_first_not_of(u"0123456789"));
  return digits.find_first_not_of(u'0') != StringView::npos;
}

} // namespace portico
