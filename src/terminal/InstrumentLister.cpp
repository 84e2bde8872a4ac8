#include "terminal/InstrumentLister.h"

#include "framework/text/Printable.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace portico::terminal {
namespace {

constexpr std::int32_t SearchInterval = 100; // milliseconds

class Lister {
public:
  explicit Lister(std::ostream& output) : m_output(output) {}

  void Print(const String& name, const String& description = {}) {
    if (std::any_of(m_printed.begin(), m_printed.end(), [&](const String& one) { return EqualNoCase(one, name); })) {
      return;
    }
    m_printed.push_back(name);
    m_output << Printable(name);
    if (!description.empty()) m_output << '\t' << Printable(description);
    m_output << std::endl;
  }
  void Print(const std::vector<FoundInstrument>& found) {
    for (const FoundInstrument& instrument : found) Print(instrument.Name, instrument.Description);
  }

private:
  std::ostream& m_output;
  std::vector<String> m_printed;
};

/// A search that is on.
class Search {
public:
  explicit Search(IInstrumentSearch& search) : m_search(search) { m_search.Start(); }
  ~Search() { m_search.Stop(); }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

private:
  IInstrumentSearch& m_search;
};

} // namespace

bool PrintInstruments(IInstrumentList& known, IInstrumentSearch& search, std::int32_t milliseconds, IEventLoop& loop,
                      std::ostream& output) {
  Lister lister(output);
  for (const String& name : NamesThatOpen(known)) lister.Print(name);
  const Search running(search);
  lister.Print(search.Take());

  bool isOver = false;
  const auto start = [&loop](std::int32_t interval, std::function<void()> handler) {
    auto timer = loop.MakeTimer();
    timer->Timer().Connect(std::move(handler));
    timer->Interval(interval);
    timer->Enabled(true);
    return timer;
  };
  const auto poll = start(SearchInterval, [&] { lister.Print(search.Take()); });
  const auto end = start(milliseconds, [&] { isOver = true; });
  while (!isOver && output) loop.WaitForEvent();
  lister.Print(search.Take());
  return output.good();
}

} // namespace portico::terminal
