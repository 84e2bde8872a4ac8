#include "ui/viewer/ShownErrors.h"

namespace portico {

ShownErrors::ShownErrors(const Ref<IRichTextControl>& box, const Ref<CDataFIFO>& queue)
    : m_marks(New<ErrorMarks>(box)),
      m_queue(queue),
      m_added(queue->OnAdd.Connect([this](const Ref<IDataEntity>& entity, std::int64_t) { Add(*entity); })) {}

ShownErrors::~ShownErrors() { m_queue->OnAdd.Disconnect(m_added); }

void ShownErrors::Add(const IDataEntity& entity) {
  const String text = entity.ReadText();
  if (m_errors.Add(entity.DataType(), text) == LogErrors::Finding::None) return;
  m_marks->MarkNewest(m_errors.Instruction(), text);
}

} // namespace portico
