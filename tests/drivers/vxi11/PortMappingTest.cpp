#include "drivers/vxi11/PortMapping.h"

#include "drivers/vxi11/Vxi11Streams.h"

namespace portico::test {
namespace {

using namespace drivers;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A call of the portmapper for the program 0x0607AF, version 1, over TCP.
std::string Call(char procedure, const std::string& port) {
  return Record("\0\0\0\1\0\0\0\0\0\0\0\2\x00\x01\x86\xA0\0\0\0\2\0\0\0"s + procedure +
                "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x00\x06\x07\xAF\0\0\0\1\0\0\0\6"s + port);
}

class PortMappingTest : public testing::Test {
protected:
  StreamConnector Connector() {
    return [this](const std::string& host, std::uint16_t port) {
      connections.push_back(host + ":" + std::to_string(port));
      return std::make_unique<ScriptedTransport>(stream);
    };
  }

  ScriptedTransport::Record stream;
  std::vector<std::string> connections;
  const TimePoint deadline{std::chrono::seconds(7)};
};

TEST_F(PortMappingTest, ItReplacesWhatWasThereAndEndsWithItsObject) {
  {
    PortMapping mapping(Connector(), 0x0607AF, 1);
    stream.Piece(Reply(1, "\0\0\0\0"s));
    stream.Piece(Reply(1, "\0\0\0\1"s));
    EXPECT_TRUE(mapping.Set(1024, deadline).Succeeded());
    EXPECT_THAT(stream.written, ElementsAre(Call(2, "\0\0\0\0"s), Call(1, "\0\0\4\0"s)));
    EXPECT_THAT(stream.deadlines, testing::Each(deadline));
    EXPECT_THAT(connections, testing::Each("127.0.0.1:111"));
    stream.written.clear();
    stream.Piece(Reply(1, "\0\0\4\0"s));
    stream.Piece(Reply(1, "\0\0\0\1"s));
  }
  EXPECT_THAT(stream.written, ElementsAre(Call(3, "\0\0\0\0"s), Call(2, "\0\0\0\0"s)));
}

TEST_F(PortMappingTest, WhatAnotherProgramHasToldMeanwhileStays) {
  {
    PortMapping mapping(Connector(), 0x0607AF, 1);
    stream.Piece(Reply(1, "\0\0\0\0"s));
    stream.Piece(Reply(1, "\0\0\0\1"s));
    EXPECT_TRUE(mapping.Set(1024, deadline).Succeeded());
    stream.written.clear();
    stream.Piece(Reply(1, "\0\0\4\1"s));
  }
  EXPECT_THAT(stream.written, ElementsAre(Call(3, "\0\0\0\0"s)));
}

TEST_F(PortMappingTest, APortmapperThatRefusesIsToldSo) {
  {
    PortMapping mapping(Connector(), 0x0607AF, 1);
    stream.Piece(Reply(1, "\0\0\0\1"s));
    stream.Piece(Reply(1, "\0\0\0\0"s));
    const DriverResult result = mapping.Set(1024, deadline);
    EXPECT_EQ(result.Status, DriverStatus::ConnectFailed);
    EXPECT_EQ(result.Detail, "the portmapper does not take the entry");
    stream.written.clear();
  }
  EXPECT_THAT(stream.written, IsEmpty());
}

TEST_F(PortMappingTest, WithoutAPortmapperTheConnectionIsRefused) {
  stream.openResult = {DriverStatus::ConnectionRefused};
  PortMapping mapping(Connector(), 0x0607AF, 1);
  EXPECT_EQ(mapping.Set(1024, deadline).Status, DriverStatus::ConnectionRefused);
  EXPECT_THAT(connections, SizeIs(1));
}

} // namespace
} // namespace portico::test
