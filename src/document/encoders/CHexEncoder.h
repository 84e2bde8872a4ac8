#pragma once

#include "framework/errors/Ref.h"
#include "framework/text/text.h"

#include <optional>
#include <string>
#include <string_view>

namespace portico {

/// Bytes as hexadecimal text, two digits a byte and nothing between them, as logs hold payloads. Has no state.
class CHexEncoder final : public IObject {
public:
  StringView ClassName() const override { return u"CHexEncoder"; }

  /// Upper-case digits.
  String Encode(const ByteArray& Data) const;
  /// Digits of either case. An odd length and any other character raise `InvalidArgument`, an empty text
  /// `BadSubscript`.
  ByteArray Decode(const String& HexString) const;

  /// The same for a file's text, which is bytes, not characters.
  static void AppendEncoded(std::string& text, const ByteArray& data);
  /// Nothing for a text that `Decode` refuses.
  static std::optional<ByteArray> TryDecode(std::string_view text);

private:
  static std::uint8_t HexTuple2Byte(const String& HexString);
  static bool IsHexDigit(char16_t character);
};

} // namespace portico
