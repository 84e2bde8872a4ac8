#include "ui/plot/PlotWindow.h"

#include "platform/KeyCodes.h"
#include "ui/base/ShowFailure.h"
#include "ui/base/Tolerate.h"
#include "ui/plot/PlotDesign.h"

#include <algorithm>
#include <utility>

namespace portico {
namespace {

/// Milliseconds from an answer to its being drawn, with all that came meanwhile. A drawing takes some, so that a run
/// is slowed by a few percent.
constexpr std::int32_t RedrawInterval = 80;

// In form units.
constexpr double FirstWidth = 1120 * FormUnitsPerPixel;
constexpr double FirstHeight = 600 * FormUnitsPerPixel;
constexpr double QueryWidth = 250 * FormUnitsPerPixel;
constexpr double ValueHeight = 130 * FormUnitsPerPixel;
constexpr double LeastShare = 0.4; // of the window that the picture has at least

} // namespace

PlotWindow::PlotWindow(const Ref<PlotSource>& source)
    : m_source(source), m_followed(source->Follow()), m_curves(m_followed->Conversation()) {}

void PlotWindow::Show(const IForm& Beside) {
  m_form = gForms->Load(PlotDesign);
  m_form->Keep(Ref<IObject>(shared_from_this()));
  m_timer = gEventLoop->MakeTimer();
  m_timer->Interval(RedrawInterval);
  Connect();
  Find<IListView>(u"lstQueries").Columns(QueryRows::Columns());
  Find<IListView>(u"lstQueries").Rows(m_queries);
  Find<IListView>(u"lstValues").Columns(ValueRows::Columns());
  Find<IListView>(u"lstValues").Rows(m_values);
  m_form->Move(Beside.Left() + Beside.Width(), Beside.Top(), FirstWidth, FirstHeight);
  Place();
  Update();
  m_form->Show();
}

void PlotWindow::Connect() {
  On(m_form->Events().Resize, u"PlotWindow.Form_Resize", [](PlotWindow& window) {
    window.Place();
    window.Draw();
  });
  On(m_form->Events().KeyDown, u"PlotWindow.Form_KeyDown",
     [](PlotWindow& window, std::int32_t code, std::int32_t /*shift*/) {
       if (code == EscapeKey) window.Escape();
     });
  On(m_form->Events().Unload, u"PlotWindow.Form_Unload", [](PlotWindow& window) { window.Unloaded(); });
  On(Find<IListView>(u"lstQueries").Click(), u"PlotWindow.lstQueries_Click",
     [](PlotWindow& window) { window.QuerySelected(); });
  On(Find<IListView>(u"lstQueries").Choose(), u"PlotWindow.lstQueries_Choose",
     [](PlotWindow& window) { window.QueryChosen(); });
  On(m_timer->Timer(), u"PlotWindow.Timer", [](PlotWindow& window) {
    window.m_timer->Enabled(false);
    window.Update();
  });
  // Nothing may fail here: it is a run that tells it.
  m_changed = m_followed->Changed.Connect([weak = weak_from_this()] {
    const auto self = weak.lock();
    if (self && self->m_timer && !self->m_timer->Enabled()) self->m_timer->Enabled(true);
  });
  ConnectCanvas();
  ConnectMenus();
}

void PlotWindow::ConnectCanvas() {
  ICanvas& canvas = Canvas();
  On(canvas.MouseDown(), u"PlotWindow.cnvPlot_MouseDown",
     [](PlotWindow& window, const MouseEvent& event) { window.m_gestures.Press(event); });
  On(canvas.MouseMove(), u"PlotWindow.cnvPlot_MouseMove", [](PlotWindow& window, const MouseEvent& event) {
    if (window.m_gestures.Move(event)) window.Draw();
  });
  On(canvas.MouseUp(), u"PlotWindow.cnvPlot_MouseUp", [](PlotWindow& window, const MouseEvent& event) {
    if (window.m_gestures.Release(event)) window.Draw();
  });
  On(canvas.Wheel(), u"PlotWindow.cnvPlot_Wheel", [](PlotWindow& window, const MouseEvent& event, double notches) {
    if (window.m_gestures.Wheel(event, notches)) window.Draw();
  });
  On(canvas.KeyDown(), u"PlotWindow.cnvPlot_KeyDown",
     [](PlotWindow& window, std::int32_t code, std::int32_t shift) { window.Key(code, shift); });
}

void PlotWindow::Key(std::int32_t code, std::int32_t shift) {
  m_curves.Update(); // an answer may have come since the last drawing
  if (m_gestures.Key(code, shift, m_curves.All())) Draw();
}

void PlotWindow::Escape() {
  if (m_cursors == plot::Cursors()) return m_form->Unload();
  m_cursors = {};
  Draw();
}

/// The queries at the left, what is told of the curves below, the picture in what is left. A window that is too small
/// for its controls disturbs nobody.
void PlotWindow::Place() {
  if (m_form->WindowState() == WindowState::Minimized) return;
  const double width = m_form->ScaleWidth();
  const double height = m_form->ScaleHeight();
  const double left = std::min(QueryWidth, width * (1 - LeastShare));
  const double below = std::min(ValueHeight, height * (1 - LeastShare));
  Tolerate([&] { Find<IListView>(u"lstQueries").Move(0, 0, left, height - below); });
  Tolerate([&] { Canvas().Move(left, 0, width - left, height - below); });
  Tolerate([&] { Find<IListView>(u"lstValues").Move(0, height - below, width, below); });
}

void PlotWindow::Unloaded() {
  m_timer->Enabled(false);
  m_followed->Changed.Disconnect(m_changed);
}

void PlotWindow::Update() {
  m_queries->Update(m_followed->Conversation());
  auto& list = Find<IListView>(u"lstQueries");
  m_isUpdating = true;
  list.Refresh();
  if (list.ListIndex() < 0) {
    const auto& queries = m_queries->Queries();
    const auto newest = std::find(queries.begin(), queries.end(), m_followed->Conversation().Newest());
    if (newest != queries.end()) list.ListIndex(static_cast<std::int32_t>(newest - queries.begin()));
  }
  m_isUpdating = false;
  Draw();
}

void PlotWindow::QuerySelected() {
  if (!m_isUpdating) Draw();
}

void PlotWindow::QueryChosen() {
  auto& list = Find<IListView>(u"lstQueries");
  if (list.ListIndex() < 0) return;
  m_queries->Toggle(m_queries->Queries()[static_cast<std::size_t>(list.ListIndex())]);
  list.Refresh();
  Draw();
}

void PlotWindow::Draw() {
  m_choice.Queries = m_queries->Drawn(Find<IListView>(u"lstQueries").ListIndex());
  m_curves.Choose(m_choice);
  m_view.Follow(m_curves.All());
  ICanvas& canvas = Canvas();
  const plot::TextMetrics metrics{.ExtentOf = [&canvas](StringView text) { return canvas.ExtentOf(text); },
                                  .LineHeight = canvas.LineHeight()};
  plot::Picture picture =
      plot::Draw(Scene(), canvas.Width() / FormUnitsPerPixel, canvas.Height() / FormUnitsPerPixel, metrics);
  m_gestures.Area(picture.Area);
  m_drawing = std::move(picture.Drawn);
  canvas.Show(m_drawing);
  m_values->Update(plot::TableOf(m_curves.All(), m_view.X(), m_cursors), m_cursors);
  Find<IListView>(u"lstValues").Refresh();
  canvas.Describe(u"Plot", plot::Description(m_values->Curves(), m_curves.Fault()));
}

plot::Scene PlotWindow::Scene() const {
  const bool isEmpty = m_curves.All().empty();
  const bool hasNumbers = m_queries->Count() > 0;
  return {.Curves = m_curves.All(),
          .X = m_view.X(),
          .Y = m_view.Y(),
          .IsTime = m_curves.IsTime(),
          .PlaceTitle = PlaceTitle(),
          .Cursors = m_cursors,
          .Message = !isEmpty     ? String()
                     : hasNumbers ? m_curves.Fault()
                                  : String(u"No query was answered with numbers.")};
}

String PlotWindow::PlaceTitle() const {
  if (m_choice.Kind == plot::CurveKind::OverIndex) return m_curves.IsTime() ? u"Time" : u"Index";
  return m_source->HasWholeSeconds() ? u"Time since the first answer, in whole seconds as the log has them"
                                     : u"Time since the first answer";
}

} // namespace portico
