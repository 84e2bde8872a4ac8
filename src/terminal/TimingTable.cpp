#include "terminal/TimingTable.h"

#include "framework/text/Printable.h"
#include "terminal/console/Diagnostic.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <sstream>
#include <string>

namespace portico::terminal {
namespace {

constexpr std::size_t Columns = 4; // of figures

struct Line {
  std::array<std::string, Columns> Figures;
  std::string Query;
};

std::string Microseconds(timing::Duration duration) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(1) << std::chrono::duration<double, std::micro>(duration).count();
  return text.str();
}

} // namespace

void PrintTimes(const std::vector<timing::QueryFigures>& figures, std::ostream& out) {
  if (figures.empty()) {
    out << Diagnostic("no query was answered, so there are no times") << std::endl;
    return;
  }
  std::vector<Line> lines = {{{"queries", "median us", "99 % us", "maximum us"}, "query"}};
  for (const timing::QueryFigures& row : figures) {
    lines.push_back({{std::to_string(row.Count), Microseconds(row.Median), Microseconds(row.Percentile99),
                      Microseconds(row.Maximum)},
                     row.Query ? Printable(*row.Query) : "(all others)"});
  }
  std::array<std::size_t, Columns> widths{};
  for (const Line& line : lines) {
    for (std::size_t i = 0; i < Columns; ++i) widths[i] = std::max(widths[i], line.Figures[i].size());
  }
  for (const Line& line : lines) {
    for (std::size_t i = 0; i < Columns; ++i) {
      out << std::setw(static_cast<int>(widths[i])) << line.Figures[i] << "  ";
    }
    out << line.Query << '\n';
  }
  out.flush();
}

} // namespace portico::terminal
