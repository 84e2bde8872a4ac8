// What it costs to complete a line over many commands, and over few. The two trees take turns, and medians are
// compared.

#include "benchmarks/Part.h"
#include "benchmarks/Samples.h"
#include "completion/Completion.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

using portico::Median;
using portico::StringView;
using portico::completion::CommandTree;
using portico::completion::Complete;
using portico::completion::KnownCommand;

constexpr int Rounds = portico::Part(41);
constexpr int Few = 100;
constexpr int Many = portico::Part(10'000);

/// `AAbcd`, `BAbcd`, ...: as many names as one likes.
std::string Name(int number) {
  return {static_cast<char>('A' + number % 26), static_cast<char>('A' + number / 26 % 26), 'b', 'c', 'd'};
}

/// A hundred commands in each subsystem.
std::vector<KnownCommand> Commands(int count) {
  std::vector<KnownCommand> commands;
  for (int i = 0; i < std::max(count, Few); ++i) {
    const std::string header =
        Name(i / 100) + "<1-4>[:DC]:" + Name(i / 10 % 10) + ":" + Name(i % 10) + "[:LEVel] <v>|MIN|MAX";
    commands.push_back(portico::completion::ReadCommand(header).value());
  }
  return commands;
}

/// Microseconds.
double Time(const std::function<void()>& step, int steps) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < steps; ++i) step();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count() / steps;
}

void Compare(const char* what, const CommandTree& few, const CommandTree& many, StringView line) {
  std::vector<double> fewTimes;
  std::vector<double> manyTimes;
  for (int round = 0; round < Rounds; ++round) {
    for (const auto& [tree, times] : {std::pair{&few, &fewTimes}, {&many, &manyTimes}}) {
      times->push_back(Time(
          [&, each = tree] {
            if (Complete(line, *each).Candidates.empty()) std::abort();
          },
          20));
    }
  }
  std::printf("%-12s %8.1f us %8.1f us   ratio %.2f\n", what, Median(fewTimes), Median(manyTimes),
              Median(manyTimes) / Median(fewTimes));
}

/// As many nodes as a tree takes, all of which fit, each with suffixes.
void TimeFull() {
  constexpr int nodes = portico::Part(int{CommandTree::MostNodes});
  std::vector<KnownCommand> commands;
  for (int i = 0; i < nodes; ++i) {
    commands.push_back(portico::completion::ReadCommand(Name(i % 676) + Name(i / 676) + "<1-8>").value());
  }
  CommandTree tree;
  tree.Add(commands);
  std::vector<double> times;
  for (int round = 0; round < Rounds; ++round) {
    times.push_back(Time([&] { Complete({}, tree); }, 1));
  }
  std::printf("%d commands side by side, an empty line: %.1f ms\n", nodes, Median(times) / 1000);
}

} // namespace

int main() {
  CommandTree few;
  CommandTree many;
  few.Add(Commands(Few));
  const std::vector<KnownCommand> commands = Commands(Many);
  const double building = Time([&] { many.Add(commands); }, 1);
  std::printf("%d commands, %d commands; the tree of these in %.1f ms\n", Few, std::max(Many, Few), building / 1000);
  Compare("empty line", few, many, u"");
  Compare("subsystem", few, many, u"aa");
  Compare("last node", few, many, u"AA2:DC:AA:C");
  Compare("semicolon", few, many, u"AA2:AA:AA 1;:AA2:AA:BA 2;C");
  Compare("parameter", few, many, u"aabcd2:aabcd:babcd m");
  TimeFull();
  return EXIT_SUCCESS;
}
