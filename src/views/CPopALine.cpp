#include "views/CPopALine.h"

#include "framework/text/EndOfText.h"
#include "platform/IEventLoop.h"
#include "views/LineMarks.h"

namespace portico {

LineKind CPopALine::Classify(StringView line, bool atEnd) {
  if (BeginsWith(line, ResponseMarker)) return LineKind::CmdResponse;
  if (BeginsWith(line, AutomaticMarker)) return LineKind::CmdAutomatic;
  if (line.substr(0, RemarkWord.size()) == RemarkWord) return LineKind::CmdRemark;
  if (line.empty()) return LineKind::CmdBlank;
  return atEnd ? LineKind::CmdEnd : LineKind::CmdInstruction;
}

String CPopALine::Pop(LineKind& LineType) {
  LineType = LineKind::None;
  const bool atEnd = m_queue->TextLength() == 0;
  String line = atEnd ? String(1, EndOfText) : TakeFirstLine(LineType);
  gEventLoop->DoEvents(); // here Stop and every other waiting event is handled
  LineType = Classify(line, atEnd);
  return line;
}

String CPopALine::TakeFirstLine(LineKind& LineType) {
  const std::int32_t end = m_queue->Find(NewLine, 0);
  if (end < 0) return TakeLastLine();
  m_queue->SelStart(0);
  m_queue->SelLength(end);
  const String raw = m_queue->SelText();
  String line(TrimLeft(raw));
  m_queue->SelLength(end + static_cast<std::int32_t>(NewLine.size()));
  const SelectionFormat look = m_queue->SelFormat();
  if (m_account) m_account->Take(*m_queue, String(raw).append(NewLine), look);
  // A response that has lost its marker still has its italics.
  if (look.SelItalic == true) line.insert(line.begin(), ResponseMarker);
  m_queue->SelRTF({});
  if (line.empty()) LineType = LineKind::CmdBlank;
  return line;
}

// Of a line with leading blanks this leaves the tail in the box, since only as many characters go as were kept.
String CPopALine::TakeLastLine() {
  const String text = m_queue->Text();
  String line(TrimLeft(text));
  m_queue->SelStart(0);
  m_queue->SelLength(static_cast<std::int32_t>(line.size()));
  if (m_account) m_account->Take(*m_queue, StringView(text).substr(0, line.size()), m_queue->SelFormat());
  m_queue->SelRTF({});
  return line;
}

String CPopInstruction::Pop(const Ref<IRichTextBox>& Box) {
  String taken;
  for (String text = Box->Text(); !text.empty() && text.front() != u'\r' && text.front() != u'\n'; text = Box->Text()) {
    taken.push_back(text.front());
    Box->SelStart(0);
    Box->SelLength(1);
    Box->SelText({});
  }
  return taken;
}

} // namespace portico
