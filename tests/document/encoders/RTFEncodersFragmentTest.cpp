#include "document/encoders/CRTFEncoder.h"
#include "document/encoders/CSimpleRTFEncoder.h"

#include "support/fixtures/DocumentFixture.h"

namespace portico::test {
namespace {

class RTFEncodersFragment : public DocumentFixture {
protected:
  RTFEncodersFragment() {
    Encoder.Initialize(Display);
    Simple.Initialize(Display);
    Calls.clear();
    ScratchCalls.clear();
  }

  static std::string Attribute(const Ref<IDataEntity>& entity, const String& name) {
    return ToUtf8(entity->DataAttribute(name));
  }

  Ref<RecordingTextBox> Display = New<RecordingTextBox>(Calls);
  CRTFEncoder Encoder;
  CSimpleRTFEncoder Simple;
};

TEST_F(RTFEncodersFragment, IsHeaderTextParagraphMarkAndEnd) {
  const String fragment = Encoder.Encode(Entity(u"A", u"Instruction"));
  EXPECT_EQ(ToUtf8(fragment), "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 A\\par }\r\n");
  EXPECT_EQ(fragment.size(), 41U + 2U);
  EXPECT_EQ(fragment.find(u'A'), 34U);
}

TEST_F(RTFEncodersFragment, OfASimpleTextIsTheSame) {
  EXPECT_EQ(ToUtf8(Simple.Encode(u"A", u"Remark")), "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 A\\par }\r\n");
}

TEST_F(RTFEncodersFragment, OfAWhiteTextEndsInTheBraceAlone) {
  EXPECT_EQ(ToUtf8(Simple.EncodeWhite(u"A")), "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 A\\par }");
}

TEST_F(RTFEncodersFragment, KeepsTheLineEndOfTheText) {
  EXPECT_EQ(ToUtf8(Encoder.Encode(Entity(u"*IDN?\r\n", u"Instruction"))),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 *IDN?\r\n\\par }\r\n");
  EXPECT_EQ(ToUtf8(Simple.Encode(u"REM a\r\n", u"Remark")),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 REM a\r\n\\par }\r\n");
}

TEST_F(RTFEncodersFragment, EscapesNothing) {
  EXPECT_EQ(ToUtf8(Encoder.Encode(Entity(u"{", u"Response"))), "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 {\\par }\r\n");
  EXPECT_EQ(ToUtf8(Encoder.Encode(Entity(u"a\\b}\u20AC\u4E2D", u"Response"))),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 a\\b}\u20AC\u4E2D\\par }\r\n");
  EXPECT_EQ(ToUtf8(Simple.Encode(u"{\\\u4E2D", u"Remark")),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 {\\\u4E2D\\par }\r\n");
}

TEST_F(RTFEncodersFragment, OfNoTextHasHeaderAndMarkOnly) {
  EXPECT_EQ(ToUtf8(Encoder.Encode(Entity(u"", u""))), "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 \\par }\r\n");
  EXPECT_EQ(ToUtf8(Simple.EncodeWhite(u"")), "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 \\par }");
}

TEST_F(RTFEncodersFragment, HoldsNoHiddenText) {
  for (const String& fragment :
       {Encoder.Encode(Entity(u"a", u"Response")), Simple.Encode(u"a", u"Response"), Simple.EncodeWhite(u"a")}) {
    EXPECT_EQ(fragment.find(u"<<<+++>>>"), String::npos);
    EXPECT_EQ(fragment.find(u"\\v"), String::npos);
  }
}

TEST_F(RTFEncodersFragment, LengthIsNotedOnTheEntityWithALeadingBlank) {
  const auto entity = Entity(u"A", u"Instruction");
  const String fragment = Encoder.Encode(entity);
  EXPECT_EQ(fragment.size(), 43U);
  EXPECT_EQ(Attribute(entity, u"_RTFSelectionLength"), " 43");
  EXPECT_EQ(Attribute(entity, u"_RTFVisibleTextOffset"), "0");
}

TEST_F(RTFEncodersFragment, LengthCountsCharactersNotBytes) {
  const auto entity = Entity(u"\u20AC\u4E2D\r\n", u"Response");
  Encoder.Encode(entity);
  EXPECT_EQ(Attribute(entity, u"_RTFSelectionLength"), " 46");
}

TEST_F(RTFEncodersFragment, LengthIsNotedAnewByEachEncode) {
  const auto entity = Entity(u"A", u"Instruction");
  Encoder.Encode(entity);
  entity->UpdateData(ToBytes(u"AB"));
  Encoder.Encode(entity);
  EXPECT_EQ(Attribute(entity, u"_RTFSelectionLength"), " 44");
}

TEST_F(RTFEncodersFragment, LeavesDataTypeAndStampOfTheEntity) {
  const auto entity = Entity(u"A\r\n", u"Instruction");
  Encoder.Encode(entity);
  EXPECT_EQ(TextOf(entity), "A\\r\\n");
  EXPECT_EQ(entity->DataType(), u"Instruction");
  EXPECT_EQ(entity->TimeStamp(), u"stamp 1");
}

TEST_F(RTFEncodersFragment, IsLoadedIntoTheScratchAreaForEntitiesOnly) {
  Encoder.Encode(Entity(u"A", u"Instruction"));
  const std::string load = "TextRTF {\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 A\\par }\\r\\n";
  EXPECT_EQ(std::count(ScratchCalls.begin(), ScratchCalls.end(), load), 1);
  ScratchCalls.clear();
  Simple.Encode(u"A", u"Remark");
  Simple.EncodeWhite(u"A");
  EXPECT_EQ(std::count(ScratchCalls.begin(), ScratchCalls.end(), load), 0);
  EXPECT_EQ(ToUtf8(Scratch->Contents()), "");
}

TEST_F(RTFEncodersFragment, OfASimpleTextReadsTheScratchAreaLast) {
  Simple.Encode(u"A", u"Remark");
  EXPECT_EQ(ScratchCalls.back(), "get TextRTF");
  ScratchCalls.clear();
  Simple.EncodeWhite(u"A");
  EXPECT_EQ(ScratchCalls.back(), "get TextRTF");
}

TEST_F(RTFEncodersFragment, OfABoxIsTheEncodedOneAndLeavesTheScratchArea) {
  for (const StringView text : {u"A", u"*IDN?\r\n", u"{\\\u20AC", u""}) {
    const auto composed = Entity(text, u"Response");
    const auto encoded = Entity(text, u"Response");
    const TextFragment fragment = Encoder.Compose(composed);
    EXPECT_TRUE(ScratchCalls.empty());
    const auto shown = Writes(std::exchange(Calls, {}));
    EXPECT_EQ(ToUtf8(fragment.Rtf()), ToUtf8(Encoder.Encode(encoded)));
    EXPECT_EQ(shown, Writes(std::exchange(Calls, {}))) << "the look on the display";
    EXPECT_EQ(fragment.Length(), fragment.Rtf().size());
    EXPECT_EQ(Attribute(composed, u"_RTFSelectionLength"), Attribute(encoded, u"_RTFSelectionLength"));
    EXPECT_EQ(Attribute(composed, u"_RTFVisibleTextOffset"), "0");
    ScratchCalls.clear();

    const TextFragment remark = Simple.Compose(String(text), u"Remark");
    EXPECT_TRUE(ScratchCalls.empty());
    const auto shownRemark = Writes(std::exchange(Calls, {}));
    EXPECT_EQ(ToUtf8(remark.Rtf()), ToUtf8(Simple.Encode(String(text), u"Remark")));
    EXPECT_EQ(shownRemark, Writes(std::exchange(Calls, {})));
    ScratchCalls.clear();
  }
}

TEST_F(RTFEncodersFragment, LengthIsThatOfTheFragmentAsItWouldBeWritten) {
  const auto entity = Entity(u"\u20AC\u4E2D\r\n", u"Response");
  EXPECT_EQ(Encoder.Compose(entity).Length(), 46U);
  EXPECT_EQ(Attribute(entity, u"_RTFSelectionLength"), " 46");
}

TEST_F(RTFEncodersFragment, IsNotInsertedByTheEncoder) {
  Display->Type(u"before");
  Encoder.Encode(Entity(u"A", u"Instruction"));
  Encoder.Compose(Entity(u"A", u"Instruction"));
  Simple.Encode(u"A", u"Remark");
  Simple.Compose(u"A", u"Remark");
  EXPECT_EQ(ToUtf8(Display->Contents()), "before");
}

} // namespace
} // namespace portico::test
