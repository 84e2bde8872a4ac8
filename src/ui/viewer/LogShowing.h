#pragma once

#include "document/entities/CDataFIFO.h"
#include "framework/shared/ICommand.h"
#include "platform/IRichTextBox.h"
#include "ui/viewer/PortionIterator.h"

namespace portico {

/// A log on its way into a box: read whole when this is made, and shown a portion at a time.
class LogShowing {
public:
  /// The queue is that of the box's view; the iterator walks all of what it is attached to.
  LogShowing(const Ref<ITextSelection>& box, const Ref<CDataFIFO>& queue, const String& FileName,
             const Ref<IIterator>& iterator);

  /// What is selected stays so. A caret that still waits at the start, though, goes to the end with the last portion.
  void ShowPortion();
  /// Of the entity that is being shown, as it stands in the log.
  String Stamp() const { return m_portions->CurrentItem().ToObject<IDataEntity>()->TimeStamp(); }
  bool IsDone() const { return m_portions->IsLast(); }
  /// What has been shown, as a share of all, from 0 to 1.
  double Share() const { return m_portions->Share(); }

private:
  Ref<ITextSelection> m_box;
  Ref<CDataFIFO> m_queue;
  Ref<PortionIterator> m_portions;
  Ref<ICommand> m_merge;
};

} // namespace portico
