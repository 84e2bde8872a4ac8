#pragma once

#include "document/entities/CDataFIFO.h"
#include "document/log/LogErrors.h"
#include "views/faults/ErrorMarks.h"

namespace portico {

/// Marks the lines of a log that tell of errors, as its entities come to be shown.
class ShownErrors final {
public:
  /// The queue is that of the box's view, which must have been attached to it before.
  ShownErrors(const Ref<IRichTextControl>& box, const Ref<CDataFIFO>& queue);
  ShownErrors(const ShownErrors&) = delete;
  ShownErrors& operator=(const ShownErrors&) = delete;
  ~ShownErrors();

  const Ref<ErrorMarks>& Marks() const { return m_marks; }

private:
  void Add(const IDataEntity& entity);

  Ref<ErrorMarks> m_marks;
  Ref<CDataFIFO> m_queue;
  CDataFIFO::EntityEvent::Connection m_added;
  LogErrors m_errors;
};

} // namespace portico
