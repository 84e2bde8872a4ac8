#include "framework/text/EndOfText.h"
#include "memory/EventLoop.h"
#include "memory/RichTextBox.h"
#include "memory/SystemClock.h"
#include "views/CPopALine.h"
#include "views/LineMarks.h"

#include <cstdlib>

using namespace portico;

namespace {

struct Popped {
  String Line;
  LineKind Kind;
};

/// What popping takes off a plain text, told without a box.
Popped PopFrom(String& text, bool italic) {
  if (text.empty()) return {String(1, EndOfText), LineKind::CmdEnd};
  const auto end = text.find(NewLine);
  const StringView raw = StringView(text).substr(0, end);
  String line(TrimLeft(raw));
  text.erase(0, end == String::npos ? line.size() : end + NewLine.size());
  if (italic && end != String::npos) line.insert(line.begin(), ResponseMarker);
  if (BeginsWith(line, ResponseMarker)) return {line, LineKind::CmdResponse};
  if (BeginsWith(line, AutomaticMarker)) return {line, LineKind::CmdAutomatic};
  if (line.starts_with(RemarkWord)) return {line, LineKind::CmdRemark};
  return {line, line.empty() ? LineKind::CmdBlank : LineKind::CmdInstruction};
}

} // namespace

// Lines come off a box as they come off a plain text. The first byte says whether the text is italic; the others are
// read as UTF-16.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  memory::SystemClock clock;
  gEventLoop = std::make_shared<memory::EventLoop>(clock);
  const auto box = New<memory::RichTextBox>();
  const bool italic = data[0] % 2 != 0;
  if (italic) {
    SelectionFormat format;
    format.SelItalic = true;
    box->SelFormat(format);
  }
  box->Text(FromBytes(ByteArray(data + 1, data + size)));
  String text = box->Text();
  CPopALine popper;
  popper.CmdQueue(box);
  for (std::size_t left = text.size() + 1; left > 0; --left) {
    const Popped expected = PopFrom(text, italic);
    LineKind kind = LineKind::None;
    if (popper.Pop(kind) != expected.Line || kind != expected.Kind || box->Text() != text) std::abort();
    if (kind == LineKind::CmdEnd) break;
  }
  gEventLoop = nullptr;
  return 0;
}
