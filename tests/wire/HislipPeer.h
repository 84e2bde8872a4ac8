#pragma once

#include "wire/HislipClient.h"

#include "wire/Bytes.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace portico::wire {

/// A client whose two connections are strings, which the test writes as the instrument does.
class HislipPeer : public testing::Test {
protected:
  /// Takes what the client has to send on the connection, in pieces of three bytes.
  std::string Sent(HislipChannel channel) {
    std::string sent;
    for (auto output = Client.Output(channel); !output.empty(); output = Client.Output(channel)) {
      sent += output.substr(0, 3);
      Client.Sent(channel, std::min<std::size_t>(output.size(), 3));
    }
    return sent;
  }
  std::string SentSynchronous() { return Sent(HislipChannel::Synchronous); }
  std::string SentAsynchronous() { return Sent(HislipChannel::Asynchronous); }

  /// The instrument sends these bytes on the synchronous connection: the answers that are whole then.
  void Receive(std::string_view bytes) {
    while (!bytes.empty()) {
      const HislipAnswer answer = Client.Receive(bytes);
      if (answer.Anew) Partial.clear();
      Partial += answer.Payload;
      if (!answer.End) continue;
      Answers.push_back(Partial);
      Partial.clear();
    }
  }

  /// Opens, with an instrument that takes messages of `size` bytes.
  void Open(std::string_view size = "0000000000001000") {
    Client.Open();
    SentSynchronous();
    Receive(Bytes("4853 01 00 01000007 0000000000000000"));
    Client.SecondConnectionMade();
    SentAsynchronous();
    Client.ReceiveAsynchronous(Bytes("4853 12 00 00005858 0000000000000000"));
    SentAsynchronous();
    Client.ReceiveAsynchronous(Bytes("4853 10 00 00000000 0000000000000008") + Bytes(size));
    ASSERT_TRUE(Client.Ready());
  }

  void Ask(const std::string& query) {
    Client.Write(query);
    SentSynchronous();
  }

  /// An instrument's answer "12" to the message with this id, in one message.
  static std::string Answer(std::string_view id) {
    return Bytes("4853 07 00") + Bytes(id) + Bytes("0000000000000002 3132");
  }

  HislipClient Client = HislipClient("hislip0");
  std::vector<std::string> Answers;
  std::string Partial;
};

using Strings = std::vector<std::string>;

} // namespace portico::wire
