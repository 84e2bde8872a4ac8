#include "instructions/CInstProcessors.h"

#include "support/ErrorReports.h"
#include "support/doubles/InstructionFakes.h"

namespace portico {
namespace {

using test::FailureOf;
using test::InstructionFakeHandler;

class CInstProcessorsTest : public ::testing::Test {
protected:
  Ref<IInstProcessor> Processor(const std::string& name) {
    return New<InstructionFakeHandler>(m_journal, u"X", name, 0);
  }

  CInstProcessors m_processors;

private:
  test::Journal m_journal;
};

TEST_F(CInstProcessorsTest, AddReturnsTheNewItem) {
  const auto processor = Processor("one");
  EXPECT_TRUE(IsSameObject(m_processors.Add(processor, u"SCPI"), processor));
  EXPECT_EQ(m_processors.Count(), 1U);
}

TEST_F(CInstProcessorsTest, FindsByKeyWithoutRegardToCaseAndByPosition) {
  const auto one = m_processors.Add(Processor("one"), u"COMM");
  const auto two = m_processors.Add(Processor("two"), u"SCPI");
  EXPECT_TRUE(IsSameObject(m_processors.Item(u"scpi"), two));
  EXPECT_TRUE(IsSameObject(m_processors.Item(1), one));
  EXPECT_TRUE(IsSameObject(m_processors.Item(2), two));
}

TEST_F(CInstProcessorsTest, AnEmptyKeyStandsForNone) {
  m_processors.Add(Processor("one"), u"");
  m_processors.Add(Processor("two"), u"");
  EXPECT_EQ(m_processors.Count(), 2U);
  EXPECT_FALSE(m_processors.Item(u""));
}

TEST_F(CInstProcessorsTest, AnAbsentItemIsNothingAndNoError) {
  EXPECT_FALSE(m_processors.Item(u"SCPI"));
  EXPECT_FALSE(m_processors.Item(1));
  EXPECT_FALSE(m_processors.Item(0));
  EXPECT_FALSE(m_processors.Item(-1));
}

TEST_F(CInstProcessorsTest, AnItemBeyond32BitsIsAbsentToo) {
  m_processors.Add(Processor("one"), u"SCPI");
  EXPECT_FALSE(m_processors.Item(4294967297.0));
  EXPECT_EQ(FailureOf([&] { m_processors.Remove(4294967297.0); }).Number, 5);
  EXPECT_EQ(m_processors.Count(), 1U);
}

TEST_F(CInstProcessorsTest, AnyOtherErrorOfItemPassesTheTail) {
  const auto failure = FailureOf([&] { m_processors.Item(Params{u"SCPI"}); });
  EXPECT_EQ(failure.Number, 13);
  EXPECT_EQ(failure.Trail, std::vector<String>{u"CInstProcessors.Item(IndexOrKey={Array})"});
}

TEST_F(CInstProcessorsTest, ASecondItemUnderAKeyIsRefused) {
  m_processors.Add(Processor("one"), u"SCPI");
  const auto failure = FailureOf([&] { m_processors.Add(Processor("two"), u"scpi"); });
  EXPECT_EQ(failure.Number, 457);
  EXPECT_EQ(failure.Trail, std::vector<String>{u"CInstProcessors.Add(NewItem={InstructionFakeHandler}, Key='scpi')"});
}

TEST_F(CInstProcessorsTest, RemovesByKeyAndByPosition) {
  m_processors.Add(Processor("one"), u"COMM");
  const auto two = m_processors.Add(Processor("two"), u"SCPI");
  m_processors.Add(Processor("three"), u"CONFIG");
  m_processors.Remove(u"config");
  m_processors.Remove(1);
  ASSERT_EQ(m_processors.Count(), 1U);
  EXPECT_TRUE(IsSameObject(m_processors.Item(1), two));
}

TEST_F(CInstProcessorsTest, RemovingWhatIsAbsentRaises) {
  const auto byKey = FailureOf([&] { m_processors.Remove(u"SCPI"); });
  EXPECT_EQ(byKey.Number, 5);
  EXPECT_EQ(byKey.Trail, std::vector<String>{u"CInstProcessors.Remove(IndexOrKey='SCPI')"});
  EXPECT_EQ(FailureOf([&] { m_processors.Remove(1); }).Number, 5);
}

TEST_F(CInstProcessorsTest, EnumeratesInOrderOfInsertion) {
  const auto one = m_processors.Add(Processor("one"), u"");
  const auto two = m_processors.Add(Processor("two"), u"A");
  const auto all = m_processors.NewEnum();
  ASSERT_EQ(all.size(), 2U);
  EXPECT_TRUE(IsSameObject(all[0], one));
  EXPECT_TRUE(IsSameObject(all[1], two));
}

} // namespace
} // namespace portico
