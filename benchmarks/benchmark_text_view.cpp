// The window's text boxes, with few lines and with many: what a line of a run costs, and how long the longest event
// takes. Both windows take turns, and medians are compared.

#include "benchmarks/Part.h"
#include "benchmarks/Samples.h"
#include "qt/text/RichTextBox.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <vector>

namespace {

using namespace portico;

constexpr int Rounds = Part(21);
constexpr int StepsPerRound = 500;
constexpr int Few = 1'000;
constexpr int Many = Part(100'000);
constexpr std::int32_t White = 0xFFFFFF;

const String Line = u":MEAS:VOLT:DC? 10,0.001,(@101)";

SelectionFormat LookOf(bool isResponse, std::int32_t color) {
  return {.SelAlignment = 0,
          .SelBullet = false,
          .SelHangingIndent = 0,
          .SelIndent = isResponse ? 150 : 0,
          .SelRightIndent = 0,
          .SelBold = !isResponse,
          .SelCharOffset = 0,
          .SelColor = color,
          .SelFontName = u"Sans",
          .SelFontSize = 10,
          .SelItalic = isResponse,
          .SelStrikeThru = false,
          .SelUnderline = false};
}

/// A command window and a history, with as many lines each.
struct Window {
  explicit Window(int lines) {
    String text;
    for (int i = 0; i < lines; ++i) text += Line + u"\r\n";
    future.Text(text);
    past.Text(text);
    window.resize(600, 400);
    past.Move(0, 0, 600 * FormUnitsPerPixel, 200 * FormUnitsPerPixel);
    future.Move(0, 200 * FormUnitsPerPixel, 600 * FormUnitsPerPixel, 200 * FormUnitsPerPixel);
    past.Locked(true);
    window.show();
    QApplication::processEvents();
  }

  void PopLine() {
    const std::int32_t length = future.Find(u"\r\n", 0);
    future.SelStart(0);
    future.SelLength(length);
    if (future.SelText().size() != Line.size()) std::abort();
    future.SelLength(length + 2);
    if (future.SelFormat().SelItalic == true) std::abort();
    future.SelRTF(u"");
  }
  void AddEntity(bool isResponse) {
    past.SetFocus();
    past.SelStart(past.TextLength() + 1);
    past.Span(u"\n");
    past.SelFormat(LookOf(isResponse, White));
    past.SelText(isResponse ? u"<" : u">");
    past.SelFormat(LookOf(isResponse, 0));
    past.SelRTF(u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 " + Line + u"\r\n\\par }\r\n");
  }
  void Step() {
    PopLine();
    for (const bool isResponse : {false, true, false}) AddEntity(isResponse);
    QApplication::processEvents();
  }
  /// As many lines as before, untimed.
  void Restore() {
    future.SelStart(future.TextLength());
    for (int i = 0; i < StepsPerRound; ++i) future.SelText(Line + u"\r\n");
    std::int32_t end = 0;
    for (int i = 0; i < 3 * StepsPerRound; ++i) end = past.Find(u"\r\n", end) + 2;
    past.SelStart(0);
    past.SelLength(end);
    past.SelText(u"");
    QApplication::processEvents();
  }

  QWidget window;
  qt::RichTextBox past{{.Kind = ControlKind::RichTextBox, .Name = u"txtPast"}, window, u"Sans", 10};
  qt::RichTextBox future{{.Kind = ControlKind::RichTextBox, .Name = u"txtFuture"}, window, u"Sans", 10};
};

void CompareSteps() {
  Window few(Few);
  Window many(Many);
  std::vector<double> withFew;
  std::vector<double> withMany;
  for (int round = 0; round < Rounds; ++round) {
    for (Window* window : {&few, &many}) {
      const double taken = Milliseconds([&] {
        for (int i = 0; i < StepsPerRound; ++i) window->Step();
      });
      (window == &few ? withFew : withMany).push_back(taken / StepsPerRound * 1000);
      window->Restore();
    }
  }
  const double a = Median(withFew);
  const double b = Median(withMany);
  std::printf("%-44s %8.1f us %8.1f us   ratio %.2f\n", "one line popped, three entities added", a, b, b / a);
}

void Press(QWidget& view, int key, Qt::KeyboardModifiers modifiers, const QString& text = {}) {
  QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&view, &event);
}

template <class Work>
void PrintEvent(const char* name, Work&& work) {
  std::printf("%-44s %8.1f ms\n", name, Milliseconds([&] {
                work();
                QApplication::processEvents();
              }));
}

/// A response of a megabyte in one line, and what a user does next.
void TimeLongLine() {
  Window window(Few);
  qt::TextView& view = *window.future.Widget();
  String line;
  for (int i = 0; line.size() < Part<std::size_t>(1'000'000); ++i) line += u"+1.23456789E-03,";
  PrintEvent("a megabyte in one line is put in", [&] {
    window.future.Text(line + u"\r\nrest");
    window.future.Show();
  });
  PrintEvent("  painted again", [&] { view.viewport()->repaint(); });
  PrintEvent("  a letter typed in it", [&] { Press(view, Qt::Key_A, Qt::NoModifier, "a"); });
  PrintEvent("  its end", [&] { Press(view, Qt::Key_End, Qt::NoModifier); });
  PrintEvent("  a word back", [&] { Press(view, Qt::Key_Left, Qt::ControlModifier); });
  PrintEvent("  all selected", [&] { Press(view, Qt::Key_A, Qt::ControlModifier); });
  PrintEvent("  copied", [&] { Press(view, Qt::Key_C, Qt::ControlModifier); });
  PrintEvent("  pasted over it", [&] { Press(view, Qt::Key_V, Qt::ControlModifier); });
  PrintEvent("  undone", [&] { Press(view, Qt::Key_Z, Qt::ControlModifier); });
}

void TimeManyLines() {
  Window window(Many);
  qt::TextView& view = *window.past.Widget();
  PrintEvent("100,000 lines: all selected", [&] { Press(view, Qt::Key_A, Qt::ControlModifier); });
  PrintEvent("  copied", [&] { Press(view, Qt::Key_C, Qt::ControlModifier); });
  PrintEvent("  pasted", [&] { Press(*window.future.Widget(), Qt::Key_V, Qt::ControlModifier); });
  PrintEvent("  zoomed", [&] { Press(view, Qt::Key_Plus, Qt::ControlModifier); });
}

} // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  std::printf("%-44s %8d    %8d lines\n", "", Few, Many);
  CompareSteps();
  TimeLongLine();
  TimeManyLines();
  return 0;
}
