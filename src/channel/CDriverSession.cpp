#include "channel/CDriverSession.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/CResponse.h"
#include "platform/Termination.h"

#include <algorithm>
#include <exception>

namespace portico {

Ref<IChannel> gChannel;

namespace {

constexpr std::int32_t ReadBufferSize = 0x100000; // fixed: part of the contract with the driver
constexpr std::size_t MessageBufferSize = 256;
constexpr std::size_t AttributeBufferSize = 512;

/// A text that matches none silently selects the first.
std::int32_t TerminationValue(StringView text) {
  const auto* found =
      std::find_if(Terminations.begin(), Terminations.end(), [&](const auto& known) { return known.Name == text; });
  return static_cast<std::int32_t>((found == Terminations.end() ? Terminations.front() : *found).Value);
}

String TerminationText(std::int32_t value) {
  const auto* found = std::find_if(Terminations.begin(), Terminations.end(),
                                   [&](const auto& known) { return static_cast<std::int32_t>(known.Value) == value; });
  return found == Terminations.end() ? String() : String(found->Name);
}

/// A message or an attribute in a buffer of blanks, without the `count` characters that the driver ends it with. A
/// response does not come by here: its line end has been cut in the driver.
String TextInBuffer(std::string_view buffer, std::size_t count) {
  const String text = FromCodePage(buffer);
  const StringView trimmed = Trim(text);
  if (trimmed.size() < count) HuntERR::RaiseStandard(ErrorNumber::InvalidArgument);
  return String(trimmed.substr(0, trimmed.size() - count));
}

} // namespace

CDriverSession::CDriverSession() try : m_driver(gInstrumentDriver) {
  if (!m_driver) RaiseUnsetReference();
} catch (...) {
  FailConstruction(u"CDriverSession.Class_Initialize");
}

CDriverSession::~CDriverSession() {
  try {
    if (m_session != 0) CloseChannel();
  } catch (...) {
    SwallowInDestructor(u"CDriverSession.Class_Terminate");
  }
}

String CDriverSession::GetErrorMessage(std::int32_t code) try {
  std::string buffer(MessageBufferSize, ' ');
  m_driver->TVSCPI_error_message(m_session, code, buffer.data());
  return TextInBuffer(buffer, 2);
} catch (...) {
  PassOn(u"CDriverSession.GetErrorMessage(code)", {code});
}

Ref<IResponse> CDriverSession::GenerateResponse(std::int32_t code, const String& data) try {
  auto response = New<CResponse>();
  if (code == 0) {
    response->Initialize(code, data);
  } else {
    response->Initialize(code, GetErrorMessage(code));
  }
  return response;
} catch (...) {
  PassOn(u"CDriverSession.GenerateResponse(code,data)", {code, data});
}

Ref<IResponse> CDriverSession::OpenChannel(const String& Name) try {
  const std::int32_t status = m_driver->TVSCPI_init(ToCodePage(Name), 0, 0, m_session);
  return GenerateResponse(status, {});
} catch (...) {
  PassOn(u"CDriverSession.IChannel_OpenChannel(Name)", {Name});
}

Ref<IResponse> CDriverSession::WriteData(const String& Data) try {
  std::string text = ToCodePage(Data);
  text += '\r';
  return GenerateResponse(m_driver->TVSCPI_WriteInstrData(m_session, text), {});
} catch (...) {
  PassOn(u"CDriverSession.IChannel_WriteData(data)", {Data});
}

Ref<IResponse> CDriverSession::ReadData() try {
  if (m_diversion != nullptr) return ReadDiverted();
  WipeBuffer();
  std::int32_t count = 0;
  m_soiled = m_buffer.size(); // until the driver has told what it filled
  const std::int32_t status = m_driver->TVSCPI_ReadInstrData(m_session, ReadBufferSize, m_buffer.data(), count);
  String data;
  // The last byte that was delivered is not part of the data. A buffer that is full, or fuller, gives no data.
  if (count < ReadBufferSize && count > 0 && status >= 0) {
    m_soiled = static_cast<std::size_t>(count);
    data = FromCodePage({m_buffer.data(), static_cast<std::size_t>(count) - 1});
  }
  return GenerateResponse(status, data);
} catch (...) {
  PassOn(u"CDriverSession.IChannel_ReadData");
}

Ref<IResponse> CDriverSession::ReadDiverted() {
  constexpr std::size_t longestHeld = ReadBufferSize - 2; // the driver adds a byte, and a full buffer gives no data
  std::string held;
  bool isHeld = true;
  std::exception_ptr thrown; // not through the driver
  const std::int32_t status = m_driver->ReadInPieces(m_session, [&](std::string_view piece) {
    isHeld = isHeld && held.size() + piece.size() <= longestHeld;
    if (isHeld) {
      held += piece;
    } else {
      held = {};
    }
    try {
      return m_diversion->Sink(piece);
    } catch (...) {
      thrown = std::current_exception();
      return false;
    }
  });
  if (thrown) std::rethrow_exception(thrown);
  m_diversion->Response = GenerateResponse(status, FromCodePage(held));
  return m_diversion->Response;
}

/// A driver whose count exceeds what it wrote must show zeros, never the previous answer.
void CDriverSession::WipeBuffer() {
  if (m_buffer.empty()) {
    m_buffer.assign(ReadBufferSize, '\0');
  } else {
    std::fill_n(m_buffer.begin(), m_soiled, '\0');
  }
}

Ref<IResponse> CDriverSession::CloseChannel() try {
  std::int32_t status = 0;
  if (m_session != 0) {
    status = m_driver->TVSCPI_close(m_session);
    m_session = 0;
  }
  return GenerateResponse(status, {});
} catch (...) {
  PassOn(u"CDriverSession.IChannel_CloseChannel");
}

Ref<IResponse> CDriverSession::GetChannelAttribute(const String& Name) try {
  if (Name == u"TERMCHAR") {
    std::int32_t value = 0;
    const std::int32_t status = m_driver->TVSCPI_GetAttributeViInt32(m_session, 0, TVSCPI_ATTR_TERMCHAR, value);
    return GenerateResponse(status, TerminationText(value));
  }
  if (Name == u"ERRORQUERYSCPI") {
    std::string buffer(AttributeBufferSize, ' ');
    const std::int32_t status = m_driver->TVSCPI_GetAttributeViString(
        m_session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, static_cast<std::int32_t>(buffer.size()), buffer.data());
    return GenerateResponse(status, TextInBuffer(buffer, 1));
  }
  return GenerateResponse(0, {});
} catch (...) {
  PassOn(u"CDriverSession.IChannel_GetChannelAttribute(Name)", {Name});
}

Ref<IResponse> CDriverSession::SetChannelAttribute(const String& Name, const String& Value) try {
  std::int32_t status = 0;
  if (Name == u"TERMCHAR") {
    status = m_driver->TVSCPI_SetAttributeViInt32(m_session, 0, TVSCPI_ATTR_TERMCHAR, TerminationValue(Value));
  } else if (Name == u"ERRORQUERYSCPI") {
    status = m_driver->TVSCPI_SetAttributeViString(m_session, 0, TVSCPI_ATTR_ERRORQUERYSCPI, ToCodePage(Value));
  }
  return GenerateResponse(status, {});
} catch (...) {
  PassOn(u"CDriverSession.IChannel_SetChannelAttribute(Name,Value)", {Name, Value});
}

Ref<IResponse> CDriverSession::SetTimeout(std::int32_t Milliseconds) try {
  return GenerateResponse(m_driver->SetTimeout(std::chrono::milliseconds(Milliseconds)), {});
} catch (...) {
  PassOn(u"CDriverSession.IChannelExtension_SetTimeout(Milliseconds)", {Milliseconds});
}

Ref<IResponse> CDriverSession::ClearDevice() try {
  return GenerateResponse(m_driver->Clear(m_session), {});
} catch (...) {
  PassOn(u"CDriverSession.IChannelExtension_ClearDevice");
}

Ref<IResponse> CDriverSession::GoToLocal() try {
  return GenerateResponse(m_driver->GoToLocal(m_session), {});
} catch (...) {
  PassOn(u"CDriverSession.IChannelExtension_GoToLocal");
}

Ref<IResponse> CDriverSession::CanDivert() try {
  return GenerateResponse(m_driver->CanReadInPieces(m_session), {});
} catch (...) {
  PassOn(u"CDriverSession.IChannelExtension_CanDivert");
}

const CreatorRow CtorDriverSession = {
    .Name = u"CtorDriverSession",
    .Specification = Class::DriverSession,
    .ParamCount = Class::DriverSession.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<CDriverSession>(); },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Driver session object does not exist.",
    .Singleton = true,
};

} // namespace portico
