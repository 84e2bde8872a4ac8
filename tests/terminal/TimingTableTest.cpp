#include "terminal/TimingTable.h"

#include <gtest/gtest.h>

#include <sstream>

namespace portico::terminal {
namespace {

using namespace std::chrono_literals;

std::string Printed(const std::vector<timing::QueryFigures>& figures) {
  std::ostringstream out;
  PrintTimes(figures, out);
  return out.str();
}

TEST(TimingTable, HasALineForEachQueryUnderItsHeading) {
  EXPECT_EQ(Printed({{u"*OPC?", 1000, 31'200ns, 60'149ns, 201'400ns},
                     {u"MEAS:VOLT:DC?", 3, 1s, 2s, 12'345'678'900us},
                     {{}, 1'234'567'890, 50ns, 51ns, 1500ns}}),
            "   queries  median us    99 % us     maximum us  query\n"
            "      1000       31.2       60.1          201.4  *OPC?\n"
            "         3  1000000.0  2000000.0  12345678900.0  MEAS:VOLT:DC?\n"
            "1234567890        0.1        0.1            1.5  (all others)\n");
}

TEST(TimingTable, ControlCharactersDoNotBreakALine) {
  EXPECT_EQ(Printed({{u"A\x1B[2J\u0085\u00B5?", 1, 1us, 1us, 1us}}),
            "queries  median us  99 % us  maximum us  query\n"
            "      1        1.0      1.0         1.0  A?[2J?\xC2\xB5?\n");
}

TEST(TimingTable, WithoutAnAnswerSaysSo) {
  EXPECT_EQ(Printed({}), "portico-run: no query was answered, so there are no times\n");
}

} // namespace
} // namespace portico::terminal
