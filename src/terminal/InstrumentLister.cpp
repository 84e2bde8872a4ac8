#include "terminal/InstrumentLister.h"

#include "framework/text/Printable.h"

#include <ostream>
#include <vector>

namespace portico::terminal {
namespace {

constexpr std::int32_t SearchInterval = 100; // milliseconds

void Print(const FoundInstrument& instrument, std::ostream& output) {
  output << Printable(instrument.Name);
  if (!instrument.Description.empty()) output << '\t' << Printable(instrument.Description);
  output << std::endl;
}

/// A search that is on.
class Search {
public:
  Search(IInstrumentSearch& search, const std::vector<String>& known) : m_search(search) { m_search.Start(known); }
  ~Search() { m_search.Stop(); }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

private:
  IInstrumentSearch& m_search;
};

} // namespace

bool PrintInstruments(IInstrumentList& known, IInstrumentSearch& search, std::int32_t milliseconds, IEventLoop& loop,
                      std::ostream& output) {
  const std::vector<String> names = NamesThatOpen(known);
  for (const String& name : names) Print({name, {}}, output);
  const Search running(search, names);
  const auto printFound = [&] {
    for (const FoundInstrument& instrument : search.Take()) Print(instrument, output);
  };

  bool isOver = false;
  const auto start = [&loop](std::int32_t interval, std::function<void()> handler) {
    auto timer = loop.MakeTimer();
    timer->Timer().Connect(std::move(handler));
    timer->Interval(interval);
    timer->Enabled(true);
    return timer;
  };
  const auto poll = start(SearchInterval, printFound);
  const auto end = start(milliseconds, [&] { isOver = true; });
  while (!isOver && output) loop.WaitForEvent();
  printFound();
  return output.good();
}

} // namespace portico::terminal
