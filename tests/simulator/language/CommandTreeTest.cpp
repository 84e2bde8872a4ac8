#include "simulator/language/CommandTree.h"

#include "scpi/ScpiError.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

/// Writes down what was called, with the suffixes.
class Recorder {
public:
  Recorder() {
    static constexpr Command<Recorder> Table[] = {
        {"*TST?", &Recorder::Test},
        {"[SENSe:]VOLTage[:DC]:RANGe", &Recorder::Range, 1, 2},
        {"[SENSe:]VOLTage[:DC]:RANGe?", &Recorder::RangeQuery},
        {"[SENSe:]VOLTage:AC:RANGe", &Recorder::AcRange, 1, 1},
        {"OUTPut<1-3>[:STATe]", &Recorder::Output, 0, 0},
        {"[SOURce<1-2>:]MARKer<1-4>:LEVel", &Recorder::Marker},
    };
    m_tree.Add(Table, *this);
  }

  std::string Invoke(std::string_view message) {
    m_called.clear();
    scpi::UnitParser parser(message);
    scpi::Unit unit;
    parser.Next(unit);
    try {
      m_tree.Invoke(unit);
    } catch (const scpi::ScpiError& error) {
      EXPECT_EQ(m_called, "");
      return std::to_string(static_cast<int>(error.Code()));
    }
    return m_called;
  }

  std::string Headers() const { return m_tree.Headers(); }

private:
  void Test(const Call& /*call*/) { m_called = "test"; }
  void Range(const Call& /*call*/) { m_called = "range"; }
  void RangeQuery(const Call& /*call*/) { m_called = "range?"; }
  void AcRange(const Call& /*call*/) { m_called = "ac range"; }
  void Output(const Call& call) { m_called = "output " + std::to_string(call.Suffix(0)); }
  void Marker(const Call& call) {
    m_called = "marker " + std::to_string(call.Suffix(0)) + ' ' + std::to_string(call.Suffix(1));
  }

  CommandTree m_tree;
  std::string m_called;
};

TEST(CommandTree, FindsEveryFormOfAHeader) {
  Recorder recorder;
  for (const char* header : {"SENS:VOLT:DC:RANG", "SENSE:VOLTAGE:DC:RANGE", "sens:volt:rang", "VOLT:DC:RANG",
                             "VOLT:RANG", "Volt:Range", ":SENSe:VOLTage:RANG"}) {
    EXPECT_EQ(recorder.Invoke(std::string(header) + " 1"), "range") << header;
  }
}

TEST(CommandTree, TellsQueriesFromCommands) {
  Recorder recorder;
  EXPECT_EQ(recorder.Invoke("VOLT:RANG?"), "range?");
  EXPECT_EQ(recorder.Invoke("*TST?"), "test");
  EXPECT_EQ(recorder.Invoke("*TST"), "-113");
  EXPECT_EQ(recorder.Invoke("OUTP?"), "-113");
}

TEST(CommandTree, BranchesBesideAnOptionalNode) {
  Recorder recorder;
  EXPECT_EQ(recorder.Invoke("VOLT:AC:RANG 1"), "ac range");
  EXPECT_EQ(recorder.Invoke("VOLT:DC:AC:RANG 1"), "-113");
}

TEST(CommandTree, KnowsNoOtherForms) {
  Recorder recorder;
  for (const char* header : {"VOLTA:RANG", "VOLT", "RANG", "SENS", "VOLT:RANG:X", "SENS:SENS:VOLT:RANG", "TST?"}) {
    EXPECT_EQ(recorder.Invoke(header), "-113") << header;
  }
}

TEST(CommandTree, CountsTheParameters) {
  Recorder recorder;
  EXPECT_EQ(recorder.Invoke("VOLT:RANG"), "-109");
  EXPECT_EQ(recorder.Invoke("VOLT:RANG 1,2"), "range");
  EXPECT_EQ(recorder.Invoke("VOLT:RANG 1,2,3"), "-108");
  EXPECT_EQ(recorder.Invoke("*TST? 1"), "-108");
}

TEST(CommandTree, TakesSuffixesInTheirRange) {
  Recorder recorder;
  EXPECT_EQ(recorder.Invoke("OUTP"), "output 1");
  EXPECT_EQ(recorder.Invoke("OUTPUT2"), "output 2");
  EXPECT_EQ(recorder.Invoke("OUTP3:STAT"), "output 3");
  EXPECT_EQ(recorder.Invoke("OUTP0"), "-114");
  EXPECT_EQ(recorder.Invoke("OUTP4"), "-114");
  EXPECT_EQ(recorder.Invoke("OUTP99999999"), "-114");
}

TEST(CommandTree, ANodeWithoutARangeIsItsOwnFirst) {
  Recorder recorder;
  EXPECT_EQ(recorder.Invoke("VOLT1:RANG1 5"), "range");
  EXPECT_EQ(recorder.Invoke("VOLT2:RANG 5"), "-114");
}

TEST(CommandTree, SuffixesKeepTheirSlotsWhenANodeIsLeftOut) {
  Recorder recorder;
  EXPECT_EQ(recorder.Invoke("SOUR2:MARK3:LEV"), "marker 2 3");
  EXPECT_EQ(recorder.Invoke("MARK4:LEV"), "marker 1 4");
  EXPECT_EQ(recorder.Invoke("SOUR:MARK:LEV"), "marker 1 1");
}

TEST(CommandTree, TellsItsHeaders) {
  EXPECT_EQ(Recorder().Headers(), "*TST?/qonly/\n"
                                  ":OUTPut<1-3>[:STATe]/nquery/\n"
                                  "[:SENSe]:VOLTage:AC:RANGe/nquery/\n"
                                  "[:SENSe]:VOLTage[:DC]:RANGe\n"
                                  "[:SOURce<1-2>]:MARKer<1-4>:LEVel/nquery/\n");
}

} // namespace
} // namespace portico::simulator
