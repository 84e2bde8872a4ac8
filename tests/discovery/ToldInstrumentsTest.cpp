#include "discovery/ToldInstruments.h"

#include <gtest/gtest.h>

#include <utility>

namespace portico::discovery {
namespace {

TEST(ToldInstrumentsTest, OneIsToldOnceWhateverItsCase) {
  ToldInstruments told;
  EXPECT_TRUE(told.Add(u"TCPIP0::192.0.2.7::inst0::INSTR"));
  EXPECT_FALSE(told.Add(u"TCPIP0::192.0.2.7::inst0::INSTR"));
  EXPECT_FALSE(told.Add(u"tcpip0::192.0.2.7::INST0::instr"));
  EXPECT_TRUE(told.Add(u"TCPIP0::192.0.2.8::inst0::INSTR"));
}

TEST(ToldInstrumentsTest, OneIsKnownByEveryNameThatOpensIt) {
  for (const auto& [known, found] : std::vector<std::pair<String, String>>{
           {u"TCPIP::192.0.2.7::INSTR", u"TCPIP0::192.0.2.7::inst0::INSTR"},
           {u"tcpip::192.0.2.7::5025::socket ", u"TCPIP0::192.0.2.7::5025::SOCKET"},
           {u"TCPIP::192.0.2.7::HiSLIP0::INSTR", u"TCPIP0::192.0.2.7::hislip0::INSTR"},
           {u"USB::4660::0xabcd::SN1::INSTR", u"USB0::0x1234::0xABCD::SN1::0::INSTR"},
           {u"ASRL/dev/ttyUSB0::9600::INSTR", u"ASRL/dev/ttyUSB0::INSTR"}}) {
    EXPECT_FALSE(ToldInstruments({known}).Add(found)) << ToUtf8(found);
  }
}

TEST(ToldInstrumentsTest, OtherNamesOpenOthers) {
  for (StringView known : {u"TCPIP::192.0.2.7::5025::SOCKET", u"TCPIP::192.0.2.7::hislip0::INSTR",
                           u"TCPIP::192.0.2.7,1024::INSTR", u"TCPIP::192.0.2.7::gpib0,22::INSTR", u"192.0.2.7"}) {
    EXPECT_TRUE(ToldInstruments({String(known)}).Add(u"TCPIP0::192.0.2.7::inst0::INSTR")) << ToUtf8(known);
  }
}

TEST(ToldInstrumentsTest, TextThatIsNoNameIsKnownAsItStands) {
  ToldInstruments told({u" a meter "});
  EXPECT_FALSE(told.Add(u"A Meter"));
  EXPECT_TRUE(told.Add(u"a meter 2"));
}

TEST(ToldInstrumentsTest, AThousandAreToldAndNoMore) {
  ToldInstruments told;
  for (int i = 1; i <= 1000; ++i) EXPECT_TRUE(told.Add(u"TCPIP::h::" + ToText(std::int64_t{i}) + u"::SOCKET"));
  EXPECT_FALSE(told.Add(u"TCPIP::h::1001::SOCKET"));
}

} // namespace
} // namespace portico::discovery
