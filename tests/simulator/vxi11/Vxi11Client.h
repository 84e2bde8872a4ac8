#pragma once

#include "simulator/devices/Device.h"
#include "simulator/vxi11/ServedVxi11.h"

#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

namespace portico::test {

using namespace std::string_literals;

/// One RPC record of one fragment, which is the last.
inline std::string RpcRecord(const std::string& content) {
  const std::size_t size = content.size();
  return "\x80"s + static_cast<char>(size >> 16U) + static_cast<char>(size >> 8U) + static_cast<char>(size) + content;
}

/// Four bytes, of a small number.
inline std::string Word(std::size_t number) {
  return std::string() + static_cast<char>(number >> 24U) + static_cast<char>(number >> 16U) +
         static_cast<char>(number >> 8U) + static_cast<char>(number);
}

/// Text as XDR has it.
inline std::string Opaque(const std::string& text) {
  return Word(text.size()) + text + std::string((4 - text.size() % 4) % 4, '\0');
}

/// The head of a call of version 1 of a program, behind its number: what stands in front of the arguments.
inline std::string CallHead(const std::string& program, char procedure, char version = 1) {
  return "\0\0\0\0\0\0\0\2"s + program + "\0\0\0"s + version + "\0\0\0"s + procedure +
         "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s;
}

inline const std::string CoreProgram = "\x00\x06\x07\xAF"s;
inline const std::string AbortProgram = "\x00\x06\x07\xB0"s;

/// A server of a multimeter at port 771, in a time of its own.
struct Vxi11World {
  std::unique_ptr<simulator::Device> device = simulator::Device::Make("dmm", 1);
  server::ConnectionFactory factory = simulator::ServedVxi11::Factory(*device);
  simulator::TimePoint now{std::chrono::hours(1)};
};

/// A client of it, by the bytes of its calls.
class Vxi11Client {
public:
  explicit Vxi11Client(Vxi11World& world) : m_world(world), m_connection(world.factory(771)) {}

  server::IServedConnection& Connection() { return *m_connection; }

  void Send(const std::string& bytes) { m_connection->Receive(bytes, m_world.now); }
  /// What the server sends now.
  std::string Receive() {
    std::string output;
    for (std::size_t before = 1; before != output.size();) {
      before = output.size();
      m_connection->Collect(output, m_world.now);
    }
    return output;
  }

  /// Calls a procedure of the core program, and gives its results if it succeeds at once; what the server sent if that
  /// is something else; "(waits)" if it is nothing.
  std::string Call(char procedure, const std::string& arguments) {
    Send(RpcRecord("\0\0\0"s + ++m_xid + CallHead(CoreProgram, procedure) + arguments));
    return Results();
  }
  std::string Results() {
    const std::string reply = Receive();
    if (reply.empty()) return "(waits)";
    const std::string head = "\0\0\0"s + m_xid + "\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s;
    return reply.size() >= 28 && reply == RpcRecord(reply.substr(4)) && reply.substr(4, 24) == head ? reply.substr(28)
                                                                                                    : reply;
  }
  /// The same, after the time in which the server wants to be asked again.
  std::string Await() {
    for (;;) {
      std::string results = Results();
      const auto next = m_connection->NextEvent();
      if (results != "(waits)" || !next) return results;
      m_world.now = std::max(m_world.now, *next);
    }
  }

  /// Makes a link and gives its number's four bytes.
  std::string Link() { return Call(10, "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\5inst0\0\0\0"s).substr(4, 4); }
  /// Writes with these flags, and a second for the call and for the lock.
  std::string Write(const std::string& link, const std::string& data, char flags = 8) {
    return Call(11, link + "\0\0\x03\xE8\0\0\x03\xE8\0\0\0"s + flags + Opaque(data));
  }
  /// Reads up to that many bytes, with the same time.
  std::string Read(const std::string& link, std::size_t size = 1024, char flags = 0, char terminator = 0) {
    return Call(12, link + Word(size) + "\0\0\x03\xE8\0\0\x03\xE8\0\0\0"s + flags + "\0\0\0"s + terminator);
  }
  /// A procedure with generic arguments and no time.
  std::string Generic(char procedure, const std::string& link) {
    return Call(procedure, link + "\0\0\0\0\0\0\0\0\0\0\0\0"s);
  }

private:
  Vxi11World& m_world;
  std::unique_ptr<server::IServedConnection> m_connection;
  char m_xid = 0;
};

/// The results of a read.
inline std::string ReadResult(char error, char reason, const std::string& data) {
  return "\0\0\0"s + error + "\0\0\0"s + reason + Opaque(data);
}

class Vxi11ServerTest : public testing::Test {
protected:
  /// The oldest error of the device, asked by a client of its own.
  std::string Error() {
    Vxi11Client asker(world);
    const std::string link = asker.Link();
    asker.Write(link, "SYST:ERR?");
    const std::string result = asker.Read(link);
    return result.substr(12, static_cast<unsigned char>(result.at(11)) - 1U);
  }

  Vxi11World world;
  Vxi11Client client{world};
};

inline const std::string Done = "\0\0\0\0"s;

} // namespace portico::test
