#pragma once

#include "channel/IChannel.h"
#include "channel/IChannelExtension.h"
#include "framework/objects/Creator.h"
#include "platform/IExtendedDriver.h"

#include <memory>
#include <string>
#include <vector>

namespace portico {

/// The channel over the instrument driver: the only place in the system that touches the instrument. One in the
/// process, held by its creator. Destroying it closes a session that is open.
///
/// Attributes by name: "TERMCHAR" with the texts "Auto", "LF", "CRLF", "CR", "LFCR"; "ERRORQUERYSCPI" with any text.
class CDriverSession final : public IChannel, public IChannelExtension {
public:
  /// Over the driver of the platform, which is kept alive.
  CDriverSession();
  ~CDriverSession() override;

  StringView ClassName() const override { return u"CDriverSession"; }

  /// Overwrites an open session without closing it: the commands above close first.
  Ref<IResponse> OpenChannel(const String& Name) override;
  /// Appends a carriage return and nothing else, whatever "TERMCHAR" says. A character that the instrument's code page
  /// lacks goes out as `?`.
  Ref<IResponse> WriteData(const String& Data) override;
  /// One read of at most 1,048,575 bytes; a longer message gives a success with empty data.
  Ref<IResponse> ReadData() override;
  /// The handle is 0 afterwards, whatever the driver says.
  Ref<IResponse> CloseChannel() override;
  Ref<IResponse> GetChannelAttribute(const String& Name) override;
  Ref<IResponse> SetChannelAttribute(const String& Name, const String& Value) override;

  Ref<IResponse> SetTimeout(std::int32_t Milliseconds) override;
  Ref<IResponse> ClearDevice() override;
  Ref<IResponse> GoToLocal() override;
  Ref<IResponse> CanDivert() override;
  void Divert(AnswerDiversion* diversion) override { m_diversion = diversion; }

private:
  String GetErrorMessage(std::int32_t code);
  Ref<IResponse> GenerateResponse(std::int32_t code, const String& data);
  void WipeBuffer();
  Ref<IResponse> ReadDiverted();

  std::shared_ptr<IExtendedDriver> m_driver;
  std::int32_t m_session = 0;
  AnswerDiversion* m_diversion = nullptr;
  std::vector<char> m_buffer; // of ReadData; made at the first read
  std::size_t m_soiled = 0;   // bytes of it that the last read may have filled
};

/// Makes `Class::DriverSession`.
extern const CreatorRow CtorDriverSession;

} // namespace portico
