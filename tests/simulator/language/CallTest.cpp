#include "simulator/language/Call.h"

#include "scpi/ScpiError.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

namespace portico::simulator {
namespace {

constexpr Limits Volts{-10, 10, 5, Quantity::Voltage};
constexpr Limits Plain{0, 100, 1};

/// Parses `A <parameters>` and gives the call to `use`.
template <class Use>
auto With(const std::string& parameters, Use use) {
  const std::string message = "A " + parameters;
  scpi::UnitParser parser(message);
  scpi::Unit unit;
  parser.Next(unit);
  const Suffixes suffixes{0, 3};
  return use(Call(unit, suffixes));
}

double Number(const std::string& parameters, const Limits& limits) {
  return With(parameters, [&](const Call& call) { return call.Number(0, limits); });
}

int ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const scpi::ScpiError& error) {
    return static_cast<int>(error.Code());
  }
  return 0;
}

int NumberError(const std::string& parameters, const Limits& limits) {
  return ErrorOf([&] { Number(parameters, limits); });
}

TEST(Call, NumbersWithUnits) {
  EXPECT_EQ(Number("1.5", Volts), 1.5);
  EXPECT_EQ(Number("+1.5", Volts), 1.5);
  EXPECT_EQ(Number("-.5", Volts), -0.5);
  EXPECT_DOUBLE_EQ(Number("250 MV", Volts), 0.25);
  EXPECT_DOUBLE_EQ(Number("0.001kv", Volts), 1);
  EXPECT_EQ(Number("#H0A", Volts), 10);
  EXPECT_EQ(Number("#Q12", Volts), 10);
  EXPECT_EQ(Number("#b11", Volts), 3);
}

TEST(Call, NumbersByName) {
  EXPECT_EQ(Number("MIN", Volts), -10);
  EXPECT_EQ(Number("maximum", Volts), 10);
  EXPECT_EQ(Number("DEF", Volts), 5);
  EXPECT_EQ(NumberError("MAXI", Volts), -141);
}

TEST(Call, NumbersOutOfRange) {
  EXPECT_EQ(NumberError("10.1", Volts), -222);
  EXPECT_EQ(NumberError("1E400", Volts), -222);
  EXPECT_EQ(NumberError("1E-400", Volts), 0);
  EXPECT_EQ(Number("1E-400", Volts), 0);
}

TEST(Call, UnitsThatDoNotFit) {
  EXPECT_EQ(NumberError("1 A", Volts), -131);
  EXPECT_EQ(NumberError("1 V", Plain), -138);
}

TEST(Call, TypesThatDoNotFit) {
  EXPECT_EQ(NumberError("'x'", Volts), -158);
  EXPECT_EQ(NumberError("#11x", Volts), -168);
  EXPECT_EQ(NumberError("(1)", Volts), -178);
  EXPECT_EQ(ErrorOf([] { With("1", [](const Call& call) { return call.String(0); }); }), -128);
  EXPECT_EQ(ErrorOf([] { With("#H1", [](const Call& call) { return call.String(0); }); }), -128);
  EXPECT_EQ(ErrorOf([] { With("MAX", [](const Call& call) { return call.String(0); }); }), -148);
  EXPECT_EQ(ErrorOf([] { With("MAX", [](const Call& call) { return call.Block(0); }); }), -148);
  EXPECT_EQ(ErrorOf([] {
              With("1", [](const Call& call) { return call.Keyword(0, std::array<std::string_view, 1>{"ON"}); });
            }),
            -128);
}

TEST(Call, IntegersAreRounded) {
  const auto integer = [](const std::string& text) {
    return With(text, [](const Call& call) { return call.Integer(0, 0, 255); });
  };
  EXPECT_EQ(integer("31.6"), 32);
  EXPECT_EQ(integer("#HFF"), 255);
  EXPECT_EQ(integer("255.4"), 255);
  EXPECT_EQ(ErrorOf([&] { integer("255.6"); }), -222);
  EXPECT_EQ(ErrorOf([&] { integer("-1"); }), -222);
  EXPECT_EQ(ErrorOf([&] { integer("1E300"); }), -222);
  EXPECT_EQ(ErrorOf([&] { integer("MAX"); }), -148);
  EXPECT_EQ(ErrorOf([&] { integer("1 V"); }), -138);
}

TEST(Call, Booleans) {
  const auto boolean = [](const std::string& text) {
    return With(text, [](const Call& call) { return call.Boolean(0); });
  };
  for (const char* text : {"ON", "on", "1", "2", "-1", "0.6"}) EXPECT_TRUE(boolean(text)) << text;
  for (const char* text : {"OFF", "off", "0", "0.4"}) EXPECT_FALSE(boolean(text)) << text;
  EXPECT_EQ(ErrorOf([&] { boolean("YES"); }), -224);
  EXPECT_EQ(ErrorOf([&] { boolean("'ON'"); }), -158);
}

TEST(Call, WholeNumbersTakeNamedLimits) {
  constexpr Limits Count{2, 10, 5};
  const auto whole = [&](const std::string& text) {
    return With(text, [&](const Call& call) { return call.Whole(0, Count); });
  };
  EXPECT_EQ(whole("3.6"), 4);
  EXPECT_EQ(whole("MIN"), 2);
  EXPECT_EQ(whole("MAXIMUM"), 10);
  EXPECT_EQ(whole("def"), 5);
  EXPECT_EQ(ErrorOf([&] { whole("11"); }), -222);
  EXPECT_EQ(ErrorOf([&] { whole("MOST"); }), -141);
  EXPECT_EQ(ErrorOf([&] { whole("'MAX'"); }), -158);
}

TEST(Call, Keywords) {
  const auto keyword = [](const std::string& text) {
    return With(text, [](const Call& call) {
      return call.Keyword(0, std::array<std::string_view, 2>{"NORMal", "AVERage"});
    });
  };
  EXPECT_EQ(keyword("NORM"), 0U);
  EXPECT_EQ(keyword("average"), 1U);
  EXPECT_EQ(ErrorOf([&] { keyword("AVERA"); }), -224);
  EXPECT_TRUE(With("AUTO", [](const Call& call) { return call.IsKeyword(0, "AUTO"); }));
  EXPECT_FALSE(With("'AUTO'", [](const Call& call) { return call.IsKeyword(0, "AUTO"); }));
}

TEST(Call, StringsLoseTheirDoubledQuotes) {
  const auto string = [](const std::string& text) {
    return With(text, [](const Call& call) { return call.String(0); });
  };
  EXPECT_EQ(string("\"a\"\"b\""), "a\"b");
  EXPECT_EQ(string("'it''s'"), "it's");
  EXPECT_EQ(string("'a\"\"b'"), "a\"\"b");
  EXPECT_EQ(string("\"\""), "");
}

TEST(Call, LimitsAreAskedForByName) {
  const auto asked = [](const std::string& text) {
    return With(text, [](const Call& call) { return call.LimitOr(7, Volts); });
  };
  EXPECT_EQ(asked(""), 7);
  EXPECT_EQ(asked("MIN"), -10);
  EXPECT_EQ(asked("MAX"), 10);
  EXPECT_EQ(asked("DEF"), 5);
  EXPECT_EQ(ErrorOf([&] { asked("3"); }), -128);
}

TEST(Call, SuffixesDefaultToOne) {
  With("", [](const Call& call) {
    EXPECT_FALSE(call.HasSuffix(0));
    EXPECT_EQ(call.Suffix(0), 1U);
    EXPECT_TRUE(call.HasSuffix(1));
    EXPECT_EQ(call.Suffix(1), 3U);
  });
}

} // namespace
} // namespace portico::simulator
