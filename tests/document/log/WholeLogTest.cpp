#include "document/log/WholeLog.h"

#include "support/Files.h"
#include "support/LogTexts.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

using test::LogElementOf;

/// How many entities it was told of.
class Counter final : public ILogVisitor {
public:
  void Entity(const LogElement& /*element*/) override { ++Entities; }
  int Entities = 0;
};

const std::string Whole = test::LogOf(test::LogSessionOf(LogElementOf("Instruction", "01", "*IDN?")));

class WholeLogTest : public testing::Test {
protected:
  LogFinding Read(const std::string& bytes) {
    m_folder.Write("a.log", bytes);
    m_counter = {};
    return ReadWholeLog(m_folder.At("a.log"), m_counter);
  }

  test::TemporaryFolder m_folder;
  Counter m_counter;
};

TEST_F(WholeLogTest, OfASoundLogNothingIsWrong) {
  const auto finding = Read(Whole);
  EXPECT_EQ(finding.Fault, "");
  EXPECT_FALSE(finding.IsTorn);
  EXPECT_EQ(m_counter.Entities, 1);
}

TEST_F(WholeLogTest, ALogWhoseEndIsMissingIsTornAndWhatIsThereIsSound) {
  const auto finding = Read(Whole.substr(0, Whole.find("</Session>")));
  EXPECT_EQ(finding.Fault, "its end is missing (line 1: no element found)");
  EXPECT_TRUE(finding.IsTorn);
  EXPECT_EQ(m_counter.Entities, 1);
}

TEST_F(WholeLogTest, WhatIsNoLogOrBrokenIsNotTorn) {
  for (const std::string& bytes : {std::string("no log"), std::string("<a/>"), test::LogHead + "<Session></x>"}) {
    const auto finding = Read(bytes);
    EXPECT_NE(finding.Fault, "") << bytes;
    EXPECT_FALSE(finding.IsTorn) << bytes;
  }
}

TEST_F(WholeLogTest, ALogOfAnotherProgramIsReadNoFurtherThanItsHeader) {
  std::string other = Whole;
  other.replace(other.find("Tolvane"), 7, "Another");
  EXPECT_EQ(Read(other).Fault, "it is no log of Tolvane Portico");
  EXPECT_EQ(m_counter.Entities, 0);
}

TEST_F(WholeLogTest, WhatCannotBeOpenedIsTold) {
  EXPECT_EQ(ReadWholeLog(m_folder.At("none"), m_counter).Fault, "it cannot be opened");
  EXPECT_EQ(ReadWholeLog(m_folder.Path().string(), m_counter).Fault, "it is a directory");
}

} // namespace
} // namespace portico
