// What it takes to see numbers: an answer of many against a bare loop of from_chars, a block against a bare loop over
// its bytes, and a curve's first picture, a zoom, an append and statistics with a thousand values and with a million.
// Times are those of the processor; what counts is the ratio within one run.

#include "benchmarks/Part.h"
#include "numbers/AnsweredQueries.h"
#include "numbers/BlockNumbers.h"
#include "numbers/NumberList.h"
#include "numbers/Series.h"
#include "numbers/Statistics.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace portico::numbers {
namespace {

constexpr int Rounds = Part(15);
constexpr std::size_t Few = 1000;
constexpr std::size_t Many = Part<std::size_t>(1'000'000);
constexpr std::size_t Columns = 1500; // of pixels

template <class Work>
double Microseconds(Work&& work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) * 1E6 / CLOCKS_PER_SEC;
}

template <class Work>
double Median(std::size_t times, Work&& work) {
  std::vector<double> taken;
  for (int round = 0; round < Rounds; ++round) {
    taken.push_back(Microseconds([&] {
                      for (std::size_t i = 0; i < times; ++i) work();
                    }) /
                    static_cast<double>(times));
  }
  std::nth_element(taken.begin(), taken.begin() + static_cast<std::ptrdiff_t>(taken.size() / 2), taken.end());
  return taken[taken.size() / 2];
}

/// Something that a measurement does not look flat, and an instrument's noise.
double Wave(std::size_t index) {
  const auto x = static_cast<double>(index);
  return std::sin(x / 5000) + 0.1 * std::sin(x * x);
}

std::string ListOf(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%+.8E,", Wave(i));
    text += digits.data();
  }
  text.pop_back();
  return text;
}

/// The least that reads such a list.
double BareSum(const std::string& text) {
  double sum = 0;
  for (const char* next = text.data(); next < text.data() + text.size();) {
    double number = 0;
    next = std::from_chars(*next == '+' ? next + 1 : next, text.data() + text.size(), number).ptr + 1;
    sum += number;
  }
  return sum;
}

void Print(const char* what, double bare, double taken) {
  std::printf("%-44s %10.1f us %10.1f us   ratio %.2f\n", what, bare, taken, taken / bare);
}

void MeasureReading() {
  const std::string bytes = ListOf(Many);
  const String text = FromCodePage(bytes);
  double sum = 0;
  std::size_t count = 0;
  const double bare = Median(1, [&] { sum += BareSum(bytes); });
  const double list = Median(1, [&] { count += std::get<Values>(ReadNumberList(text)).size(); });
  Print("a list, to a bare loop of from_chars", bare, list);

  std::string block;
  for (std::size_t i = 0; i < 2 * Many; ++i) block += static_cast<char>(i * i / 7);
  Values loaded(Many);
  const double loop = Median(1, [&] {
    for (std::size_t i = 0; i < Many; ++i) {
      const auto word = static_cast<unsigned>(static_cast<unsigned char>(block[2 * i]) << 8) |
                        static_cast<unsigned char>(block[2 * i + 1]);
      loaded[i] = static_cast<std::int16_t>(word);
    }
    sum += loaded.back();
  });
  const std::string length = std::to_string(block.size());
  const String answer = FromCodePage("#" + std::to_string(length.size()) + length + block);
  const double read = Median(1, [&] {
    count += std::get<Values>(ReadBlockNumbers(answer, {ElementType::Int16, ByteOrder::MostSignificantFirst})).size();
  });
  Print("a block of words, to a bare loop over bytes", loop, read);
  if (std::isnan(sum) || count == 0) std::abort();
}

Series CurveOf(const Values& values, std::size_t count) {
  Series series;
  for (std::size_t i = 0; i < count; ++i) series.Append(static_cast<double>(i), values[i]);
  return series;
}

void MeasureCurve() {
  Values values;
  for (std::size_t i = 0; i < std::max(Few, Many); ++i) values.push_back(Wave(i));
  const Series few = CurveOf(values, Few);
  const Series many = CurveOf(values, Many);
  double seen = 0;
  const auto both = [&](const char* what, std::size_t times, auto&& work) {
    const double a = Median(times * Many / Few, [&] { work(few); });
    Print(what, a, Median(times, [&] { work(many); }));
  };
  std::printf("%-44s %10zu    %10zu values\n", "", Few, Many);
  both("the whole in columns of pixels", 1,
       [&](const Series& series) { seen += series.Reduce(series.Whole(), Columns).back().Values.Maximum; });
  both("half of it", 1, [&](const Series& series) {
    const double end = series.Whole().To;
    seen += series.Reduce({end / 4, end * 3 / 4}, Columns).back().Values.Maximum;
  });
  both("statistics of the whole", 1,
       [&](const Series& series) { seen += series.StatisticsOver(series.Whole()).StandardDeviation; });
  const double first = Median(Many / Few, [&] { CurveOf(values, Few); }) / static_cast<double>(Few);
  const double last = Median(1, [&] { CurveOf(values, Many); }) / static_cast<double>(Many);
  Print("a thousand appends", first * 1000, last * 1000);
  std::printf("bytes a value: %.1f, %.1f\n", static_cast<double>(few.Bytes()) / static_cast<double>(Few),
              static_cast<double>(many.Bytes()) / static_cast<double>(Many));
  if (std::isnan(seen)) std::abort();
}

void MeasureConversation() {
  AnsweredQueries queries;
  double seconds = 0;
  const double taken = Median(Many / 10, [&] { queries.Add(u":MEAS:VOLT:DC?", u"+1.00023400E+00", ++seconds); });
  std::printf("%-44s %10.3f us\n", "an answer of one number taken into its curve", taken);
}

} // namespace
} // namespace portico::numbers

int main() {
  portico::numbers::MeasureReading();
  portico::numbers::MeasureCurve();
  portico::numbers::MeasureConversation();
  return 0;
}
