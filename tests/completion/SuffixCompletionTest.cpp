#include "completion/Completion.h"

#include "completion/Offered.h"

#include <gtest/gtest.h>

namespace portico::completion {
namespace {

using test::Offered;

TEST(SuffixCompletion, EachThatANodeMayHaveIsOffered) {
  EXPECT_EQ(Offered(u"ch", {"CHANnel<1-3>:SCALe"}), "chan: chan1: chan2: chan3:");
  EXPECT_EQ(Offered(u"OUT", {"OUTPut<1-2>[:STATe]/nquery/"}), "OUTP OUTP: OUTP1 OUTP1: OUTP2 OUTP2:");
  EXPECT_EQ(Offered(u"MARK", {"MARKer<2-3>?"}), "MARK2? MARK3?");
  EXPECT_EQ(Offered(u"MARK", {"MARKer<0-1>?"}), "MARK? MARK0? MARK1?");
  EXPECT_EQ(Offered(u"TEST", {"TEST2?"}), "TEST2?");
}

TEST(SuffixCompletion, OfManyTheFirstAreOffered) {
  EXPECT_EQ(Offered(u"A", {"A<n>?"}), "A? A1? A2? A3? A4? A5? A6? A7? A8?");
  EXPECT_EQ(Offered(u"A", {"A<10-20>?"}), "A10? A11? A12? A13? A14? A15? A16? A17?");
}

TEST(SuffixCompletion, OneThatIsTypedIsKept) {
  EXPECT_EQ(Offered(u"CHAN2", {"CHANnel<1-4>:SCALe"}), "CHAN2:");
  EXPECT_EQ(Offered(u"channel2", {"CHANnel<1-4>:SCALe"}), "channel2:");
  EXPECT_EQ(Offered(u"A4242", {"A<n>?"}), "A4242?");
  EXPECT_EQ(Offered(u"A1", {"A<1-12>?"}), "A1?");
  EXPECT_EQ(Offered(u"A1", {"A<10-12>?"}), "A10? A11? A12?");
  EXPECT_EQ(Offered(u"CHAN5", {"CHANnel<1-4>:SCALe"}), "");
  EXPECT_EQ(Offered(u"CHAN0", {"CHANnel<1-4>:SCALe"}), "");
  EXPECT_EQ(Offered(u"CHAN01", {"CHANnel<1-4>:SCALe"}), "");
  EXPECT_EQ(Offered(u"CHA2", {"CHANnel<1-4>:SCALe"}), "");
  EXPECT_EQ(Offered(u"A99999999999", {"A<n>?"}), "");
}

TEST(SuffixCompletion, LeadsOnOnlyInItsRange) {
  const test::Lines lines = {"CHANnel<1-4>:SCALe?", "VOLTage:RANGe?", "TEST2:X?"};
  EXPECT_EQ(Offered(u"CHAN:", lines), "CHAN:SCAL?");
  EXPECT_EQ(Offered(u"CHAN4:", lines), "CHAN4:SCAL?");
  EXPECT_EQ(Offered(u"CHAN5:", lines), "");
  EXPECT_EQ(Offered(u"VOLT1:", lines), "VOLT1:RANG?");
  EXPECT_EQ(Offered(u"VOLT2:", lines), "");
  EXPECT_EQ(Offered(u"TEST2:", lines), "TEST2:X?");
  EXPECT_EQ(Offered(u"TEST:", lines), "");
  EXPECT_EQ(Offered(u"CHAN4:SCAL?;SC", lines), "CHAN4:SCAL?;SCAL?");
}

} // namespace
} // namespace portico::completion
