#include "configuration/CConfiguration.h"

#include "framework/errors/HuntERR.h"
#include "framework/objects/CObjectFactory.h"
#include "support/Labels.h"

#include <gmock/gmock.h>

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

class CConfigurationTest : public ::testing::Test {
protected:
  CConfigurationTest() { Server->Initialize(); }
  ~CConfigurationTest() override { HuntERR::Reset(); }

  static void ExpectSuccess(const Ref<IResponse>& response, StringView data) {
    EXPECT_EQ(response->ErrorCode(), 0);
    EXPECT_EQ(response->ErrorMessage(), u"Success");
    EXPECT_EQ(ToUtf8(response->ResponseData()), ToUtf8(data));
  }
  void ExpectAll(StringView xml) { ExpectSuccess(Server->Retrieve(u""), xml); }

  Ref<CConfiguration> Server = New<CConfiguration>();
};

TEST_F(CConfigurationTest, EmptyServerRetrievesAnEmptyDocument) { ExpectAll(u"<Parameters/>"); }

TEST_F(CConfigurationTest, ItemIsReadByNameInAnyCase) {
  Server->ItemValue(u"Logging", u"On");
  EXPECT_EQ(Server->ItemValue(u"Logging"), u"On");
  EXPECT_EQ(Server->ItemValue(u"LOGGING"), u"On");
}

TEST_F(CConfigurationTest, AKeyReadsWhatWasWrittenByNameAndTheOtherWayRound) {
  Server->ItemValue(u"LOGGING", u"On");
  EXPECT_TRUE(Server->IsOn(Item::Logging));
  Server->ItemValue(u"Logging", u"Off");
  EXPECT_FALSE(Server->IsOn(Item::Logging));
  Server->Set(Item::Logging, true);
  EXPECT_EQ(Server->ItemValue(u"logging"), u"On");
}

TEST_F(CConfigurationTest, AKeyFindsAnItemOnceItIsThere) {
  EXPECT_EQ(Raised([&] { Server->IsOn(Item::Logging); }).Number, Hex(0x80041461));
  Server->ItemValue(u"Logging", u"On");
  EXPECT_TRUE(Server->IsOn(Item::Logging));
}

TEST_F(CConfigurationTest, AKeyIsLookedUpAgainInANewTable) {
  Server->Set(Item::Logging, true);
  EXPECT_TRUE(Server->IsOn(Item::Logging));
  Server->Clear();
  EXPECT_EQ(Raised([&] { Server->IsOn(Item::Logging); }).Number, Hex(0x80041461));
  Server->Set(Item::Logging, true);
  EXPECT_TRUE(Server->IsOn(Item::Logging));
  Server->Initialize();
  EXPECT_EQ(Raised([&] { Server->IsOn(Item::Logging); }).Number, Hex(0x80041461));
}

TEST_F(CConfigurationTest, AKeyIsLookedUpInTheServerThatIsAsked) {
  Server->Set(Item::Logging, true);
  const auto other = New<CConfiguration>();
  other->Initialize();
  other->ItemValue(u"RunningMode", u"Off");
  other->Set(Item::Logging, false);
  EXPECT_FALSE(other->IsOn(Item::Logging));
  EXPECT_TRUE(Server->IsOn(Item::Logging));
}

