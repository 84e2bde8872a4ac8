#pragma once

#include "document/entities/CDataFIFO.h"
#include "platform/IRichTextControl.h"
#include "ui/viewer/LogNotes.h"

namespace portico {

/// Tells the notes of a log on which lines its entities stand, as they come to be shown.
class ShownNotes final {
public:
  /// The queue is that of the box's view, which must have been attached to it before.
  ShownNotes(const Ref<IRichTextControl>& box, const Ref<CDataFIFO>& queue, const Ref<LogNotes>& notes);
  ShownNotes(const ShownNotes&) = delete;
  ShownNotes& operator=(const ShownNotes&) = delete;
  ~ShownNotes();

private:
  void Add();

  Ref<IRichTextControl> m_box;
  Ref<CDataFIFO> m_queue;
  Ref<LogNotes> m_notes;
  CDataFIFO::EntityEvent::Connection m_added;
  std::int32_t m_end; // of the text, where the next entity begins
};

} // namespace portico
