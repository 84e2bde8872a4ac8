#include "ui/viewer/ShownNotes.h"

#include <algorithm>

namespace portico {

ShownNotes::ShownNotes(const Ref<IRichTextControl>& box, const Ref<CDataFIFO>& queue, const Ref<LogNotes>& notes)
    : m_box(box),
      m_queue(queue),
      m_notes(notes),
      m_added(queue->OnAdd.Connect([this](const Ref<IDataEntity>&, std::int64_t) { Add(); })),
      m_end(box->TextLength()) {}

ShownNotes::~ShownNotes() { m_queue->OnAdd.Disconnect(m_added); }

void ShownNotes::Add() {
  const std::int32_t first = m_box->GetLineFromChar(m_end);
  m_end = m_box->TextLength();
  const std::int32_t last = m_box->GetLineFromChar(std::max(m_end - 1, 0)); // that of its line end, if it has one
  m_notes->EntityShown(first, last + 1);
}

} // namespace portico
