#include "framework/shared/CResponse.h"

#include "framework/errors/HuntERR.h"

namespace portico {

void CResponse::Initialize(std::int32_t code, const String& data) try {
  m_code = code;
  m_message.clear();
  m_data.clear();
  (code != 0 ? m_message : m_data) = data;
} catch (...) {
  PassOn(u"CResponse.Initialize(code,data)", {code, data});
}

String CResponse::GetErrorMessage() const try { return m_code != 0 ? m_message : u"Success"; } catch (...) {
  PassOn(u"CResponse.GetErrorMessage");
}

String CResponse::GetResponseData() const try { return m_code != 0 ? GetError() : m_data; } catch (...) {
  PassOn(u"CResponse.GetResponseData");
}

std::int32_t CResponse::GetErrorCode() const try { return m_code; } catch (...) {
  PassOn(u"CResponse.GetErrorCode");
}

String CResponse::GetError() const try { return GetErrorMessage(); } catch (...) {
  PassOn(u"CResponse.GetError");
}

} // namespace portico
