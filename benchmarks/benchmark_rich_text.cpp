// The rich text box in memory, with few lines and with many: what a step of a run costs. The two boxes take turns, and
// medians are compared.

#include "benchmarks/Part.h"
#include "benchmarks/Samples.h"
#include "memory/RichTextBox.h"
#include "richtext/RtfReader.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

namespace {

using portico::Median;
using portico::SelectionFormat;
using portico::String;
using portico::memory::RichTextBox;

constexpr int Rounds = portico::Part(41);
constexpr int StepsPerRound = 500;
constexpr int Few = 1'000;
constexpr int Many = portico::Part(100'000);

const String Line = u":MEAS:VOLT:DC? 10,0.001,(@101)";
const String Fragment = u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 " + Line + u"\r\n\\par }\r\n";

SelectionFormat LookOf(bool isResponse) {
  return {.SelAlignment = 0,
          .SelBullet = false,
          .SelHangingIndent = 0,
          .SelIndent = isResponse ? 150 : 0,
          .SelRightIndent = 0,
          .SelBold = !isResponse,
          .SelCharOffset = 0,
          .SelColor = 0,
          .SelFontName = u"Sans",
          .SelFontSize = 10,
          .SelItalic = isResponse,
          .SelStrikeThru = false,
          .SelUnderline = false};
}

void Fill(RichTextBox& box, int lines) {
  String text;
  for (int i = 0; i < lines; ++i) text += Line + u"\r\n";
  box.Text(text);
}

/// As the command window is consumed.
void PopLine(RichTextBox& box) {
  const std::int32_t length = box.Find(u"\r\n", 0);
  box.SelStart(0);
  box.SelLength(length);
  if (box.SelText().size() != Line.size()) std::abort();
  box.SelLength(length + 2);
  if (box.SelFormat().SelItalic == true) std::abort();
  box.SelRTF(u"");
}

/// As the history grows.
void AddLine(RichTextBox& box, const SelectionFormat& look) {
  box.SelStart(box.TextLength() + 1);
  box.Span(u"\n");
  box.SelFormat(look);
  box.SelRTF(Fragment);
}

void ReadLine(RichTextBox& box) {
  box.SelStart(box.TextLength() / 2);
  box.SelLength(static_cast<std::int32_t>(Line.size()) + 2);
  if (box.SelRTF().empty()) std::abort();
}

/// Nanoseconds per step.
double Time(const std::function<void()>& step) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < StepsPerRound; ++i) step();
  const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
  return taken.count() / StepsPerRound;
}

/// `restore` brings the box back to its count of lines, untimed.
void Compare(const char* name, const std::function<void(RichTextBox&)>& step,
             const std::function<void(RichTextBox&)>& restore) {
  RichTextBox few;
  RichTextBox many;
  Fill(few, Few);
  Fill(many, Many);
  std::vector<double> withFew;
  std::vector<double> withMany;
  for (int round = 0; round < Rounds; ++round) {
    for (RichTextBox* box : {&few, &many}) {
      (box == &few ? withFew : withMany).push_back(Time([&] { step(*box); }));
      for (int i = 0; i < StepsPerRound; ++i) restore(*box);
    }
  }
  const double a = Median(withFew);
  const double b = Median(withMany);
  std::printf("%-28s %8.0f ns %8.0f ns   ratio %.2f\n", name, a, b, b / a);
}

} // namespace

int main() {
  const SelectionFormat response = LookOf(true);
  std::printf("%-28s %8d    %8d lines\n", "", Few, Many);
  Compare("pop the first line", PopLine, [&](RichTextBox& box) {
    box.SelStart(box.TextLength());
    box.SelText(Line + u"\r\n");
  });
  Compare(
      "add a line at the end", [&](RichTextBox& box) { AddLine(box, response); },
      [&](RichTextBox& box) {
        box.SelStart(0);
        box.SelLength(box.Find(u"\r\n", 0) + 2);
        box.SelRTF(u"");
      });
  Compare("read a line's fragment", ReadLine, [](RichTextBox&) {});
  const portico::richtext::Formatting base = portico::richtext::StandardFormatting(u"Sans", 10);
  std::vector<double> reading;
  reading.reserve(Rounds);
  for (int round = 0; round < Rounds; ++round) {
    reading.push_back(Time([&] {
      if (portico::richtext::ReadRtf(Fragment, base).size() != 2) std::abort();
    }));
  }
  std::printf("%-28s %8.0f ns\n", "parse an encoded fragment", Median(reading));
  return 0;
}
