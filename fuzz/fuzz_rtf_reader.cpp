// Reads any text as a fragment: onto a look of its own, and into a box that holds text.

#include "memory/RichTextBox.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using portico::String;
using portico::StringView;
using portico::memory::RichTextBox;
using portico::richtext::FormatRun;
using portico::richtext::FormattedLine;
using portico::richtext::FormattedText;
using portico::richtext::Formatting;
using portico::richtext::ReadRtf;

namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

Formatting Base() {
  Formatting base = portico::richtext::StandardFormatting(u"Base", 9);
  base.Character.Italic = true;
  base.Paragraph.Indent = 150;
  return base;
}

void CheckLine(const FormattedLine& line) {
  Check(line.Text.find_first_of(portico::NewLine) == String::npos);
  std::size_t places = 0;
  for (const FormatRun& run : line.Runs.All()) places += run.Length;
  Check(places == line.Text.size() + 1);
}

/// What is written of a text gives it back, whatever it is read onto.
void CheckReading(StringView source) {
  const FormattedText text = ReadRtf(source, Base());
  Check(!text.empty());
  for (const FormattedLine& line : text) CheckLine(line);
  Check(ReadRtf(WriteRtf(text), portico::richtext::StandardFormatting(u"Sans", 10)) == text);
}

void CheckInsertion(StringView source) {
  RichTextBox box;
  box.Text(u"first\r\nsecond\r\nthird");
  box.SelStart(3);
  box.SelLength(6);
  box.SelRTF(source);
  const String text = box.Text();
  Check(text.starts_with(u"fir") && text.ends_with(u"cond\r\nthird"));
  Check(static_cast<std::size_t>(box.TextLength()) == text.size());
  RichTextBox other;
  other.TextRTF(box.TextRTF());
  Check(other.Text() == text && other.TextRTF() == box.TextRTF());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = portico::FromCodePage({reinterpret_cast<const char*>(data), size});
  CheckReading(text);
  CheckReading(u"{\\rtf1 " + text + u"\\par }\r\n");
  CheckInsertion(text);
  return 0;
}
