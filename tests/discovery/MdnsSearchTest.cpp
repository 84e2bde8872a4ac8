#include "discovery/MdnsSearch.h"

#include "discovery/FoundText.h"
#include "discovery/ServiceNames.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace portico::discovery {
namespace {

using test::FoundTexts;
using Texts = std::vector<std::string>;
using Network = std::function<void(mdns::IServiceListener&)>;

/// What a search finds on that network.
Texts Found(const Network& network) {
  const auto done = std::make_shared<std::promise<void>>(); // the thread may outlive this
  MdnsSearch search([&network, done](const auto& types, mdns::IServiceListener& listener, const auto&) {
    EXPECT_EQ(types, ServiceNames::Types());
    network(listener);
    done->set_value();
  });
  done->get_future().wait();
  Texts texts = FoundTexts(search.Take());
  EXPECT_EQ(FoundTexts(search.Take()), Texts{}) << "what was taken";
  return texts;
}

TEST(MdnsSearchTest, ServicesAreInstruments) {
  EXPECT_EQ(Found([](mdns::IServiceListener& listener) {
              listener.Found({"_scpi-raw._tcp", "One", "192.0.2.7", 5025});
              listener.Found({"_http._tcp", "Printer", "192.0.2.8", 80});
              listener.Found({"_hislip._tcp", "Two", "192.0.2.9", 4880});
            }),
            (Texts{"TCPIP0::192.0.2.7::5025::SOCKET|One", "TCPIP0::192.0.2.9::hislip0::INSTR|Two"}));
}

TEST(MdnsSearchTest, WebPagesAreInstrumentsOnceAllHaveAnswered) {
  const mdns::Service page = {"_lxi._tcp", "Meter", "192.0.2.7", 80};
  EXPECT_EQ(Found([&](mdns::IServiceListener& listener) { listener.Found(page); }), Texts{});
  EXPECT_EQ(Found([&](mdns::IServiceListener& listener) {
              listener.Found(page);
              listener.Settled();
            }),
            Texts{"TCPIP0::192.0.2.7::inst0::INSTR|Meter"});
}

TEST(MdnsSearchTest, AThousandThatNobodyTakesAreKeptAndNoMore) {
  EXPECT_EQ(Found([](mdns::IServiceListener& listener) {
              for (std::uint16_t port = 1; port <= 1001; ++port) {
                listener.Found({"_scpi-raw._tcp", "Meter", "192.0.2.7", port});
              }
            }).size(),
            1000U);
}

TEST(MdnsSearchTest, EndGivesTheOrderAndWaitsForNobody) {
  std::promise<void> began;
  std::promise<void> hanging;
  const auto ordered = std::make_shared<std::promise<bool>>();
  {
    const MdnsSearch search([&began, &hanging, ordered](const auto&, auto&, const system::Cancellation& cancellation) {
      began.set_value();
      hanging.get_future().wait(); // as on a bus that does not answer
      ordered->set_value(cancellation.Requested());
    });
    began.get_future().wait();
  }
  hanging.set_value();
  EXPECT_TRUE(ordered->get_future().get());
}

} // namespace
} // namespace portico::discovery
