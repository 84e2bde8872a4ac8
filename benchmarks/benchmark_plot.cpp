// What it takes to draw an answer of a thousand numbers, and one of a million: the first picture, from the answer's
// text to pixels, and a zoom, with the table of statistics; and what an answer costs a plot that
// follows. Milliseconds of the processor, medians; what counts is the
// ratio within one run.

#include "benchmarks/Part.h"
#include "plot/CurveTable.h"
#include "plot/PlotView.h"
#include "qt/values/DrawingPainter.h"
#include "qt/values/QtText.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace portico::plot {
namespace {

constexpr int Rounds = Part(15);
constexpr int Few = 1000;
constexpr int Many = std::max(Few, Part(1'000'000));

template <class Work>
double Milliseconds(Work&& work) {
  std::vector<double> taken;
  for (int round = 0; round < Rounds; ++round) {
    const std::clock_t start = std::clock();
    work();
    taken.push_back(static_cast<double>(std::clock() - start) * 1E3 / CLOCKS_PER_SEC);
  }
  std::nth_element(taken.begin(), taken.begin() + static_cast<std::ptrdiff_t>(taken.size() / 2), taken.end());
  return taken[taken.size() / 2];
}

/// A sine with noise.
String AnswerOf(int count) {
  String text;
  for (int i = 0; i < count; ++i) {
    if (i > 0) text += u',';
    text += ToText(std::sin(i / 5000.0) + 0.1 * std::sin(i * 1.7 * i));
  }
  return text;
}

/// A picture of the size of a window, with what is told of it.
class Paper {
public:
  void Paint(const Curves& curves, PlotView& view) {
    view.Follow(curves.All());
    const QFontMetricsF metrics(QGuiApplication::font());
    const Picture picture =
        Draw({.Curves = curves.All(),
              .X = view.X(),
              .Y = view.Y(),
              .IsTime = curves.IsTime(),
              .PlaceTitle = curves.IsTime() ? u"Time" : u"Index"},
             m_image.width(), m_image.height(),
             {[&](StringView text) { return metrics.horizontalAdvance(qt::ToQt(text)); }, metrics.height()});
    if (TableOf(curves.All(), view.X(), {}).empty()) std::abort();
    QPainter painter(&m_image);
    qt::Paint(picture.Drawn, qt::Inks(), painter);
  }

private:
  QImage m_image{1000, 600, QImage::Format_RGB32};
};

class Plotter {
public:
  explicit Plotter(int count) : m_answer(AnswerOf(count)) {}

  void ShowFirst() { const Opened opened(m_answer, m_paper); }
  double Zoom() {
    Opened opened(m_answer, m_paper);
    return Milliseconds([&] {
      opened.View.ZoomX(1.02, 0.3);
      m_paper.Paint(opened.Shown, opened.View);
    });
  }

private:
  /// A query that was answered once, and its first picture.
  struct Opened {
    Opened(const String& answer, Paper& paper) {
      Talk.Sent(u"CURV?");
      Talk.Answered(answer, 0);
      Shown.Choose({.Queries = {u"CURV?"}, .Kind = CurveKind::OverIndex});
      paper.Paint(Shown, View);
    }

    Conversation Talk;
    Curves Shown{Talk};
    PlotView View;
  };

  String m_answer;
  Paper m_paper;
};

/// A query that was answered so often, each time with a number.
class LivePlotter {
public:
  explicit LivePlotter(int count) {
    Ask(count);
    m_curves.Choose({.Queries = {String(Query)}, .Kind = CurveKind::OverTime});
  }

  double Answer() {
    return Milliseconds([&] { Ask(AnswersARound); }) / AnswersARound;
  }
  double Redraw() {
    return Milliseconds([&] {
      Ask(1);
      m_curves.Update();
      m_paper.Paint(m_curves, m_view);
    });
  }

private:
  static constexpr StringView Query = u"MEAS:VOLT:DC?";
  static constexpr int AnswersARound = 1000;

  void Ask(int count) {
    for (int i = 0; i < count; ++i) {
      m_conversation.Sent(u"MEAS:VOLT:DC?\r\n");
      m_conversation.Answered(m_seconds % 2 == 0 ? u"+1.00021948E+00\r\n" : u"+1.00021951E+00\r\n", m_seconds);
      ++m_seconds;
    }
  }

  Conversation m_conversation;
  Curves m_curves{m_conversation};
  PlotView m_view;
  Paper m_paper;
  int m_seconds = 0;
};

void Print(const char* what, double few, double many) {
  std::printf("%-34s %8.2f ms %8.2f ms   ratio %.1f\n", what, few, many, many / few);
}

void Measure() {
  Plotter few(Few);
  Plotter many(Many);
  std::printf("%-34s %8d    %8d numbers\n", "", Few, Many);
  Print("first picture", Milliseconds([&] { few.ShowFirst(); }), Milliseconds([&] { many.ShowFirst(); }));
  Print("a zoom", few.Zoom(), many.Zoom());
  LivePlotter fewAnswers(Few);
  LivePlotter manyAnswers(Many);
  Print("drawn again with an answer more", fewAnswers.Redraw(), manyAnswers.Redraw());
  std::printf("%-34s %8.2f us %8.2f us\n", "an answer is taken up", fewAnswers.Answer() * 1e3,
              manyAnswers.Answer() * 1e3);
}

} // namespace
} // namespace portico::plot

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  portico::plot::Measure();
  return 0;
}