TEST_F(CConfigurationTest, WriteInAnotherCaseKeepsTheFirstSpelling) {
  Server->ItemValue(u"Logging", u"On");
  Server->ItemValue(u"LOGGING", u"Off");
  ExpectAll(u"<Parameters><Parameter Name=\"Logging\">Off</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, MissingItemRaises) {
  const ErrorRecord error = Raised([&] { Server->ItemValue(u"CurrentInstruction"); });
  ExpectError(error, Hex(0x80041461), u"Requested configuration item, CurrentInstruction, does not exist.");
  ExpectTrail(error, {u"CConfiguration.IConfiguration_ItemValue()"});
}

TEST_F(CConfigurationTest, WriteOfAnEmptyNameHasNoEffect) {
  EXPECT_NO_THROW(Server->ItemValue(u"", u"x"));
  ExpectAll(u"<Parameters/>");
}

TEST_F(CConfigurationTest, WriteBeforeInitializeHasNoEffectAndRaisesNothing) {
  CConfiguration server;
  EXPECT_NO_THROW(server.ItemValue(u"Logging", u"On"));
  server.Initialize();
  EXPECT_EQ(server.Retrieve(u"")->ResponseData(), u"<Parameters/>");
}

TEST_F(CConfigurationTest, GuardsStandBeforeInitialize) {
  CConfiguration server;
  const auto expect = [](auto call, StringView label) {
    const ErrorRecord error = Raised(call);
    ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
    ExpectTrail(error, {label});
  };
  expect([&] { server.Update(u"<Parameters/>"); }, u"CConfiguration.Update(Configuration)");
  expect([&] { server.Retrieve(u""); }, u"CConfiguration.Update(Configuration)");
  expect([&] { server.ItemValue(u"Logging"); }, u"CConfiguration.IConfiguration_ItemValue()");
}

TEST_F(CConfigurationTest, ClearEmptiesTheTable) {
  Server->ItemValue(u"Logging", u"On");
  Server->Clear();
  ExpectAll(u"<Parameters/>");
  Server->ItemValue(u"LOGGING", u"Off");
  ExpectAll(u"<Parameters><Parameter Name=\"LOGGING\">Off</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, AllItemsComeInTableOrder) {
  Server->ItemValue(u"Logging", u"On");
  Server->ItemValue(u"RunningMode", u"Off");
  Server->ItemValue(u"Logging", u"Off");
  ExpectAll(u"<Parameters><Parameter Name=\"Logging\">Off</Parameter>"
            u"<Parameter Name=\"RunningMode\">Off</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, ValuesAndNamesAreEscaped) {
  Server->ItemValue(u"A\"<&>", u"1 < 2 & \"3\" > ']'");
  ExpectAll(u"<Parameters><Parameter Name=\"A&quot;&lt;&amp;>\">1 &lt; 2 &amp; \"3\" &gt; ']'"
            u"</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, UpdateWritesItemsAndAnswersWithAll) {
  Server->ItemValue(u"Logging", u"On");
  ExpectSuccess(Server->Update(u"<Parameters><Parameter Name=\"RunningMode\">Run</Parameter></Parameters>"),
                u"<Parameters><Parameter Name=\"Logging\">On</Parameter>"
                u"<Parameter Name=\"RunningMode\">Run</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, UpdateInAnotherCaseOverwritesTheItem) {
  Server->ItemValue(u"Logging", u"On");
  ExpectSuccess(Server->Update(u"<Parameters><Parameter Name=\"LOGGING\">Off</Parameter></Parameters>"),
                u"<Parameters><Parameter Name=\"Logging\">Off</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, UpdateCreatesAnUnknownItemForGood) {
  Server->Update(u"<Parameters><Parameter Name=\"New\">1</Parameter></Parameters>");
  ExpectAll(u"<Parameters><Parameter Name=\"New\">1</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, UpdateTakesTheLastOfTwo) {
  Server->Update(u"<Parameters><Parameter Name=\"A\">1</Parameter><Parameter Name=\"a\">2</Parameter></Parameters>");
  ExpectAll(u"<Parameters><Parameter Name=\"A\">2</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, UpdateReadsOnlyParametersBelowTheRoot) {
  Server->Update(u"<Parameters><Other Name=\"A\">1</Other><Group><Parameter Name=\"B\">2</Parameter></Group>"
                 u"<parameter Name=\"C\">3</parameter></Parameters>");
  Server->Update(u"<Settings><Parameter Name=\"D\">4</Parameter></Settings>");
  ExpectAll(u"<Parameters/>");
}

TEST_F(CConfigurationTest, UpdateReadsEscapesSectionsAndAllTextBelowAnElement) {
  Server->Update(u"<Parameters><Parameter Name=\"A&amp;B\">1 &lt; <![CDATA[2 & 3]]><b>4</b><!-- no --></Parameter>"
                 u"</Parameters>");
  EXPECT_EQ(Server->ItemValue(u"A&B"), u"1 < 2 & 34");
}

TEST_F(CConfigurationTest, UpdateKeepsCharactersBeyondASCII) {
  Server->Update(u"<Parameters><Parameter Name=\"\u00DC\">\u03A9 \U0001F4DF</Parameter></Parameters>");
  EXPECT_EQ(Server->ItemValue(u"\u00DC"), u"\u03A9 \U0001F4DF");
}

TEST_F(CConfigurationTest, EmptyElementWritesAnEmptyValue) {
  Server->ItemValue(u"A", u"1");
  Server->Update(u"<Parameters><Parameter Name=\"A\"/></Parameters>");
  EXPECT_EQ(Server->ItemValue(u"A"), u"");
}

TEST_F(CConfigurationTest, ParameterWithoutANameRaises91AndKeepsWhatWasWrittenBefore) {
  const ErrorRecord error = Raised([&] {
    Server->Update(u"<Parameters><Parameter Name=\"A\">1</Parameter><Parameter>2</Parameter>"
                   u"<Parameter Name=\"C\">3</Parameter></Parameters>");
  });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CConfiguration.Update(Configuration)"});
  ExpectAll(u"<Parameters><Parameter Name=\"A\">1</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, ParameterWithoutANameRaises91InRetrieveToo) {
  const ErrorRecord error = Raised([&] { Server->Retrieve(u"<Parameters><Parameter/></Parameters>"); });
  EXPECT_EQ(error.Number, 91);
  ExpectTrail(error, {u"CConfiguration.Update(Configuration)"});
}

TEST_F(CConfigurationTest, RetrieveFillsTheTemplateIn) {
  Server->ItemValue(u"Logging", u"On");
  Server->ItemValue(u"RunningMode", u"Off");
  ExpectSuccess(Server->Retrieve(u"<Parameters><Parameter Name=\"RunningMode\">ignored</Parameter></Parameters>"),
                u"<Parameters><Parameter Name=\"RunningMode\">Off</Parameter></Parameters>");
  EXPECT_EQ(Server->ItemValue(u"RunningMode"), u"Off");
}

TEST_F(CConfigurationTest, RetrieveOfAnUnknownItemRaisesWithoutAResponse) {
  Server->ItemValue(u"Logging", u"On");
  const ErrorRecord error = Raised([&] {
    Server->Retrieve(u"<Parameters><Parameter Name=\"Logging\"/><Parameter Name=\"Nothing\"/></Parameters>");
  });
  ExpectError(error, Hex(0x80041461), u"Requested configuration item, Nothing, does not exist.");
  ExpectTrail(error, {u"CConfiguration.IConfiguration_ItemValue()", u"CConfiguration.Update(Configuration)"});
}

TEST_F(CConfigurationTest, RetrieveGivesAnythingElseBackAsItWas) {
  Server->ItemValue(u"Logging", u"On");
  ExpectSuccess(Server->Retrieve(u"<?xml version=\"1.0\"?>\n<!-- mine -->\n<Parameters a=\"1\">\n  "
                                 u"<Parameter b=\"2\" Name=\"LOGGING\"><x/>old</Parameter>\n  "
                                 u"<Other>kept &amp; <![CDATA[<raw>]]></Other><?go on?>\n</Parameters>\n<!-- end -->"),
                u"<?xml version=\"1.0\"?>\n<!-- mine -->\n<Parameters a=\"1\">\n  "
                u"<Parameter b=\"2\" Name=\"LOGGING\">On</Parameter>\n  "
                u"<Other>kept &amp; <![CDATA[<raw>]]></Other><?go on?>\n</Parameters>\n<!-- end -->");
}

TEST_F(CConfigurationTest, RetrieveEscapesTheValues) {
  Server->ItemValue(u"A", u"a<b>&c");
  ExpectSuccess(Server->Retrieve(u"<Parameters><Parameter Name=\"A\"/></Parameters>"),
                u"<Parameters><Parameter Name=\"A\">a&lt;b&gt;&amp;c</Parameter></Parameters>");
}

TEST_F(CConfigurationTest, WhatRetrieveGivesUpdateTakes) {
  const String value = u"  :SYST:ERR? \t<&>\"' \u00B5 ";
  Server->ItemValue(u"A", value);
  const String xml = Server->Retrieve(u"")->ResponseData();
  Server->ItemValue(u"A", u"");
  Server->Update(xml);
  EXPECT_EQ(Server->ItemValue(u"A"), value);
}

class BadXmlTest : public CConfigurationTest, public ::testing::WithParamInterface<const char16_t*> {};

INSTANTIATE_TEST_SUITE_P(Texts, BadXmlTest,
                         ::testing::Values(u"Logging=On", u" ", u"<Parameters>", u"<Parameters></Parameter>",
                                           u"<Parameters/><Parameters/>", u"<Parameters/>tail", u"head<Parameters/>",
                                           u"<Parameters><Parameter Name=\"A></Parameters>", u"<!-- only -->",
                                           u"<Parameters/><![CDATA[x]]>", u"<Parameters>&#xD800;</Parameters>",
                                           u"<Parameters a=\"&#x110000;\"/>", u"<Parameters>&#0;</Parameters>",
                                           u"<Parameters>a&#x000;b</Parameters>", u"<Parameters a=\"&#00;\"/>",
                                           u"<Parameters><a><![CDATA[]]>&#0;</a></Parameters>"));

TEST_P(BadXmlTest, IsRefusedByUpdateAndRetrieve) {
  for (const auto& call :
       {std::function<void()>([&] { Server->Update(GetParam()); }), {[&] { Server->Retrieve(GetParam()); }}}) {
    const ErrorRecord error = Raised(call);
    ExpectError(error, 5, u"Syntax Error: Configuration is not valid XML");
    ExpectTrail(error, {u"CConfiguration.Update(Configuration)"});
  }
  ExpectAll(u"<Parameters/>");
}

TEST_F(CConfigurationTest, DocumentThatHoldsU0000IsNoXMLWhereverItStands) {
  const String document = u"<Parameters><Parameter Name=\"A\">1</Parameter><!-- x --></Parameters>";
  for (std::size_t at = 0; at <= document.size(); ++at) {
    String spoilt = document;
    spoilt.insert(at, 1, u'\0');
    ExpectError(Raised([&] { Server->Update(spoilt); }), 5, u"Syntax Error: Configuration is not valid XML");
    ExpectError(Raised([&] { Server->Retrieve(spoilt); }), 5, u"Syntax Error: Configuration is not valid XML");
  }
  ExpectAll(u"<Parameters/>");
}

TEST_F(CConfigurationTest, WhatOnlyLooksLikeAReferenceIsText) {
  Server->Update(
      u"<Parameters><!-- &#0; --><Parameter Name=\"A\"><![CDATA[&#0;]]>&amp;#0;&#48;</Parameter></Parameters>");
  EXPECT_EQ(Server->ItemValue(u"A"), u"&#0;&#0;0");
}

TEST_F(CConfigurationTest, U0000InAValueOrANameIsLeftOutOfTheXML) {
  Server->ItemValue(StringView(u"A\0B", 3), StringView(u"\0a\0\0b\0", 6));
  Server->ItemValue(u"C", StringView(u"\0", 1));
  ExpectAll(u"<Parameters><Parameter Name=\"AB\">ab</Parameter><Parameter Name=\"C\"/></Parameters>");
  ExpectSuccess(Server->Retrieve(u"<Parameters><Parameter Name=\"C\">old</Parameter></Parameters>"),
                u"<Parameters><Parameter Name=\"C\"/></Parameters>");
  EXPECT_EQ(Server->ItemValue(u"C").size(), 1U) << "the value itself stays";
}

TEST_F(CConfigurationTest, UpdateOfNothingIsNoXML) {
  ExpectError(Raised([&] { Server->Update(u""); }), 5, u"Syntax Error: Configuration is not valid XML");
}

TEST_F(CConfigurationTest, SecondInitializeEmptiesTheTable) {
  Server->ItemValue(u"A", u"1");
  Server->Initialize();
  ExpectAll(u"<Parameters/>");
}

class CtorConfigurationTest : public CConfigurationTest {
protected:
  Ref<ICreator> Creator = MakeCreator(CtorConfiguration);
};

TEST_F(CtorConfigurationTest, HandsTheOneServerOutReadyForUse) {
  EXPECT_EQ(Creator->ClassName(), u"CtorConfiguration");
  EXPECT_EQ(Creator->Specification().ToString(), u"Configuration");
  Cast<IConfiguration>(Creator->Create({}))->ItemValue(u"A", u"1");
  EXPECT_EQ(Cast<CConfiguration>(Creator->Create({}))->ItemValue(u"A"), u"1");
}

TEST_F(CtorConfigurationTest, TakesNoParameters) {
  const ErrorRecord error = Raised([&] { Creator->Create({u"x"}); });
  ExpectError(error, 450, u"Expected 0 parameters.");
  ExpectTrail(error, {u"CtorConfiguration.ICreator_Create(Params)"});
}

TEST_F(CtorConfigurationTest, MissingServerRaises31004) {
  CreatorRow row = CtorConfiguration;
  row.Make = [](const Params&) -> Ref<IObject> { return {}; };
  ExpectError(Raised([&] { MakeCreator(row)->Create({}); }), 31004, u"Configuration object does not exist.");
}

} // namespace
} // namespace portico
