#include "completion/Completion.h"

#include "completion/Offered.h"

#include <gtest/gtest.h>

namespace portico::completion {
namespace {

using test::Offered;

const test::Lines Known = {
    "[SENSe:]VOLTage[:DC]:RANGe", "[SENSe:]VOLTage[:DC]:NPLCycles", "SYSTem:ERRor?", "*CLS/nquery/",
    "DISPlay:TEXT/nquery/",       "DISPlay:CLEar/nquery/"};

TEST(HeaderPath, GoesOnBehindASemicolon) {
  EXPECT_EQ(Offered(u"VOLT:RANG 5;N", Known), "VOLT:RANG 5;NPLC VOLT:RANG 5;NPLC?");
  EXPECT_EQ(Offered(u"VOLT:RANG 5; N", Known), "VOLT:RANG 5; NPLC VOLT:RANG 5; NPLC?");
  EXPECT_EQ(Offered(u"VOLT:RANG?;", Known),
            "VOLT:RANG?;DC: VOLT:RANG?;NPLC VOLT:RANG?;NPLC? VOLT:RANG?;RANG VOLT:RANG?;RANG?");
  EXPECT_EQ(Offered(u"VOLT:RANG 5;SYST", Known), "");
  EXPECT_EQ(Offered(u"SENS:VOLT:RANG 5;RANG?;N", Known), "SENS:VOLT:RANG 5;RANG?;NPLC SENS:VOLT:RANG 5;RANG?;NPLC?");
}

TEST(HeaderPath, OfAHeaderWithOneNodeIsTheRoot) { EXPECT_EQ(Offered(u"ABOR;SY", Known), "ABOR;SYST:"); }

TEST(HeaderPath, AColonBeginsAtTheRoot) {
  EXPECT_EQ(Offered(u"VOLT:RANG 5;:S", Known), "VOLT:RANG 5;:SENS: VOLT:RANG 5;:SYST:");
  EXPECT_EQ(Offered(u"VOLT:RANG 5;:DISP:TEXT;C", Known), "VOLT:RANG 5;:DISP:TEXT;CLE");
}

TEST(HeaderPath, ACommonCommandLeavesItAlone) {
  EXPECT_EQ(Offered(u"VOLT:RANG 5;*CLS;N", Known), "VOLT:RANG 5;*CLS;NPLC VOLT:RANG 5;*CLS;NPLC?");
  EXPECT_EQ(Offered(u"VOLT:RANG 5;*", Known), "VOLT:RANG 5;*CLS");
}

TEST(HeaderPath, IsNotLedAstrayByStringsAndBlocks) {
  EXPECT_EQ(Offered(u"DISP:TEXT \"a;b\";C", Known), "DISP:TEXT \"a;b\";CLE");
  EXPECT_EQ(Offered(u"DISP:TEXT #13;;;;C", Known), "DISP:TEXT #13;;;;CLE");
  EXPECT_EQ(Offered(u"DISP:TEXT \"a;C", Known), "");
  EXPECT_EQ(Offered(u"DISP:TEXT #15;;C", Known), "");
}

TEST(HeaderPath, AUnitThatCannotBeReadLeavesItAlone) {
  EXPECT_EQ(Offered(u"VOLT:RANG 5;$$;N", Known), "VOLT:RANG 5;$$;NPLC VOLT:RANG 5;$$;NPLC?");
  EXPECT_EQ(Offered(u"VOLT:RANG 5 6 7;N", Known), "VOLT:RANG 5 6 7;NPLC VOLT:RANG 5 6 7;NPLC?");
  EXPECT_EQ(Offered(u"VOLT:RANG 5;;N", Known), "VOLT:RANG 5;;NPLC VOLT:RANG 5;;NPLC?");
}

TEST(HeaderPath, TheWayOfWritingGoesOnToo) {
  EXPECT_EQ(Offered(u"voltage:range 5;:s", Known), "voltage:range 5;:sense: voltage:range 5;:system:");
  EXPECT_EQ(Offered(u"voltage:range 5;", Known),
            "voltage:range 5;dc: voltage:range 5;nplcycles voltage:range 5;nplcycles? voltage:range 5;range "
            "voltage:range 5;range?");
  EXPECT_EQ(Offered(u"unknown:x;:", {"SYSTem:ERRor?"}), "unknown:x;:syst:");
}

} // namespace
} // namespace portico::completion
