#include "document/encoders/CRTFEncoder.h"
#include "document/encoders/CSimpleRTFEncoder.h"

#include "support/fixtures/DocumentFixture.h"

namespace portico::test {
namespace {

/// What the encoders set for a type, out of all thirteen values.
std::string Look(const SelectionFormat& format) {
  SelectionFormat shown;
  shown.SelItalic = format.SelItalic;
  shown.SelBold = format.SelBold;
  shown.SelColor = format.SelColor;
  shown.SelIndent = format.SelIndent;
  return FormatText(shown);
}

constexpr char Red[] = "bold=0 color=FF indent=0 italic=0";

class RTFEncodersFormat : public DocumentFixture {
protected:
  RTFEncodersFormat() {
    Encoder.Initialize(Display);
    Simple.Initialize(Display);
    Calls.clear();
    ScratchCalls.clear();
  }

  std::string EntityLook(StringView type) {
    Encoder.Encode(Entity(u"a", type));
    return Look(Display->SelFormat());
  }
  std::string SimpleLook(const String& type) {
    Simple.Encode(u"a", type);
    return Look(Display->SelFormat());
  }
  /// All thirteen values far from what any encoder sets.
  static SelectionFormat Odd() {
    SelectionFormat odd;
    odd.SelAlignment = 2;
    odd.SelBold = odd.SelBullet = odd.SelItalic = odd.SelStrikeThru = odd.SelUnderline = true;
    odd.SelCharOffset = 3;
    odd.SelColor = 0x123456;
    odd.SelFontName = u"Odd";
    odd.SelFontSize = 99;
    odd.SelHangingIndent = odd.SelIndent = odd.SelRightIndent = 77;
    return odd;
  }

