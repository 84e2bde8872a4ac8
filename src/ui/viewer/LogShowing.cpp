#include "ui/viewer/LogShowing.h"

#include "framework/objects/IObjectFactory.h"
#include "ui/base/UserCommands.h"

namespace portico {

LogShowing::LogShowing(const Ref<ITextSelection>& box, const Ref<CDataFIFO>& queue, const String& FileName,
                       const Ref<IIterator>& iterator)
    : m_box(box),
      m_queue(queue),
      m_portions(New<PortionIterator>(iterator)),
      m_merge(Create(Class::MergeDataContainerFromFile, queue, FileName, m_portions)) {}

void LogShowing::ShowPortion() {
  const std::int32_t start = m_box->SelStart();
  const std::int32_t length = m_box->SelLength();
  m_queue->SelectData(m_queue->EndOfObject(), m_queue->EndOfObject()); // a merge replaces what is selected
  m_merge->Execute();
  if (IsDone()) m_queue->SelectData(m_queue->StartOfObject(), m_queue->EndOfObject());
  if (IsDone() && start == 0 && length == 0) return;
  m_box->SelStart(start);
  m_box->SelLength(length);
}

} // namespace portico
