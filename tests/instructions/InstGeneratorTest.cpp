#include "instructions/CInstGenerator.h"
#include "instructions/CInstWrapper.h"

#include "support/ErrorReports.h"

namespace portico {
namespace {

using test::FailureOf;
using test::Hex;

/// Type, function, and "key=value" of each parameter in order.
std::vector<String> Fields(const Ref<CInstContainer>& instruction) {
  std::vector<String> fields = {instruction->CmdType(), instruction->FunctionName()};
  for (std::size_t i = 1; i <= instruction->Params()->Count(); ++i) {
    fields.push_back(instruction->Params()->Key(i) + u"=" + instruction->Params()->Item(i).ToString());
  }
  return fields;
}

using List = std::vector<String>;

TEST(CInstGenerator, MakesTheSevenShapes) {
  const CInstGenerator generator;
  EXPECT_EQ(Fields(generator.ConstructXMLOpenCmdString(u"DMM")), (List{u"COMM", u"Open", u"ChannelName=DMM"}));
  EXPECT_EQ(Fields(generator.ConstructXMLCloseCmdString()), (List{u"COMM", u"Close"}));
  EXPECT_EQ(Fields(generator.ConstructXMLWriteCmdString(u"*RST")), (List{u"COMM", u"Write", u"Data=*RST"}));
  EXPECT_EQ(Fields(generator.ConstructXMLSCPICmdString(u"*IDN?")), (List{u"SCPI", u"Send", u"Data=*IDN?"}));
  EXPECT_EQ(Fields(generator.ConstructXMLReadCmdString()), (List{u"COMM", u"Read", u"Data="}));
  EXPECT_EQ(Fields(generator.ConstructXMLSetAttribCmdString(u"TERMCHAR", u"LF")),
            (List{u"COMM", u"SetAttribute", u"Name=TERMCHAR", u"Value=LF"}));
  EXPECT_EQ(Fields(generator.ConstructXMLGetAttribCmdString(u"TERMCHAR")),
            (List{u"COMM", u"GetAttribute", u"Name=TERMCHAR", u"Value="}));
}

TEST(CInstGenerator, ReadHasAParameterAlthoughItIsEmptyAndCloseHasNone) {
  const CInstGenerator generator;
  EXPECT_EQ(generator.ConstructXMLReadCmdString()->Params()->Count(), 1U);
  EXPECT_EQ(generator.ConstructXMLCloseCmdString()->Params()->Count(), 0U);
}

TEST(CInstGenerator, MakesANewInstructionEachTime) {
  const CInstGenerator generator;
  const auto one = generator.ConstructXMLReadCmdString();
  const auto other = generator.ConstructXMLReadCmdString();
  EXPECT_FALSE(IsSameObject(one, other));
  EXPECT_NE(one->Params(), other->Params());
}

TEST(CInstGenerator, WorksTheSameAfterInitialize) {
  CInstGenerator generator;
  generator.Initialize();
  EXPECT_EQ(Fields(generator.ConstructXMLSCPICmdString(u"*CLS")), (List{u"SCPI", u"Send", u"Data=*CLS"}));
}

TEST(CInstGenerator, AnEmptyAttributeValueIsLegal) {
  EXPECT_EQ(Fields(CInstGenerator().ConstructXMLSetAttribCmdString(u"TERMCHAR", u"")),
            (List{u"COMM", u"SetAttribute", u"Name=TERMCHAR", u"Value="}));
}

TEST(CInstGenerator, AnEmptyCommandLineFailsWithTheAttributeText) {
  const auto failure = FailureOf([] { CInstGenerator().ConstructXMLSCPICmdString(u""); });
  EXPECT_EQ(failure.Number, Hex(0x80041451));
  EXPECT_EQ(failure.Text, u"An attribute name required for SetattributeValue command");
}

TEST(CInstGenerator, OnlyOpenHasATail) {
  const auto open = FailureOf([] { CInstGenerator().ConstructXMLOpenCmdString(u""); });
  EXPECT_EQ(open.Trail, List{u"CInstGenerator.ConstructXMLOpenCmdString(Instrument='')"});
  EXPECT_EQ(open.Source, u"HuntERR.Check");

  const CInstGenerator generator;
  for (const auto& failure : {FailureOf([&] { generator.ConstructXMLWriteCmdString(u""); }),
                              FailureOf([&] { generator.ConstructXMLSCPICmdString(u""); }),
                              FailureOf([&] { generator.ConstructXMLSetAttribCmdString(u"", u"LF"); }),
                              FailureOf([&] { generator.ConstructXMLGetAttribCmdString(u""); })}) {
    EXPECT_EQ(failure.Trail, List{});
    EXPECT_EQ(failure.Source, u"HuntERR.Check");
  }
}

TEST(CInstWrapper, SpellsTheCompleteStrings) {
  const CInstWrapper wrapper;
  EXPECT_EQ(wrapper.ConstructXMLSCPICmdString(u"*IDN?"),
            u"<Instruction Type=\"SCPI\"><Function Name=\"Send\"><Parameters><Parameter Name=\"Data\">*IDN?</Parameter>"
            u"</Parameters></Function></Instruction>");
  EXPECT_EQ(wrapper.ConstructXMLCloseCmdString(),
            u"<Instruction Type=\"COMM\"><Function Name=\"Close\"><Parameters></Parameters></Function></Instruction>");
  EXPECT_EQ(wrapper.ConstructXMLReadCmdString(),
            u"<Instruction Type=\"COMM\"><Function Name=\"Read\"><Parameters><Parameter Name=\"Data\"></Parameter>"
            u"</Parameters></Function></Instruction>");
  EXPECT_EQ(wrapper.ConstructXMLSetAttribCmdString(u"A", u"B"),
            u"<Instruction Type=\"COMM\"><Function Name=\"SetAttribute\"><Parameters>"
            u"<Parameter Name=\"Name\">A</Parameter><Parameter Name=\"Value\">B</Parameter>"
            u"</Parameters></Function></Instruction>");
}

TEST(CInstWrapper, SpellsTheOtherThreeShapesAlike) {
  const CInstWrapper wrapper;
  EXPECT_EQ(wrapper.ConstructXMLOpenCmdString(u"DMM"),
            u"<Instruction Type=\"COMM\"><Function Name=\"Open\"><Parameters><Parameter Name=\"ChannelName\">DMM"
            u"</Parameter></Parameters></Function></Instruction>");
  EXPECT_EQ(wrapper.ConstructXMLWriteCmdString(u"*RST"),
            u"<Instruction Type=\"COMM\"><Function Name=\"Write\"><Parameters><Parameter Name=\"Data\">*RST"
            u"</Parameter></Parameters></Function></Instruction>");
  EXPECT_EQ(wrapper.ConstructXMLGetAttribCmdString(u"A"),
            u"<Instruction Type=\"COMM\"><Function Name=\"GetAttribute\"><Parameters><Parameter Name=\"Name\">A"
            u"</Parameter><Parameter Name=\"Value\"></Parameter></Parameters></Function></Instruction>");
}

TEST(CInstWrapper, PastesValuesInAsTheyStand) {
  EXPECT_EQ(CInstWrapper().ConstructXMLWriteCmdString(u"A<B & \"C\">"),
            u"<Instruction Type=\"COMM\"><Function Name=\"Write\"><Parameters><Parameter Name=\"Data\">A<B & \"C\">"
            u"</Parameter></Parameters></Function></Instruction>");
}

constexpr char16_t SetText[] = u"An attribute name required for SetattributeValue command";
constexpr char16_t GetText[] = u"An attribute name required for GetattributeValue command";

/// Both classes refuse the same, but for one number.
template <class Maker>
void ExpectRefusals(std::uint32_t emptyNameForGet) {
  const Maker maker;
  const auto expect = [](auto act, std::uint32_t number, StringView text) {
    const auto failure = FailureOf(act);
    EXPECT_EQ(failure.Number, Hex(number));
    EXPECT_EQ(failure.Text, text);
  };
  expect([&] { maker.ConstructXMLOpenCmdString(u""); }, 0x8004145C, u"An instrument name required");
  expect([&] { maker.ConstructXMLWriteCmdString(u""); }, 0x80041451, SetText);
  expect([&] { maker.ConstructXMLSCPICmdString(u""); }, 0x80041451, SetText);
  expect([&] { maker.ConstructXMLSetAttribCmdString(u"", u"LF"); }, 0x8004145F, SetText);
  expect([&] { maker.ConstructXMLGetAttribCmdString(u""); }, emptyNameForGet, GetText);
}

TEST(CInstGenerator, RefusesEmptyValues) { ExpectRefusals<CInstGenerator>(0x80041451); }

TEST(CInstWrapper, RefusesEmptyValuesWithAnotherNumberForGet) { ExpectRefusals<CInstWrapper>(0x8004145F); }

} // namespace
} // namespace portico
