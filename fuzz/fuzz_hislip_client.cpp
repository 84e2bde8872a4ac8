#include "wire/HislipClient.h"

#include <cstdlib>
#include <optional>

using namespace portico::wire;

namespace {

constexpr std::uint64_t InstrumentsLimit = 40;

/// An instrument that sends what the fuzzer says, and holds what it gets and what it sent against what the client does.
class Instrument {
public:
  Instrument() {
    m_client.Open();
    Listen();
    Send(HislipMessage(HislipType::InitializeResponse, 0, HislipVersionAnd(HislipVersion1, 1)));
    m_client.SecondConnectionMade();
    SendAsynchronous(HislipMessage(HislipType::AsyncInitializeResponse));
    SendAsynchronous(HislipMessage(HislipType::AsyncMaximumMessageSizeResponse, 0, 0, HislipSize(InstrumentsLimit)));
    if (!m_client.Ready()) std::abort();
  }

  void Act(unsigned action, std::string_view bytes) {
    switch (action % 6) {
    case 0:
      if (!m_client.Ready()) return;
      m_client.Write(std::string(bytes));
      m_awaited.reset();
      m_mixed = m_mixed || m_begun;
      m_handedOn = m_givenUp = false;
      return Listen();
    case 1:
      if (m_client.Ready()) m_client.Clear();
      return Listen();
    case 2:
      if (m_client.Ready()) m_client.GoToLocal();
      return Listen();
    case 3:
      return SendAsynchronous(bytes);
    default:
      return Send(bytes);
    }
  }

private:
  /// Sends byte by byte, so that what comes of a byte is known.
  void Send(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size() && m_client.Failure().empty(); ++i) {
      std::string_view own = bytes.substr(i, 1);
      std::string_view byte = own;
      const auto piece = m_sent.Next(own);
      const bool ready = m_client.Ready();
      const HislipAnswer answer = m_client.Receive(byte);
      if (!byte.empty()) std::abort();
      Judge(piece, answer);
      if (!ready && m_client.Ready()) m_mixed = m_begun = m_handedOn = m_givenUp = false; // a device clear is over
    }
    Listen();
  }

  void SendAsynchronous(std::string_view bytes) {
    m_client.ReceiveAsynchronous(bytes);
    Listen();
  }

  /// An answer is that to the last message, from its first piece to its last.
  void Judge(const std::optional<HislipPiece>& piece, const HislipAnswer& answer) {
    const bool end = piece && piece->Header.Type == HislipType::DataEnd;
    const bool data = end || (piece && piece->Header.Type == HislipType::Data);
    if (data && piece->Header.Parameter != m_awaited && (end || piece->Header.Parameter != HislipIdFollows)) {
      m_mixed = true;
    }
    if (!answer.Payload.empty() && (!data || answer.Payload != piece->Payload || m_mixed)) std::abort();
    if (answer.End && (!end || !piece->Last || m_mixed)) std::abort();
    if (data) m_begun = !end || !piece->Last;
    if (piece && piece->Header.Type == HislipType::Interrupted) m_begun = false;
    m_mixed = m_mixed && m_begun;
    JudgeWhatWasGivenUp(answer);
  }

  /// Of an answer that was begun and does not end, the next one tells.
  void JudgeWhatWasGivenUp(const HislipAnswer& answer) {
    if (!answer.Empty() && m_givenUp) {
      if (!answer.Anew) std::abort();
      m_givenUp = false;
    }
    m_handedOn = !answer.End && (m_handedOn || !answer.Payload.empty());
    if (m_handedOn && !m_begun) {
      m_givenUp = true;
      m_handedOn = false;
    }
  }

  /// Takes what the client sends: whole messages that the instrument has room for, and nothing after a failure.
  void Listen() {
    Listen(HislipChannel::Asynchronous, m_asynchronous);
    Listen(HislipChannel::Synchronous, m_synchronous);
  }

  void Listen(HislipChannel channel, HislipReader& reader) {
    while (!m_client.Output(channel).empty()) {
      if (!m_client.Failure().empty()) std::abort();
      const std::string output(m_client.Output(channel));
      std::string_view bytes = output;
      while (const auto piece = reader.Next(bytes)) {
        if (piece->TooLarge) std::abort();
        if (piece->Header.Type == HislipType::DataEnd) m_awaited = piece->Header.Parameter;
        if (piece->Header.Type == HislipType::DeviceClearComplete) m_awaited.reset();
      }
      if (reader.Broken()) std::abort();
      m_client.Sent(channel, output.size());
    }
  }

  HislipClient m_client = HislipClient("hislip0");
  HislipReader m_sent = HislipReader(HislipClient::LongestPayload);
  HislipReader m_synchronous = HislipReader(InstrumentsLimit - HislipHeaderSize);
  HislipReader m_asynchronous = HislipReader(InstrumentsLimit - HislipHeaderSize);
  /// The id of the last message whose end has come.
  std::optional<std::uint32_t> m_awaited;
  /// An answer is being sent, and it has pieces of another.
  bool m_begun = false;
  bool m_mixed = false;
  /// Bytes of an answer were handed on, and its end was not; the instrument has ended it otherwise.
  bool m_handedOn = false;
  bool m_givenUp = false;
};

} // namespace

// Whatever the instrument sends, the client takes no answer for another's and sends nothing but messages. The input is
// a row of actions: a byte that picks it, one with the number of its bytes, and these.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Instrument instrument;
  std::string_view script(reinterpret_cast<const char*>(data), size);
  while (script.size() > 2) {
    const std::string_view bytes = script.substr(2, static_cast<unsigned char>(script[1]));
    instrument.Act(static_cast<unsigned char>(script[0]), bytes);
    script.remove_prefix(2 + bytes.size());
  }
  return 0;
}