  Ref<RecordingTextBox> Display = New<RecordingTextBox>(Calls);
  CRTFEncoder Encoder;
  CSimpleRTFEncoder Simple;
};

TEST_F(RTFEncodersFormat, OfTheTypesThatBothKnow) {
  const std::map<String, std::string> looks = {
      {u"Configuration", "bold=0 color=FF00 indent=0 italic=0"},
      {u"Instruction", "bold=1 color=0 indent=0 italic=0"},
      {u"AutomaticInstruction", "bold=1 color=FF0000 indent=0 italic=0"},
      {u"Response", "bold=0 color=0 indent=150 italic=1"},
  };
  for (const auto& [type, look] : looks) {
    EXPECT_EQ(EntityLook(type), look) << ToUtf8(type);
    EXPECT_EQ(SimpleLook(type), look) << ToUtf8(type);
  }
}

TEST_F(RTFEncodersFormat, OfEveryOtherTypeIsRed) {
  for (const auto* type : {u"", u"DisplayOpenMsg", u"Anything", u"response", u"INSTRUCTION"}) {
    EXPECT_EQ(EntityLook(type), Red) << ToUtf8(type);
    EXPECT_EQ(SimpleLook(type), Red) << ToUtf8(type);
  }
}

TEST_F(RTFEncodersFormat, RemarkIsDarkGreenForTextsAndRedForEntities) {
  EXPECT_EQ(SimpleLook(u"Remark"), "bold=1 color=7F00 indent=0 italic=0");
  EXPECT_EQ(EntityLook(u"Remark"), Red);
}

TEST_F(RTFEncodersFormat, WhiteIsWhiteForTextsAndRedForEntities) {
  const char white[] = "bold=0 color=FFFFFF indent=0 italic=0";
  EXPECT_EQ(SimpleLook(u"WHITE"), white);
  EXPECT_EQ(EntityLook(u"WHITE"), Red);
  Simple.EncodeWhite(u"a");
  EXPECT_EQ(Look(Display->SelFormat()), white);
}

TEST_F(RTFEncodersFormat, ScratchAreaIsResetToThirteenValuesAndNoText) {
  Scratch->Type(u"left over");
  Simple.Encode(u"a", u"Remark");
  const auto writes = Writes(ScratchCalls);
  ASSERT_GE(writes.size(), 2U);
  EXPECT_EQ(writes[0], "SelFormat alignment=0 bold=0 bullet=0 offset=0 color=0 font=Window Font size=8.25 hanging=0 "
                       "indent=0 italic=0 right=0 strike=0 underline=0");
  EXPECT_EQ(writes[1], "Text ");
}

TEST_F(RTFEncodersFormat, OfASimpleTextCopiesAllThirteenValues) {
  Display->SelFormat(Odd());
  Scratch->SelFormat(Odd());
  Calls.clear();
  Simple.Encode(u"a", u"Remark");
  EXPECT_EQ(Writes(Calls), List{"SelFormat alignment=0 bold=1 bullet=0 offset=0 color=7F00 font=Window Font size=8.25 "
                                "hanging=0 indent=0 italic=0 right=0 strike=0 underline=0"});
}

TEST_F(RTFEncodersFormat, ResponseThenInstructionResetsAllThirteenValues) {
  Display->SelFormat(Odd());
  Encoder.Encode(Entity(u"a", u"Response"));
  EXPECT_EQ(Look(Display->SelFormat()), "bold=0 color=0 indent=150 italic=1");
  Display->SelFormat(Odd());
  Encoder.Encode(Entity(u"a", u"Instruction"));
  const SelectionFormat format = Display->SelFormat();
  EXPECT_EQ(Look(format), "bold=1 color=0 indent=0 italic=0");
  EXPECT_EQ(format.SelAlignment, 0);
  EXPECT_EQ(format.SelBullet, false);
  EXPECT_EQ(format.SelCharOffset, 0);
  EXPECT_EQ(format.SelHangingIndent, 0);
  EXPECT_EQ(format.SelRightIndent, 0);
  EXPECT_EQ(format.SelStrikeThru, false);
  EXPECT_EQ(format.SelUnderline, false);
  EXPECT_NE(format.SelFontName, u"Odd");
  EXPECT_NE(format.SelFontSize, 99);
}

TEST_F(RTFEncodersFormat, IsAppliedToTheScratchAreaAfterTheFragmentWasLoaded) {
  Encoder.Encode(Entity(u"a", u"Response"));
  const auto writes = Writes(ScratchCalls);
  ASSERT_EQ(writes.size(), 4U);
  EXPECT_EQ(writes[1], "Text ");
  EXPECT_EQ(writes[2].substr(0, 8), "TextRTF ");
  EXPECT_EQ(writes[3], "SelFormat bold=0 color=0 indent=150 italic=1");
}

TEST_F(RTFEncodersFormat, TakesTheDisplayItWasInitializedWithLast) {
  const auto other = New<RecordingTextBox>(Calls, "other");
  Encoder.Initialize(other);
  Calls.clear();
  Encoder.Encode(Entity(u"a", u"Response"));
  ASSERT_EQ(Writes(Calls).size(), 1U);
  EXPECT_EQ(Writes(Calls)[0].substr(0, 16), "other.SelFormat ");
}

TEST_F(RTFEncodersFormat, IsTakenUpByWhatIsInsertedNext) {
  Display->SelRTF(Encoder.Encode(Entity(u"ok\r\n", u"Response")));
  Display->SelRTF(Encoder.Encode(Entity(u"*IDN?\r\n", u"Instruction")));
  EXPECT_EQ(Escaped(Display->Contents()), "ok\\r\\n*IDN?\\r\\n");
  EXPECT_EQ(Look(Display->FormatAt(0)), "bold=0 color=0 indent=150 italic=1");
  EXPECT_EQ(Look(Display->FormatAt(3)), "bold=0 color=0 indent=150 italic=1");
  EXPECT_EQ(Look(Display->FormatAt(4)), "bold=1 color=0 indent=0 italic=0");
}

} // namespace
} // namespace portico::test
