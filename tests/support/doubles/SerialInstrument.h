#pragma once

#include "drivers/SerialLine.h"
#include "simulator/status/SimulatedConnection.h"
#include "support/doubles/InstrumentScript.h"
#include "system/FileDescriptor.h"
#include "system/WakePipe.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace portico::test {

/// An instrument on a serial line: the line is a pseudo-terminal of this machine, and one thread serves its far end. It
/// records all that it is sent. Like a cable, the line is there whether or not somebody has its near end open.
class SerialInstrument {
public:
  /// `connection` answers, and is called from that thread.
  explicit SerialInstrument(std::unique_ptr<simulator::SimulatedConnection> connection);
  explicit SerialInstrument(InstrumentScript script);
  /// One that is deaf: it takes nothing and says nothing.
  SerialInstrument();
  ~SerialInstrument();
  SerialInstrument(const SerialInstrument&) = delete;
  SerialInstrument& operator=(const SerialInstrument&) = delete;

  /// Of the near end.
  const std::string& Path() const { return m_path; }
  /// "ASRL", the path, "::INSTR".
  std::string ResourceName() const { return "ASRL" + m_path + "::INSTR"; }
  /// Whether any user may open the near end.
  void Permit(bool anybody) const;

  /// How the line is set up: speeds of 300, 9600 and 115200 (any other is 0), stop bits and flow control. All else a
  /// pseudo-terminal does not keep.
  drivers::SerialLine Line() const;

  /// All bytes that were sent to it so far.
  std::string Received() const;
  /// Waits until the received bytes end in `bytes`.
  void WaitForReceived(const std::string& bytes) const;
  /// Waits until the line has taken all that is to be sent.
  void WaitForSilence() const;
  /// Sends, asked or not.
  void Send(const std::string& bytes);
  /// Takes the line away as if it was pulled out.
  void Unplug();

private:
  void Serve();
  void Receive();
  void Transmit();

  std::unique_ptr<simulator::SimulatedConnection> m_connection;
  std::string m_path;
  system::FileDescriptor m_farEnd;
  /// Keeps what was set up and what was sent while nobody has the line open.
  system::FileDescriptor m_nearEnd;
  system::WakePipe m_wake;

  mutable std::mutex m_mutex;
  mutable std::condition_variable m_changed;
  std::string m_received;
  std::string m_output;
  bool m_unplugging = false;
  bool m_stopping = false;

  std::string m_scriptReceived;
  std::thread m_thread;
};

} // namespace portico::test
