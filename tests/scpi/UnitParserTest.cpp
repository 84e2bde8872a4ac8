#include "scpi/UnitParser.h"

#include "scpi/ScpiError.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace portico::scpi {
namespace {

/// The headers of a message's units, each from the root, as `A:B2:C?`.
std::vector<std::string> Headers(std::string_view message) {
  UnitParser parser(message);
  Unit unit;
  std::vector<std::string> headers;
  while (parser.Next(unit)) {
    std::string header;
    for (const HeaderNode& node : unit.Header) {
      if (!header.empty()) header += ':';
      header += node.Name;
      if (node.Suffix) header += std::to_string(*node.Suffix);
    }
    headers.push_back(header + (unit.Query ? "?" : ""));
  }
  return headers;
}

Parameter Only(std::string_view message) {
  UnitParser parser(message);
  Unit unit;
  EXPECT_TRUE(parser.Next(unit));
  EXPECT_EQ(unit.Parameters.size(), 1U);
  return unit.Parameters.at(0);
}

int ErrorOf(std::string_view message) {
  try {
    Headers(message);
  } catch (const ScpiError& error) {
    return static_cast<int>(error.Code());
  }
  return 0;
}

using Strings = std::vector<std::string>;
using Kind = Parameter::Kind;

TEST(UnitParser, AnEmptyMessageHasNoUnits) {
  EXPECT_EQ(Headers(""), Strings{});
  EXPECT_EQ(Headers(" \t\r"), Strings{});
  EXPECT_EQ(Headers(" ; ;"), Strings{});
}

TEST(UnitParser, TakesHeadersApart) {
  EXPECT_EQ(Headers("SYST:ERR?"), Strings{"SYST:ERR?"});
  EXPECT_EQ(Headers("*IDN?"), Strings{"*IDN?"});
  EXPECT_EQ(Headers("CHAN2:SCAL 1"), Strings{"CHAN2:SCAL"});
  EXPECT_EQ(Headers("  A_B:C\r"), Strings{"A_B:C"});
}

TEST(UnitParser, ThePathIsTheLastHeaderWithoutItsLastNode) {
  EXPECT_EQ(Headers("A:B:C 1;D 2;E:F 3;G"), (Strings{"A:B:C", "A:B:D", "A:B:E:F", "A:B:E:G"}));
  EXPECT_EQ(Headers("A 1;B"), (Strings{"A", "B"}));
}

TEST(UnitParser, AColonGoesToTheRoot) { EXPECT_EQ(Headers("A:B 1;:C:D;E"), (Strings{"A:B", "C:D", "C:E"})); }

TEST(UnitParser, ACommonCommandLeavesThePath) { EXPECT_EQ(Headers("A:B 1;*OPC?;C"), (Strings{"A:B", "*OPC?", "A:C"})); }

TEST(UnitParser, SuffixesStayInThePath) {
  EXPECT_EQ(Headers("CHAN3:SCAL 1;OFFS 2"), (Strings{"CHAN3:SCAL", "CHAN3:OFFS"}));
}

TEST(UnitParser, AHugeSuffixIsHuge) { EXPECT_EQ(Headers("A99999999999"), Strings{"A4294967295"}); }

TEST(UnitParser, Decimals) {
  for (const char* number : {"1", "+1.5", "-.5", "2.", "1E3", "1.5e-3", "007"}) {
    const std::string message = std::string("A ") + number;
    const Parameter parameter = Only(message);
    EXPECT_EQ(parameter.Form, Kind::Decimal);
    EXPECT_EQ(parameter.Text, number);
    EXPECT_EQ(parameter.Unit, "");
  }
}

TEST(UnitParser, UnitsMayStandApart) {
  EXPECT_EQ(Only("A 1.5MV").Unit, "MV");
  EXPECT_EQ(Only("A 1.5 MV ").Unit, "MV");
  EXPECT_EQ(Only("A 1E3 V").Unit, "V");
  EXPECT_EQ(Only("A 1EXHZ").Unit, "EXHZ");
  EXPECT_EQ(Only("A 1EXHZ").Text, "1");
}

TEST(UnitParser, NonDecimals) {
  EXPECT_EQ(Only("A #HfF").Text, "fF");
  EXPECT_EQ(Only("A #HfF").Mark, 16);
  EXPECT_EQ(Only("A #q17").Mark, 8);
  EXPECT_EQ(Only("A #B101").Mark, 2);
  EXPECT_EQ(Only("A #B101").Form, Kind::NonDecimal);
}

TEST(UnitParser, Strings) {
  EXPECT_EQ(Only("A \"x;y,z\"").Text, "x;y,z");
  EXPECT_EQ(Only("A 'x'").Mark, '\'');
  EXPECT_EQ(Only("A \"a\"\"b\"").Text, "a\"\"b");
  EXPECT_EQ(Only("A ''").Text, "");
}

TEST(UnitParser, Blocks) {
  EXPECT_EQ(Only("A #15ab;cd").Text, "ab;cd");
  EXPECT_EQ(Only("A #10").Text, "");
  EXPECT_EQ(Only("A #203abc").Text, "abc");
  EXPECT_EQ(Only("A #0any;thing, \"").Text, "any;thing, \"");
}

TEST(UnitParser, CharactersAndExpressions) {
  EXPECT_EQ(Only("A MAX").Form, Kind::Character);
  EXPECT_EQ(Only("A CHAN2").Text, "CHAN2");
  EXPECT_EQ(Only("A (@1,2)").Form, Kind::Expression);
}

TEST(UnitParser, ParametersAreSeparatedByCommas) {
  UnitParser parser("A 1 , MAX,'x' ;B 2");
  Unit unit;
  ASSERT_TRUE(parser.Next(unit));
  EXPECT_EQ(unit.Parameters.size(), 3U);
  ASSERT_TRUE(parser.Next(unit));
  EXPECT_EQ(unit.Parameters.size(), 1U);
  EXPECT_FALSE(parser.Next(unit));
}

TEST(UnitParser, HeaderErrors) {
  EXPECT_EQ(ErrorOf("!"), -101);
  EXPECT_EQ(ErrorOf("VO$T"), -101);
  EXPECT_EQ(ErrorOf("\xE9"), -101);
  EXPECT_EQ(ErrorOf("1A"), -102);
  EXPECT_EQ(ErrorOf("?"), -102);
  EXPECT_EQ(ErrorOf("A:"), -102);
  EXPECT_EQ(ErrorOf("A::B"), -102);
  EXPECT_EQ(ErrorOf("*"), -102);
  EXPECT_EQ(ErrorOf("A?1"), -111);
  EXPECT_EQ(ErrorOf("A,1"), -111);
  EXPECT_EQ(ErrorOf("A\"x\""), -111);
  EXPECT_EQ(ErrorOf("ABCDEFGHIJKLM"), -112);
  EXPECT_EQ(ErrorOf("ABCDEFGHIJKL"), 0);
  EXPECT_EQ(ErrorOf("*ESE5"), -113);
}

TEST(UnitParser, SeparatorErrors) {
  EXPECT_EQ(ErrorOf("A 1 2"), -103);
  EXPECT_EQ(ErrorOf("A MAX MIN"), -103);
  EXPECT_EQ(ErrorOf("A 'x''y'z"), -103);
  EXPECT_EQ(ErrorOf("A 1,"), -109);
  EXPECT_EQ(ErrorOf("A ,1"), -109);
  EXPECT_EQ(ErrorOf("A 1,,2"), -109);
  EXPECT_EQ(ErrorOf("A 1,;B"), -109);
}

TEST(UnitParser, NumberErrors) {
  EXPECT_EQ(ErrorOf("A 1.2.3"), -121);
  EXPECT_EQ(ErrorOf("A +"), -121);
  EXPECT_EQ(ErrorOf("A --1"), -121);
  EXPECT_EQ(ErrorOf("A 1E32001"), -123);
  EXPECT_EQ(ErrorOf("A 1E99999999999"), -123);
  EXPECT_EQ(ErrorOf("A 1E32000"), 0);
  EXPECT_EQ(ErrorOf("A " + std::string(255, '1')), 0);
  EXPECT_EQ(ErrorOf("A " + std::string(256, '1')), -124);
  EXPECT_EQ(ErrorOf("A 1 ABCDEFGHIJKLM"), -134);
  EXPECT_EQ(ErrorOf("A #H"), -121);
  EXPECT_EQ(ErrorOf("A #HG"), -121);
  EXPECT_EQ(ErrorOf("A #B2"), -121);
  EXPECT_EQ(ErrorOf("A #HFFFFFFFFFFFFFFFFF"), -124);
}

TEST(UnitParser, DataErrors) {
  EXPECT_EQ(ErrorOf("A ABCDEFGHIJKLM"), -144);
  EXPECT_EQ(ErrorOf("A \"x"), -151);
  EXPECT_EQ(ErrorOf("A 'x''"), -151);
  EXPECT_EQ(ErrorOf("A #"), -161);
  EXPECT_EQ(ErrorOf("A #X1"), -161);
  EXPECT_EQ(ErrorOf("A #15abc"), -161);
  EXPECT_EQ(ErrorOf("A #2"), -161);
  EXPECT_EQ(ErrorOf("A #2x1a"), -161);
  EXPECT_EQ(ErrorOf("A (1"), -170);
  EXPECT_EQ(ErrorOf("A $"), -101);
  EXPECT_EQ(ErrorOf("A :"), -102);
}

TEST(UnitParser, GoesOnFromAPathThatOtherUnitsLeftBehind) {
  UnitParser first("VOLT:DC:RANG 5");
  Unit unit;
  ASSERT_TRUE(first.Next(unit));
  UnitParser second("AUTO", first.Path());
  ASSERT_TRUE(second.Next(unit));
  ASSERT_EQ(unit.Header.size(), 3U);
  EXPECT_EQ(unit.Header[0].Name, "VOLT");
  EXPECT_EQ(unit.Header[1].Name, "DC");
  EXPECT_EQ(unit.Header[2].Name, "AUTO");
}

} // namespace
} // namespace portico::scpi
