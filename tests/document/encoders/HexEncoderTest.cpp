#include "document/encoders/CHexEncoder.h"
#include "support/Labels.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico::test {
namespace {

class HexEncoderTest : public FrameworkTest {
protected:
  static ByteArray AllBytes() {
    ByteArray bytes;
    for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<std::uint8_t>(i));
    return bytes;
  }
  const CHexEncoder Encoder;
};

TEST_F(HexEncoderTest, EncodesUpperCaseWithLeadingZeros) {
  EXPECT_EQ(Encoder.Encode({0x00, 0x0A, 0xFF}), u"000AFF");
  EXPECT_EQ(Encoder.Encode({}), u"");
}

TEST_F(HexEncoderTest, DecodesDigitsOfEitherCase) {
  EXPECT_EQ(Encoder.Decode(u"000aff"), (ByteArray{0x00, 0x0A, 0xFF}));
  EXPECT_EQ(Encoder.Decode(u"000AfF"), (ByteArray{0x00, 0x0A, 0xFF}));
}

TEST_F(HexEncoderTest, GivesAllBytesBack) { EXPECT_EQ(Encoder.Decode(Encoder.Encode(AllBytes())), AllBytes()); }

TEST_F(HexEncoderTest, RefusesAnOddLength) {
  const auto error = Raised([&] { Encoder.Decode(u"ABC"); });
  ExpectError(error, 5, u"The number of characters in hex string must be an even multiple of  2.");
  ExpectTrail(error, {u"CHexEncoder.Decode(HexString)"});
}

TEST_F(HexEncoderTest, RefusesOtherCharacters) {
  const auto error = Raised([&] { Encoder.Decode(u"00G0"); });
  ExpectError(error, 5, u"Hex string can only contain hexidecimal digits, 0-9, A-F, and a-f.");
  ExpectTrail(error, {u"CHexEncoder.HexTuple2Byte(HexString)", u"CHexEncoder.Decode(HexString)"});
}

TEST_F(HexEncoderTest, RefusesEveryCharacterThatIsNoDigit) {
  for (char16_t unit = 0; unit < 0x200; ++unit) {
    const bool digit =
        (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'F') || (unit >= u'a' && unit <= u'f');
    for (const String& text : {String{unit, u'0'}, String{u'0', unit}}) {
      if (digit) {
        EXPECT_EQ(Encoder.Decode(text).size(), 1U) << static_cast<int>(unit);
      } else {
        EXPECT_EQ(Raised([&] { Encoder.Decode(text); }).Number, 5) << static_cast<int>(unit);
      }
    }
  }
}

TEST_F(HexEncoderTest, AnEmptyTextIsASubscriptOutOfRange) {
  const auto error = Raised([&] { Encoder.Decode(u""); });
  ExpectError(error, 9, u"Subscript out of range.");
  ExpectTrail(error, {u"CHexEncoder.Decode(HexString)"});
}

TEST_F(HexEncoderTest, WorksOnBytesOfAFileAsOnText) {
  std::string text = "x";
  CHexEncoder::AppendEncoded(text, {0x00, 0x0A, 0xFF});
  EXPECT_EQ(text, "x000AFF");
  EXPECT_EQ(CHexEncoder::TryDecode("000aFF"), (ByteArray{0x00, 0x0A, 0xFF}));
  for (const char* bad : {"", "ABC", "G0", "0G", "0\xFF"}) EXPECT_FALSE(CHexEncoder::TryDecode(bad)) << bad;
}

} // namespace
} // namespace portico::test
