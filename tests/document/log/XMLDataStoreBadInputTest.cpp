#include "document/log/LogBench.h"

#include "document/log/LogText.h"

namespace portico::test {
namespace {

class XMLDataStoreBadInputTest : public StoreTest {
protected:
  /// What opening the file raises; the file must stay as it is.
  ErrorRecord Opening(const std::string& bytes) {
    Disk->Put(Path, bytes);
    const auto error = Raised([&] { Store(); });
    EXPECT_EQ(Bytes(), bytes);
    return error;
  }
  /// What reading an entity raises, the file being a good log.
  ErrorRecord Reading(const std::string& entities) {
    Disk->Put(Path, PlainLogOf("<Session>" + entities + "</Session>"));
    const std::string before = Bytes();
    const auto store = Store();
    const auto error = Raised([&] { store->FillDataContainerFromStore(); });
    EXPECT_EQ(Bytes(), before);
    return error;
  }
};

TEST_F(XMLDataStoreBadInputTest, AFileThatIsNotXml) {
  for (const std::string& text : {std::string("no XML"), std::string(), std::string("\0\0", 2),
                                  PlainLogOf("</Session>"), std::string("<!DOCTYPE SCPICommLog>") + PlainLogOf("")}) {
    const auto error = Opening(text);
    ExpectError(error, 31037, u"The file, conversation.xml, is not a valid data store.");
    ExpectTrail(error, {u"CXMLDataStore.InititalizeDataStore(FileName, OverWrite)", u"CXMLDataStore.Initialize"});
  }
}

TEST_F(XMLDataStoreBadInputTest, AnotherRoot) {
  const auto error = Opening("<Other>" + LogHeader + "</Other>");
  ExpectError(error, 321, u"This data store does not contain header information.");
  ExpectTrail(error, {u"CXMLDataStore.StoreIsValid", u"CXMLDataStore.InititalizeDataStore(FileName, OverWrite)",
                      u"CXMLDataStore.Initialize"});
}

TEST_F(XMLDataStoreBadInputTest, ElementsNestedTooDeeply) {
  const auto nested = [](int levels) {
    std::string open;
    std::string close;
    for (int level = 0; level < levels; ++level) {
      open += "<X>";
      close += "</X>";
    }
    return PlainLogOf(open + close);
  };
  Disk->Put(Path, nested(255));
  EXPECT_TRUE(Read(Store()).empty());
  ExpectError(Opening(nested(256)), 31037, u"The file, conversation.xml, is not a valid data store.");
}

TEST_F(XMLDataStoreBadInputTest, ATornCloseStampInALogWithACommentBehindTheRoot) {
  std::string torn = " SessionCloseTimeSt";
  torn.resize(LogText::CloseStampRoom, ' ');
  Disk->Put(Path, LogText::Head() + LogText::SessionTagStart(u"t") + torn + "><X>3100</X></Session></SCPICommLog>" +
                      "<!-- behind -->");
  const auto store = Store();
  store->OpenSession();
  Append(store, u"2");
  EXPECT_EQ(TextsOf(Bytes()), (std::vector<std::string>{"3100", "3200"}));
  EXPECT_EQ(Tell(Bytes())[1], "session SessionOpenTimeStamp=t");
  EXPECT_NE(Bytes().find("<!-- behind -->"), std::string::npos);
}

TEST_F(XMLDataStoreBadInputTest, NoHeader) {
  ExpectError(Opening("<SCPICommLog/>"), 321, u"This data store does not contain header information.");
  ExpectError(Opening("<SCPICommLog><Session>" + LogHeader + "</Session></SCPICommLog>"), 321,
              u"This data store does not contain header information.");
}

TEST_F(XMLDataStoreBadInputTest, TwoHeaders) {
  ExpectError(Opening(PlainLogOf(LogHeader)), 321, u"This data store contains more than one header.");
}

TEST_F(XMLDataStoreBadInputTest, AnotherApplicationsLogFailsWithoutAWord) {
  ExpectError(Opening("<SCPICommLog><Header ApplicationName=\"Other\"/></SCPICommLog>"), 321, u"");
  ExpectError(Opening("<SCPICommLog><Header ApplicationName=\"tolvane portico\"/></SCPICommLog>"), 321, u"");
  ExpectError(Opening("<SCPICommLog><Header/></SCPICommLog>"), 321, u"");
}

TEST_F(XMLDataStoreBadInputTest, AnyVersionIsAccepted) {
  Disk->Put(Path, "<SCPICommLog><Header ApplicationName=\"Tolvane Portico\" ApplicationVersion=\"9\"/></SCPICommLog>");
  EXPECT_TRUE(Read(Store()).empty());
}

TEST_F(XMLDataStoreBadInputTest, AStampThatStandsTwice) {
  const auto error = Reading("<X Timestamp=\"t\">41</X><Y Timestamp=\"t\">42</Y>");
  EXPECT_EQ(error.Number, 457);
  ExpectTrail(error, {u"CDataFIFO.Enqueue(DataEntity)", u"CXMLDataStore.FillDataFIFOFromStore()",
                      u"CXMLDataStore.IDataStore_FillDataContainerFromStore()"});
}

TEST_F(XMLDataStoreBadInputTest, HexadecimalOfOddLength) {
  ExpectError(Reading("<X Timestamp=\"t\">414</X>"), 5,
              u"The number of characters in hex string must be an even multiple of  2.");
}

TEST_F(XMLDataStoreBadInputTest, HexadecimalWithOtherCharacters) {
  ExpectError(Reading("<X Timestamp=\"t\">4 41</X>"), 5,
              u"Hex string can only contain hexidecimal digits, 0-9, A-F, and a-f.");
  ExpectError(Reading("<X Timestamp=\"t\">\xC3\xA9\xC3\xA9</X>"), 5,
              u"Hex string can only contain hexidecimal digits, 0-9, A-F, and a-f.");
}

TEST_F(XMLDataStoreBadInputTest, AnEmptyPayloadFailsTheWholeReading) {
  const auto error = Reading("<X Timestamp=\"t\">41</X><Y Timestamp=\"u\"/>");
  ExpectError(error, 9, u"Subscript out of range.");
}

TEST_F(XMLDataStoreBadInputTest, AnEmptyStringPayloadIsNoData) {
  Disk->Put(Path, PlainLogOf("<Session><X Timestamp=\"t\" DataFormat=\"String\"/></Session>"));
  EXPECT_EQ(FirstRead(Store())->DataLength(), 0);
}

TEST_F(XMLDataStoreBadInputTest, ElementsOfAnyTypeAreEntities) {
  Disk->Put(
      Path,
      PlainLogOf("<Session><Unknown DataType=\"Other\" Timestamp=\"t\" DataFormat=\"Binary\" _p=\"q\">7800</Unknown>"
                 "</Session>"));
  const auto entity = FirstRead(Store());
  EXPECT_EQ(entity->DataType(), u"Other");
  EXPECT_EQ(entity->DataAttribute(u"DataFormat"), u"Binary");
  EXPECT_EQ(entity->DataAttribute(u"_p"), u"q");
  EXPECT_EQ(FromBytes(entity->ReadData()), u"x");
}

TEST_F(XMLDataStoreBadInputTest, AnElementWithoutAttributesKeepsTheNewEntitysOwn) {
  Disk->Put(Path, PlainLogOf("<Session><X>7800</X></Session>"));
  const auto entity = FirstRead(Store());
  EXPECT_EQ(entity->DataType(), u"");
  EXPECT_EQ(entity->TimeStamp(), u"2004-02-09T08:05:03.000000001-5:00");
}

TEST_F(XMLDataStoreBadInputTest, ALargePayloadComesBack) {
  const ByteArray data(5'000'000, 0xA5);
  auto store = Store();
  store->OpenSession();
  store->AppendDataEntityToStore(modDataDocument::CreateADataEntity(data, u"Response", u""));
  EXPECT_EQ(FirstRead(store)->ReadData(), data);
}

} // namespace
} // namespace portico::test
