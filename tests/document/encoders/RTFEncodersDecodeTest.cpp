#include "document/encoders/CRTFEncoder.h"
#include "document/encoders/CSimpleRTFEncoder.h"

#include "support/fixtures/DocumentFixture.h"

namespace portico::test {
namespace {

SelectionFormat Formatted(bool italic, bool bold, std::int32_t color) {
  SelectionFormat format;
  format.SelItalic = italic;
  format.SelBold = bold;
  format.SelColor = color;
  return format;
}

/// Both encoders decode alike.
template <class Encoder>
class RTFEncodersDecode : public DocumentFixture {
protected:
  void Initialize() { Subject.Initialize(Display); }
  String Named(StringView member) const { return String(Subject.ClassName()).append(member); }

  /// The type that a text decodes to which is in this format throughout.
  std::string TypeOf(const SelectionFormat& format, StringView text = u"text\r\n") {
    RecordingTextBox source(Calls);
    source.Type(text, format);
    return ToUtf8(Subject.Decode(source.TextRTF())->DataType());
  }

  Ref<RecordingTextBox> Display = New<RecordingTextBox>(Calls);
  Encoder Subject;
};

struct Names {
  template <class Encoder>
  static std::string GetName(int) {
    return ToUtf8(Encoder().ClassName());
  }
};
using BothEncoders = ::testing::Types<CRTFEncoder, CSimpleRTFEncoder>;
TYPED_TEST_SUITE(RTFEncodersDecode, BothEncoders, Names);

TYPED_TEST(RTFEncodersDecode, MakesAnEntityOfTheFirstLineWithAStampOfItsOwn) {
  this->Initialize();
  const auto entity = this->Subject.Decode(u"one\r\ntwo\r\nthree");
  EXPECT_EQ(this->TextOf(entity), "one\\r\\n");
  EXPECT_EQ(entity->DataType(), u"Instruction");
  EXPECT_EQ(entity->TimeStamp(), u"stamp 1");
  EXPECT_EQ(this->Stamper->Drawn, 1);
}

TYPED_TEST(RTFEncodersDecode, OfTwoParagraphsKeepsTheFirst) {
  this->Initialize();
  EXPECT_EQ(this->TextOf(this->Subject.Decode(u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 one\\par two\\par }")),
            "one\\r\\n");
}

TYPED_TEST(RTFEncodersDecode, AddsALineEndWhereThereIsNone) {
  this->Initialize();
  EXPECT_EQ(this->TextOf(this->Subject.Decode(u"one")), "one\\r\\n");
}

TYPED_TEST(RTFEncodersDecode, OfALineEndAloneIsAnInstructionOfALineEnd) {
  this->Initialize();
  const auto entity = this->Subject.Decode(u"\r\n");
  EXPECT_EQ(this->TextOf(entity), "\\r\\n");
  EXPECT_EQ(entity->DataType(), u"Instruction");
}

TYPED_TEST(RTFEncodersDecode, OfAFragmentWithoutTextHasNoDataAndNoType) {
  this->Initialize();
  const RecordingTextBox empty(this->Calls);
  const auto entity = this->Subject.Decode(empty.TextRTF());
  EXPECT_EQ(entity->DataLength(), 0);
  EXPECT_EQ(entity->DataType(), u"");
  EXPECT_EQ(entity->TimeStamp(), u"stamp 1");
}

TYPED_TEST(RTFEncodersDecode, ReadsTheKindFromTheLook) {
  this->Initialize();
  EXPECT_EQ(this->TypeOf(Formatted(true, false, 0)), "Response");
  EXPECT_EQ(this->TypeOf(Formatted(false, true, 0)), "Instruction");
  EXPECT_EQ(this->TypeOf(Formatted(false, true, 0xFF0000)), "AutomaticInstruction");
  EXPECT_EQ(this->TypeOf(Formatted(false, false, 0x00FF00)), "Configuration");
}

TYPED_TEST(RTFEncodersDecode, AppliesItsRulesInOrder) {
  this->Initialize();
  EXPECT_EQ(this->TypeOf(Formatted(true, true, 0xFF0000)), "Response");
  EXPECT_EQ(this->TypeOf(Formatted(true, false, 0x0000FF)), "Response");
  EXPECT_EQ(this->TypeOf(Formatted(false, true, 0x00FF00)), "Instruction");
  EXPECT_EQ(this->TypeOf(Formatted(false, true, 0x0000FF)), "Instruction");
}

TYPED_TEST(RTFEncodersDecode, OfRedTextHasTheEmptyType) {
  this->Initialize();
  EXPECT_EQ(this->TypeOf(Formatted(false, false, 0x0000FF)), "");
}

TYPED_TEST(RTFEncodersDecode, OfTheDefaultLookIsAnInstruction) {
  this->Initialize();
  EXPECT_EQ(this->TypeOf({}), "Instruction");
}

TYPED_TEST(RTFEncodersDecode, OfAnyOtherColorIsAnInstruction) {
  this->Initialize();
  EXPECT_EQ(this->TypeOf(Formatted(false, false, 0xFF0000)), "Instruction"); // blue is a kind of its own only if bold
  EXPECT_EQ(this->TypeOf(Formatted(false, false, 0xFFFFFF)), "Instruction");
  EXPECT_EQ(this->TypeOf(Formatted(false, true, 0x007F00)), "Instruction"); // so a remark comes back
}

TYPED_TEST(RTFEncodersDecode, ResetsTheScratchAreaBeforeItLoads) {
  this->Initialize();
  this->Scratch->Type(u"left over", Formatted(true, true, 0x0000FF));
  this->ScratchCalls.clear();
  EXPECT_EQ(this->Subject.Decode(u"x")->DataType(), u"Instruction");
  const auto writes = Writes(this->ScratchCalls);
  ASSERT_EQ(writes.size(), 3U);
  EXPECT_EQ(writes[0].substr(0, 10), "SelFormat ");
  EXPECT_EQ(writes[1], "Text ");
  EXPECT_EQ(writes[2], "TextRTF x");
}

TYPED_TEST(RTFEncodersDecode, LeavesTheDisplayAlone) {
  this->Initialize();
  this->Calls.clear();
  this->Subject.Decode(u"x");
  EXPECT_EQ(this->Calls, std::vector<std::string>{});
}

TYPED_TEST(RTFEncodersDecode, OfAnEmptyTextRaises) {
  this->Initialize();
  const auto error = Raised([&] { this->Subject.Decode({}); });
  ExpectError(error, 5, u"RTF string cannot be empty.");
  ExpectTrail(error, {this->Named(u".Decode(RTFText)")});
}

TYPED_TEST(RTFEncodersDecode, BeforeInitializeRaisesEvenForAnEmptyText) {
  for (const String& text : {String(), String(u"x")}) {
    const auto error = Raised([&] { this->Subject.Decode(text); });
    ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
    ExpectTrail(error, {this->Named(u".Decode(RTFText)")});
  }
}

TYPED_TEST(RTFEncodersDecode, PassesAFailureOfTheBoxOn) {
  this->Initialize();
  this->Scratch->OnCall = [](const std::string& call) {
    if (call == "TextRTF x") HuntERR::Raise(321, u"box", u"Not RTF.");
  };
  const auto error = Raised([&] { this->Subject.Decode(u"x"); });
  ExpectError(error, 321, u"Not RTF.");
  ExpectTrail(error, {this->Named(u".Decode(RTFText)")});
}

TYPED_TEST(RTFEncodersDecode, InitializeWithoutADisplayRaisesUnderAnotherName) {
  const auto error = Raised([&] { this->Subject.Initialize({}); });
  ExpectError(error, 5, u"Display cannot be nothing.");
  ExpectTrail(error, {u"CStep.Initialize(Display)"});
  EXPECT_EQ(Raised([&] { this->Subject.Decode(u"x"); }).Number, Hex(0x80041460));
}

TYPED_TEST(RTFEncodersDecode, InitializeNeedsTheMainWindow) {
  gScratchArea = {};
  const auto error = Raised([&] { this->Initialize(); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CStep.Initialize(Display)"});
}

class RTFEncodersErrors : public DocumentFixture {
protected:
  void FailOn(const std::string& failing) {
    Display->OnCall = Scratch->OnCall = [failing](const std::string& call) {
      if (call == failing) HuntERR::Raise(7, u"box", u"The box failed.");
    };
  }

  Ref<RecordingTextBox> Display = New<RecordingTextBox>(Calls);
  CRTFEncoder Encoder;
  CSimpleRTFEncoder Simple;
};

TEST_F(RTFEncodersErrors, EncodeOfAnEntityBeforeInitializeRaises) {
  const auto error = Raised([&] { Encoder.Encode({}); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CRTFEncoder.Encode(Dataentity)"});
}

TEST_F(RTFEncodersErrors, EncodeOfNoEntityRaises) {
  Encoder.Initialize(Display);
  const auto error = Raised([&] { Encoder.Encode({}); });
  ExpectError(error, 5, u"Data entity cannot be nothing.");
  ExpectTrail(error, {u"CRTFEncoder.Encode(Dataentity)"});
}

TEST_F(RTFEncodersErrors, EncodeOfATextChecksNothingAndFailsOnTheUnsetBox) {
  const auto error = Raised([&] { Simple.Encode(u"a", u"Remark"); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CSimpleRTFEncoder.Encode(sData)"});
}

TEST_F(RTFEncodersErrors, EncodeWhiteBearsTheLabelOfEncode) {
  const auto error = Raised([&] { Simple.EncodeWhite(u"a"); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CSimpleRTFEncoder.Encode(sData)"});
}

TEST_F(RTFEncodersErrors, FailuresOfTheBoxPassThroughTheLabels) {
  Encoder.Initialize(Display);
  Simple.Initialize(Display);
  FailOn("Text ");
  ExpectTrail(Raised([&] { Encoder.Encode(Entity(u"a", u"Response")); }), {u"CRTFEncoder.Encode(Dataentity)"});
  HuntERR::Reset();
  ExpectTrail(Raised([&] { Simple.Encode(u"a", u"Response"); }), {u"CSimpleRTFEncoder.Encode(sData)"});
  HuntERR::Reset();
  FailOn("get TextRTF");
  ExpectTrail(Raised([&] { Simple.EncodeWhite(u"a"); }), {u"CSimpleRTFEncoder.Encode(sData)"});
}

TEST_F(RTFEncodersErrors, AnAutomaticInstructionComesBackFromItsLook) {
  Encoder.Initialize(Display);
  const auto sent = Entity(u"*OPC?\r\n", u"AutomaticInstruction");
  Display->SelRTF(Encoder.Encode(sent));
  Display->Select(0, 7);
  const auto read = Encoder.Decode(Display->SelRTF());
  EXPECT_EQ(read->DataType(), u"AutomaticInstruction");
  EXPECT_EQ(TextOf(read), "*OPC?\\r\\n");
  EXPECT_NE(read->TimeStamp(), sent->TimeStamp());
}

} // namespace
} // namespace portico::test
