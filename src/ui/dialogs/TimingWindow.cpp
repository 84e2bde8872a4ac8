#include "ui/dialogs/TimingWindow.h"

#include "platform/IDialogControls.h"
#include "platform/IListView.h"
#include "timing/TimedDriver.h"
#include "ui/dialogs/DialogDesigns.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace portico {
namespace {

constexpr std::int32_t FollowMilliseconds = 500;
constexpr std::size_t LongestShown = 60; // of the last query

String Milliseconds(timing::Duration duration) {
  std::array<char, 40> text{};
  const int length =
      std::snprintf(text.data(), text.size(), "%.3f", std::chrono::duration<double, std::milli>(duration).count());
  return FromAscii({text.data(), static_cast<std::size_t>(length)});
}

String LastText() {
  const auto last = timing::gTimedDriver ? timing::gTimedDriver->Times().Last() : std::nullopt;
  if (!last) return u"No query has been answered yet.";
  String query = last->Query.substr(0, LongestShown);
  if (query.size() < last->Query.size()) query += u"...";
  std::replace_if(
      query.begin(), query.end(), [](char16_t unit) { return unit < u' '; }, u' ');
  for (std::size_t at = query.find(u'&'); at != String::npos; at = query.find(u'&', at + 2)) query.insert(at, 1, u'&');
  return u"The last exchange took " + Milliseconds(last->Taken) + u" ms: " + query;
}

} // namespace

struct TimingWindow::Rows final : IListRows {
  std::vector<timing::QueryFigures> Figures;

  std::int32_t Count() const override { return static_cast<std::int32_t>(Figures.size()); }
  String Cell(std::int32_t row, std::int32_t column) const override {
    const timing::QueryFigures& figures = Figures[static_cast<std::size_t>(row)];
    switch (column) {
    case 0:
      return figures.Query.value_or(u"(all others)");
    case 1:
      return ToText(static_cast<std::int64_t>(figures.Count));
    case 2:
      return Milliseconds(figures.Median);
    case 3:
      return Milliseconds(figures.Percentile99);
    default:
      return Milliseconds(figures.Maximum);
    }
  }
};

TimingWindow::TimingWindow() : DialogForm(TimingDesign), m_rows(std::make_shared<Rows>()) {}

void TimingWindow::Form_Initialize() {
  Control<IListView>(u"lstTimes")
      .Columns({{.Heading = u"Query", .Characters = 34},
                {.Heading = u"Count", .Characters = 9, .IsNumber = true},
                {.Heading = u"Median ms", .Characters = 12, .IsNumber = true},
                {.Heading = u"99 % ms", .Characters = 12, .IsNumber = true},
                {.Heading = u"Maximum ms", .Characters = 12, .IsNumber = true}});
  Control<IListView>(u"lstTimes").Rows(m_rows);
  m_timer = gEventLoop->MakeTimer();
  m_timer->Interval(FollowMilliseconds);
  On(m_timer->Timer(), u"TimingWindow.tmrFollow_Timer", [this] { Follow(); });
  On(Control<ICommandButton>(u"cmdForget").Click(), u"TimingWindow.cmdForget_Click", [this] { Forget(); });
  On(Control<ICommandButton>(u"cmdClose").Click(), u"TimingWindow.cmdClose_Click", [this] { Unload(); });
}

void TimingWindow::Open(IForm& owner) {
  for (const Ref<IForm>& form : gForms->Forms()) {
    if (form->Name() == TimingDesign.Name) return form->Show();
  }
  MakeDialog<TimingWindow>(u"Failed to create the window of times.")->Show(&owner);
}

void TimingWindow::Form_Load() {
  Follow();
  m_timer->Enabled(true);
}

void TimingWindow::Follow() {
  Control<IControl>(u"lblLast").Caption(LastText());
  m_rows->Figures =
      timing::gTimedDriver ? timing::gTimedDriver->Times().Figures() : std::vector<timing::QueryFigures>();
  Control<IListView>(u"lstTimes").Refresh();
  Control<ICommandButton>(u"cmdForget").Enabled(!m_rows->Figures.empty());
}

void TimingWindow::Forget() {
  timing::gTimedDriver->ForgetTimes();
  Follow();
}

} // namespace portico
