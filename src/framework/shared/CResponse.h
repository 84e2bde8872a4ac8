#pragma once

#include "framework/shared/IResponse.h"

namespace portico {

/// The one response: filled once by `Initialize`, then only read.
class CResponse final : public IResponse {
public:
  StringView ClassName() const override { return u"CResponse"; }

  /// For a failure (`code` is not 0) the caller passes the message in `data`.
  void Initialize(std::int32_t code, const String& data);
  String GetErrorMessage() const;
  /// A failed response shows its message also to a reader that only looks here.
  String GetResponseData() const;
  std::int32_t GetErrorCode() const;
  String GetError() const;

  String ResponseData() const override { return GetResponseData(); }
  std::int32_t ErrorCode() const override { return GetErrorCode(); }
  String ErrorMessage() const override { return GetErrorMessage(); }

private:
  std::int32_t m_code = 0;
  String m_message;
  String m_data;
};

} // namespace portico
