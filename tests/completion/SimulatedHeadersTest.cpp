#include "completion/HelpHeaders.h"
#include "completion/Offered.h"

#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::completion {
namespace {

using test::Session;

class SimulatedHeaders : public testing::TestWithParam<const char*> {
protected:
  /// A header as it is typed in short forms, with the largest suffixes, with all its nodes or with as few as may be.
  static std::string Typed(const scpi::HeaderPattern& header, bool shortest) {
    std::string typed;
    for (const scpi::PatternNode& node : header.Nodes()) {
      if (shortest && node.Optional) continue;
      if (!typed.empty()) typed += ':';
      typed += scpi::Mnemonic(node.Name).Short();
      if (node.Suffixes.Last > 1) typed += std::to_string(node.Suffixes.Last);
    }
    return typed;
  }

  /// Whether the instrument knows a header; more parameters than any has keep it from being carried out.
  static bool IsKnown(const std::string& header) {
    Session session(GetParam());
    session.Send(header + " 1,1,1,1,1,1,1,1,1,1,1,1");
    const std::string error = session.Error();
    EXPECT_TRUE(error.starts_with("-108") || error.starts_with("-113")) << header << ": " << error;
    return error.starts_with("-108");
  }
};

TEST_P(SimulatedHeaders, AreReadBackAsTheInstrumentToldThem) {
  Session session(GetParam());
  const std::string answer = session.Ask("SYSTem:HELP:HEADers?");
  const HelpHeaders headers = ReadHelpHeaders(answer);
  EXPECT_EQ(headers.NotUnderstood, 0U);
  std::string told;
  for (const KnownCommand& command : headers.Commands) told += TextOf(command) + '\n';
  EXPECT_EQ(answer, '#' + std::to_string(std::to_string(told.size()).size()) + std::to_string(told.size()) + told);
}

TEST_P(SimulatedHeaders, AreThereAndAreOffered) {
  const HelpHeaders headers = ReadHelpHeaders(Session(GetParam()).Ask("SYST:HELP:HEAD?"));
  ASSERT_GT(headers.Commands.size(), 50U);
  CommandTree tree;
  tree.Add(headers.Commands);
  for (const KnownCommand& command : headers.Commands) {
    for (const bool shortest : {false, true}) {
      const std::string typed = Typed(command.Header, shortest);
      const std::string offered = ' ' + test::Offered(String(typed.begin(), typed.end()), tree) + ' ';
      for (const auto& [told, mark] : {std::pair{command.Command, ""}, {command.Query, "?"}}) {
        const bool known = IsKnown(typed + mark);
        EXPECT_TRUE(known || !told) << typed << mark;
        EXPECT_EQ(offered.find(' ' + typed + mark + ' ') != std::string::npos, known) << typed << mark;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Completion, SimulatedHeaders, testing::Values("dmm", "psu", "scope"));

} // namespace
} // namespace portico::completion
