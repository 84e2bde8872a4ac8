#include "logtool/Logs.h"

#include <gtest/gtest.h>

namespace portico::logtool {
namespace {

const std::string Minute = "2004-11-01T16:42:";

/// The table, with the stamps' seconds alone, and its complaints.
Result TableOf(const std::string& entities, const std::string& query = "MEAS?") {
  auto result =
      RunOn({.Wanted = Output::Table, .Files = {"-"}, .Query = FromUtf8(query).Text}, Log(SessionOf(entities)));
  for (const std::string& piece : {Minute, std::string(".000000000-5:00")}) {
    for (auto place = result.Out.find(piece); place != std::string::npos; place = result.Out.find(piece)) {
      result.Out.erase(place, piece.size());
    }
  }
  return result;
}

std::string Answered(const std::string& second, const std::string& answer, const std::string& query = "MEAS?\r\n") {
  return Element("Instruction", second, query) + Element("Response", second, answer);
}

TEST(TableOutputTest, AnAnswerIsARowAndANumberAColumn) {
  const auto result = TableOf(Answered("01", "+1.00023400E+00,-2\r\n") + Answered("02", "3"));
  EXPECT_EQ(result.Out, "Timestamp,Value1,Value2\r\n"
                        "01,+1.00023400E+00,-2\r\n"
                        "02,3,\r\n");
  EXPECT_EQ(result.Err, "");
  EXPECT_EQ(result.Status, 0);
}

TEST(TableOutputTest, StampsAreWholeOnes) {
  const auto result =
      RunOn({.Wanted = Output::Table, .Files = {"-"}, .Query = u"MEAS?"}, Log(SessionOf(Answered("01", "1"))));
  EXPECT_EQ(result.Out, "Timestamp,Value1\r\n2004-11-01T16:42:01.000000000-5:00,1\r\n");
}

TEST(TableOutputTest, OnlyAnswersToTheQueryAreRows) {
  const auto result =
      TableOf(Element("Response", "00", "7") + Answered("01", "1", " meas? ") + Answered("02", "2", "MEAS:VOLT?") +
              Answered("03", "3") + Element("AutomaticInstruction", "04", ":SYST:ERR?") +
              Element("Response", "04", "0,\"No error\"") + Answered("05", "5", "MEAS? 1"));
  EXPECT_EQ(result.Out, "Timestamp,Value1\r\n01,1\r\n03,3\r\n");
}

TEST(TableOutputTest, AQueryThatWasSentByItselfCountsToo) {
  const auto result = TableOf(Element("AutomaticInstruction", "01", "*OPC?") + Element("Response", "01", "1"), "*opc?");
  EXPECT_EQ(result.Out, "Timestamp,Value1\r\n01,1\r\n");
}

TEST(TableOutputTest, AnAnswerOfAnotherSessionIsNone) {
  const auto result =
      RunOn({.Wanted = Output::Table, .Files = {"-"}, .Query = u"MEAS?"},
            Log(SessionOf(Element("Instruction", "01", "MEAS?")) + SessionOf(Element("Response", "02", "1"))));
  EXPECT_EQ(result.Out, "Timestamp\r\n");
}

TEST(TableOutputTest, AUnitHasAColumnWhereThereIsOne) {
  const auto result = TableOf(Answered("01", "1,2 V,3") + Answered("02", "4,5,6"));
  EXPECT_EQ(result.Out, "Timestamp,Value1,Value2,Unit2,Value3\r\n"
                        "01,1,2,V,3\r\n"
                        "02,4,5,,6\r\n");
}

TEST(TableOutputTest, GapsAndOverloadsAreToldApart) {
  const auto result = TableOf(Answered("01", "9.91E37,9.9E37,-9.9E37,9.8E37"));
  EXPECT_EQ(result.Out, "Timestamp,Value1,Value2,Value3,Value4\r\n01,NaN,Inf,-Inf,9.8E37\r\n");
}

TEST(TableOutputTest, NumbersOfOtherBasesAreDecimal) {
  const auto result = TableOf(Answered("01", "#HFF,#Q17,#B101,#HFFFFFFFFFFFFFFFF"));
  EXPECT_EQ(result.Out, "Timestamp,Value1,Value2,Value3,Value4\r\n01,255,15,5,18446744073709551616\r\n")
      << "the last as a double has it";
}

TEST(TableOutputTest, AnAnswerThatIsNoNumbersIsTold) {
  const auto result = TableOf(Answered("01", "1,2") + Answered("02", "OFF") + Answered("03", "#15hello"));
  EXPECT_EQ(result.Out, "Timestamp,Value1,Value2\r\n01,1,2\r\n02,,\r\n03,,\r\n");
  EXPECT_EQ(result.Err, "portico-log: standard input: the answer of 2004-11-01T16:42:02.000000000-5:00 is no list of "
                        "numbers (and 1 more like it)\n");
  EXPECT_EQ(result.Status, 1);
}

TEST(TableOutputTest, AStampThatIsNoneStaysInItsField) {
  const auto result = RunOn(
      {.Wanted = Output::Table, .Files = {"-"}, .Query = u"MEAS?"},
      Log(SessionOf(Element("Instruction", "01", "MEAS?") +
                    "<Response DataType=\"Response\" Timestamp=\"a,&#10;b\" DataFormat=\"String\">1</Response>")));
  EXPECT_EQ(result.Out, "Timestamp,Value1\r\n\"a,?b\",1\r\n");
}

TEST(TableOutputTest, ManyRowsAreKeptInTheirOrder) {
  std::string entities;
  std::string expected = "Timestamp,Value1\r\n";
  for (int i = 0; i < 5'000; ++i) {
    entities += Answered("01", std::to_string(i));
    expected += "01," + std::to_string(i) + "\r\n";
  }
  EXPECT_EQ(TableOf(entities).Out, expected);
}

} // namespace
} // namespace portico::logtool
