// The marks of errors in a history of a thousand entities and of a million, of which each tenth tells of an error: what
// it costs to mark what comes, to paint, to go to the next error and back, and to find the nearest in the overview.
// Processor time; both windows take turns, and medians are compared.

#include "benchmarks/Part.h"
#include "benchmarks/Samples.h"
#include "qt/text/RichTextBox.h"
#include "views/faults/ErrorMarks.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <vector>

namespace {

using namespace portico;

constexpr int Rounds = Part(21);
constexpr int StepsPerRound = 20;
constexpr int Few = 1'000;
constexpr int Many = std::max(Few, Part(1'000'000));
constexpr int ErrorEvery = 10;
constexpr StringView Error = u"-113,\"Undefined header\"";

/// A history in a window, with its marks.
class History {
public:
  explicit History(int entities) {
    m_window.resize(600, 400);
    m_box->Move(0, 0, 600 * FormUnitsPerPixel, 400 * FormUnitsPerPixel);
    m_box->Locked(true);
    m_window.show();
    for (int i = 1; i <= entities; ++i) Come(i % ErrorEvery == 0);
    m_box->Show(); // all of it is in the document
    QApplication::processEvents();
    if (m_marks->All().size() != static_cast<std::size_t>(entities / ErrorEvery)) std::abort();
  }

  void Come(bool isError) {
    m_box->SelStart(m_box->TextLength());
    m_box->SelText((isError ? String(Error) : String(u"+1.00021948E+00")) + u"\r\n");
    if (isError) m_marks->MarkNewest(u"NONSENSE", Error);
  }
  void GoToNext() {
    m_marks->GoToNext();
    ExpectError();
  }
  void GoToPrevious() {
    m_marks->GoToPrevious();
    ExpectError();
  }
  void GoToMiddle() { m_marks->GoTo(m_marks->All().size() / 2); }
  void Paint() {
    for (const char* part : {"markStrip", "markOverview"}) Canvas(part).repaint();
  }
  /// Into the overview, by turns at both ends.
  void ClickOverview() {
    QWidget& overview = Canvas("markOverview");
    m_isAtEnd = !m_isAtEnd;
    const QPointF place(1, m_isAtEnd ? overview.height() - 1 : 0);
    QMouseEvent press(QEvent::MouseButtonPress, place, overview.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&overview, &press);
  }
  void Clear() {
    m_box->Text({});
    if (!m_marks->All().empty()) std::abort();
  }

private:
  void ExpectError() const {
    if (m_box->SelText() != Error) std::abort();
  }
  QWidget& Canvas(const char* name) const { return *m_window.findChild<QWidget*>(QString::fromLatin1(name)); }

  QWidget m_window;
  Ref<qt::RichTextBox> m_box =
      New<qt::RichTextBox>(ControlDesign{.Kind = ControlKind::RichTextBox, .Name = u"txtPast"}, m_window, u"Sans", 10);
  Ref<ErrorMarks> m_marks = New<ErrorMarks>(m_box);
  bool m_isAtEnd = false;
};

/// Each step with the turn of the event loop that shows it.
template <class Step>
void Compare(const char* what, History& few, History& many, Step&& step) {
  std::vector<double> withFew;
  std::vector<double> withMany;
  for (int round = 0; round < Rounds; ++round) {
    for (History* history : {&few, &many}) {
      history->GoToMiddle();
      QApplication::processEvents();
      const double taken = Milliseconds([&] {
        for (int i = 0; i < StepsPerRound; ++i) {
          step(*history);
          QApplication::processEvents();
        }
      });
      (history == &few ? withFew : withMany).push_back(taken / StepsPerRound);
    }
  }
  const double a = Median(withFew);
  const double b = Median(withMany);
  std::printf("%-44s %8.3f ms %8.3f ms   ratio %.2f\n", what, a, b, b / a);
}

void Measure() {
  std::printf("%-44s %8d    %8d entities\n", "", Few, Many);
  std::unique_ptr<History> few;
  std::unique_ptr<History> many;
  const double fewTaken = Milliseconds([&] { few = std::make_unique<History>(Few); });
  const double manyTaken = Milliseconds([&] { many = std::make_unique<History>(Many); });
  std::printf("%-44s %8.2f us %8.2f us   ratio %.2f\n", "an entity comes, each tenth is marked, all shown",
              fewTaken / Few * 1000, manyTaken / Many * 1000, manyTaken / Many / (fewTaken / Few));
  Compare("Next Error", *few, *many, [](History& history) { history.GoToNext(); });
  Compare("Previous Error", *few, *many, [](History& history) { history.GoToPrevious(); });
  Compare("strip and overview painted", *few, *many, [](History& history) { history.Paint(); });
  Compare("a click into the overview", *few, *many, [](History& history) { history.ClickOverview(); });
  Compare("an error comes and is marked", *few, *many, [](History& history) { history.Come(true); });
  std::printf("%-44s %8.3f ms %8.3f ms\n", "Clear History", Milliseconds([&] { few->Clear(); }),
              Milliseconds([&] { many->Clear(); }));
}

} // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  Measure();
  return 0;
}
