#pragma once

#include "server/IServedConnection.h"
#include "simulator/connection/StreamInstrument.h"
#include "simulator/hislip/HislipServer.h"
#include "wire/HislipReader.h"

namespace portico::simulator {

/// One of a HiSLIP client's two connections; its first message tells which.
class HislipConnection final : public server::IServedConnection {
public:
  /// The longest message, its header included, that is taken.
  static constexpr std::uint64_t LongestMessage = std::uint64_t{1} << 20U;

  /// Connections that share one server for `instrument`, which must outlive them. Version 1.0, synchronized mode.
  static server::ConnectionFactory Factory(Instrument& instrument);
  static server::ConnectionFactory Factory(std::shared_ptr<IMessageInstrument> instrument);

  explicit HislipConnection(std::shared_ptr<HislipServer> server);
  ~HislipConnection() override;
  HislipConnection(const HislipConnection&) = delete;
  HislipConnection& operator=(const HislipConnection&) = delete;

  void Receive(std::string_view bytes, TimePoint now) override;
  void Collect(std::string& output, TimePoint now) override;
  bool AcceptsInput() const override;
  std::optional<TimePoint> NextEvent() const override;
  bool Finished(bool inputEnded) const override;

private:
  void Take(const wire::HislipPiece& piece, TimePoint now);
  /// What may come on either connection, or must not; false if the piece is nothing of that.
  bool TakeAnywhere(const wire::HislipPiece& piece);
  void TakeFirst(const wire::HislipPiece& piece);
  void TakeInitialize(const wire::HislipPiece& piece);
  /// Answers the first message once it is known whether there is an instrument.
  void Begin();
  void TakeAsyncInitialize(const wire::HislipPiece& piece);
  void TakeSynchronous(const wire::HislipPiece& piece);
  void TakeAsynchronous(const wire::HislipPiece& piece, TimePoint now);
  void TakeMaximumMessageSize(const wire::HislipPiece& piece);
  void Complain(wire::HislipError code, std::string_view why);
  void RefuseType(const wire::HislipPiece& piece);
  /// Tells the client and ends the session, if there is one.
  void Fail(wire::HislipFatal code, std::string_view why);
  void EndSession();

  const std::shared_ptr<HislipServer> m_server;
  wire::HislipReader m_reader{LongestMessage};
  std::shared_ptr<HislipSession> m_session; ///< none before the first message
  bool m_asynchronous = false;
  bool m_opening = false; ///< the first message is not answered yet
  /// Of a message that was refused pieces are still to come.
  bool m_refusing = false;
  bool m_over = false;
  std::string m_output;
};

} // namespace portico::simulator
