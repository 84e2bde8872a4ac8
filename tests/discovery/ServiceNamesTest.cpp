#include "discovery/ServiceNames.h"

#include "discovery/FoundText.h"

#include <gtest/gtest.h>

namespace portico::discovery {
namespace {

using test::FoundText;
using test::FoundTexts;
using Texts = std::vector<std::string>;

std::string Added(const mdns::Service& service) {
  ServiceNames names;
  const auto found = names.Add(service);
  return found ? FoundText(*found) : "";
}

TEST(ServiceNamesTest, EachTypeHasItsFormOfName) {
  EXPECT_EQ(Added({"_scpi-raw._tcp", "Meter", "192.0.2.7", 5025}), "TCPIP0::192.0.2.7::5025::SOCKET|Meter");
  EXPECT_EQ(Added({"_vxi-11._tcp", "Meter", "192.0.2.7", 111}), "TCPIP0::192.0.2.7::inst0::INSTR|Meter");
  EXPECT_EQ(Added({"_hislip._tcp", "Meter", "192.0.2.7", 4880}), "TCPIP0::192.0.2.7::hislip0::INSTR|Meter");
}

TEST(ServiceNamesTest, PortsThatAreNotUsualStandInTheName) {
  EXPECT_EQ(Added({"_vxi-11._tcp", "Meter", "192.0.2.7", 1024}), "TCPIP0::192.0.2.7,1024::inst0::INSTR|Meter");
  EXPECT_EQ(Added({"_hislip._tcp", "Meter", "192.0.2.7", 4881}), "TCPIP0::192.0.2.7::hislip0,4881::INSTR|Meter");
}

TEST(ServiceNamesTest, OtherServicesAreNone) {
  EXPECT_EQ(Added({"_http._tcp", "Printer", "192.0.2.8", 80}), "");
  EXPECT_EQ(Added({"_scpi-raw._tcp", "Meter", "192.0.2.7", 0}), "");
}

TEST(ServiceNamesTest, InstrumentIntroducesItself) {
  EXPECT_EQ(Added({"_scpi-raw._tcp",
                   "Meter",
                   "192.0.2.7",
                   5025,
                   {"txtvers=1", "FirmwareVersion=1.0", "SerialNumber=SN1", "Model=M7", "Manufacturer=Tolvane, Inc."}}),
            "TCPIP0::192.0.2.7::5025::SOCKET|Tolvane, Inc., M7, SN1, 1.0");
}

TEST(ServiceNamesTest, WhatItDoesNotTellIsLeftOut) {
  EXPECT_EQ(Added({"_scpi-raw._tcp", "Meter", "192.0.2.7", 5025, {"model=M7", "SerialNumber=", "Manufacturer"}}),
            "TCPIP0::192.0.2.7::5025::SOCKET|M7");
  EXPECT_EQ(Added({"_hislip._tcp", "Meter", "192.0.2.7", 4880, {"path=/"}}), "TCPIP0::192.0.2.7::hislip0::INSTR|Meter");
  EXPECT_EQ(Added({"_hislip._tcp", "Meter", "192.0.2.7", 4880, {"Model="}}), "TCPIP0::192.0.2.7::hislip0::INSTR|Meter");
}

TEST(ServiceNamesTest, WhatItTellsTwiceIsWhatItTellsFirst) {
  EXPECT_EQ(Added({"_hislip._tcp", "Meter", "192.0.2.7", 4880, {"Model=M7", "model=M8"}}),
            "TCPIP0::192.0.2.7::hislip0::INSTR|M7");
}

TEST(ServiceNamesTest, WhateverItTellsIsOneLineOfText) {
  EXPECT_EQ(Added({"_scpi-raw._tcp", "Me\tt\x1B[2Jer\n", "192.0.2.7", 5025}),
            "TCPIP0::192.0.2.7::5025::SOCKET|Me?t?[2Jer?");
  EXPECT_NE(Added({"_scpi-raw._tcp", "\xFF\xFE", "192.0.2.7", 5025}).find("TCPIP0::192.0.2.7::5025::SOCKET|"),
            std::string::npos);
}

TEST(ServiceNamesTest, WebPageAloneStandsForVxi11OnceAllHaveAnswered) {
  ServiceNames names;
  EXPECT_FALSE(names.Add({"_lxi._tcp", "Meter", "192.0.2.7", 80, {"Model=M7"}}));
  EXPECT_EQ(FoundTexts(names.Settle()), Texts{"TCPIP0::192.0.2.7::inst0::INSTR|M7"});
  EXPECT_EQ(FoundTexts(names.Settle()), Texts{});
}

TEST(ServiceNamesTest, WebPageThatIsHeardTwiceComesOnce) {
  ServiceNames names;
  for (int i = 0; i < 2; ++i) names.Add({"_lxi._tcp", "Meter", "192.0.2.7", 80});
  EXPECT_EQ(FoundTexts(names.Settle()), Texts{"TCPIP0::192.0.2.7::inst0::INSTR|Meter"});
}

TEST(ServiceNamesTest, WebPageOfAnInstrumentThatHasTalkedOtherwiseSaysNothingMore) {
  ServiceNames names;
  names.Add({"_lxi._tcp", "One", "192.0.2.7", 80});
  names.Add({"_hislip._tcp", "One", "192.0.2.7", 4880});
  names.Add({"_scpi-raw._tcp", "Two", "192.0.2.8", 5025});
  names.Add({"_lxi._tcp", "Two", "192.0.2.8", 80});
  EXPECT_EQ(FoundTexts(names.Settle()), Texts{});
}

std::string Address(int number) { return "10.0." + std::to_string(number / 200) + '.' + std::to_string(number % 200); }

TEST(ServiceNamesTest, KeepsAThousandWebPagesAndNoMore) {
  ServiceNames names;
  for (int i = 0; i < 1001; ++i) names.Add({"_lxi._tcp", "Meter", Address(i), 80});
  EXPECT_EQ(names.Settle().size(), 1000U);
  names.Add({"_lxi._tcp", "Meter", "192.0.2.7", 80});
  EXPECT_EQ(FoundTexts(names.Settle()), Texts{});
}

TEST(ServiceNamesTest, KeepsAThousandAddressesThatHaveTalkedAndNoMore) {
  ServiceNames names;
  for (int i = 0; i < 1001; ++i) EXPECT_TRUE(names.Add({"_scpi-raw._tcp", "Meter", Address(i), 5025}));
  names.Add({"_lxi._tcp", "Meter", "192.0.2.7", 80}); // it is no longer known who has talked
  EXPECT_EQ(FoundTexts(names.Settle()), Texts{});
}

TEST(ServiceNamesTest, BrowsesForFourTypes) {
  EXPECT_EQ(ServiceNames::Types(), (Texts{"_lxi._tcp", "_scpi-raw._tcp", "_vxi-11._tcp", "_hislip._tcp"}));
}

} // namespace
} // namespace portico::discovery
