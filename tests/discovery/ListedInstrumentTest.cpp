#include "discovery/ListedInstrument.h"

#include "discovery/FoundText.h"

#include <gtest/gtest.h>

namespace portico::discovery {
namespace {

std::string Listed(std::string_view name, const std::vector<std::string>& facts = {}) {
  const auto instrument = ListedInstrument(name, facts);
  return instrument ? test::FoundText(*instrument) : "";
}

TEST(ListedInstrumentTest, FactsStandInTheirOrderWithoutBlanksAroundThem) {
  EXPECT_EQ(Listed("ASRL1::INSTR", {" Tolvane, Inc. ", "", "  ", "M7"}), "ASRL1::INSTR|Tolvane, Inc., M7");
}

TEST(ListedInstrumentTest, NameThatOpensSomethingElseIsNone) {
  EXPECT_EQ(Listed("ASRL/dev/serial/by-id/a::9600::INSTR"), ""); // the port is by-id/a, and not by-id/a::9600
  EXPECT_EQ(Listed("TCPIP0::192.0.2.7::0::SOCKET"), "");
}

TEST(ListedInstrumentTest, NameThatCannotBeWrittenIsNone) {
  EXPECT_EQ(Listed("ASRL/dev/\xC3\xA4::INSTR"), "ASRL/dev/\xC3\xA4::INSTR|");
  EXPECT_EQ(Listed("ASRL/dev/\xFF::INSTR"), "");
  EXPECT_EQ(Listed("ASRL/dev/\xE4\xB8\x80::INSTR"), ""); // not in the drivers' code page
}

} // namespace
} // namespace portico::discovery
