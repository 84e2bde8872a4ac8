#include "document/log/LogBench.h"

#include "document/log/CNullDataStore.h"
#include "support/Files.h"
#include "support/Golden.h"

namespace portico::test {
namespace {

class XMLDataStoreTest : public StoreTest {};

TEST_F(XMLDataStoreTest, ANewStoreIsAFileWithTheHeaderAndNoSession) {
  Store();
  EXPECT_EQ(Bytes(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SCPICommLog>\n" + LogHeader + "\n</SCPICommLog>\n");
}

/// The instruction *IDN? went out and ok came back.
class ExampleTest : public XMLDataStoreTest {
protected:
  void Log() {
    Environment.Now = FakeErrorEnvironment::At(2004, 11, 1, 16, 42, 9);
    gTimeStamper = New<CMockTimeStampServer>();
    const auto store = Store();
    store->OpenSession();
    Environment.Now.tm_sec = 11;
    Append(store, u"*IDN?\r\n", u"Instruction");
    Append(store, u"ok\r\n", u"Response");
    Environment.Now.tm_sec = 15;
    store->CloseSession();
  }
};

TEST_F(ExampleTest, HasTheValuesAndPayloadsOfTheExample) {
  Log();
  const std::vector<std::string> expected = {
      "header ApplicationName=Tolvane Portico ApplicationVersion=1.0.5",
      "session SessionOpenTimeStamp=2004-11-01T16:42:09.000000001-5:00 "
      "SessionCloseTimeStamp=2004-11-01T16:42:15.000000000-5:00",
      "Instruction DataType=Instruction Timestamp=2004-11-01T16:42:11.000000000-5:00 2A00490044004E003F000D000A00",
      "Response DataType=Response Timestamp=2004-11-01T16:42:11.000000001-5:00 6F006B000D000A00", "end"};
  EXPECT_EQ(Tell(Bytes()), expected);
}

TEST_F(ExampleTest, IsTheGoldenFile) {
  Log();
  ExpectGolden("log-example.xml", Bytes());
}

TEST_F(ExampleTest, IsReadBack) {
  Log();
  const auto store = Store();
  const auto fifo = Cast<CDataFIFO>(store->FillDataContainerFromStore());
  ASSERT_EQ(fifo->Count(), 2);
  const auto instruction = fifo->Dequeue();
  EXPECT_EQ(instruction->DataType(), u"Instruction");
  EXPECT_EQ(instruction->TimeStamp(), u"2004-11-01T16:42:11.000000000-5:00");
  EXPECT_EQ(FromBytes(instruction->ReadData()), u"*IDN?\r\n");
  const auto response = fifo->Dequeue();
  EXPECT_EQ(response->DataType(), u"Response");
  EXPECT_EQ(response->TimeStamp(), u"2004-11-01T16:42:11.000000001-5:00");
  EXPECT_EQ(FromBytes(response->ReadData()), u"ok\r\n");
}

TEST_F(XMLDataStoreTest, TheFileIsAWholeDocumentAfterEveryChange) {
  const auto store = Store();
  EXPECT_EQ(Tell(Bytes()).size(), 1U);
  store->OpenSession();
  EXPECT_EQ(Tell(Bytes()).size(), 3U);
  Append(store, u"1");
  EXPECT_EQ(Tell(Bytes()).size(), 4U);
  Append(store, u"2");
  EXPECT_EQ(Tell(Bytes()).size(), 5U);
  store->CloseSession();
  EXPECT_EQ(Tell(Bytes()).size(), 5U);
}

TEST_F(XMLDataStoreTest, WithoutOverwriteAnExistingLogKeepsItsSessions) {
  {
    const auto store = Store();
    store->OpenSession();
    Append(store, u"old");
  }
  const auto before = Tell(Bytes());
  const auto store = Store();
  EXPECT_EQ(Tell(Bytes()), before);
  store->OpenSession();
  Append(store, u"new");
  store->CloseSession();
  const auto after = Tell(Bytes());
  ASSERT_EQ(after.size(), before.size() + 3);
  EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin()));
  EXPECT_EQ(Read(store), (std::vector<std::string>{"old", "new"}));
}

TEST_F(XMLDataStoreTest, WithOverwriteTheOldContentsAreGone) {
  Disk->Put(Path, "anything at all");
  Store(true);
  EXPECT_EQ(Tell(Bytes()).size(), 1U);
}

TEST_F(XMLDataStoreTest, AnOverwrittenLogIsANewFile) {
  Disk->Put(Path, PlainLogOf("<Session/>"));
  const auto old = Disk->Open(Path, ILogDisk::Access::Read);
  const auto identity = old->Identity();
  Store(true);
  EXPECT_NE(Disk->Open(Path, ILogDisk::Access::Read)->Identity().File, identity.File);
  EXPECT_EQ(old->Identity(), identity); // whoever has it open keeps what it held
}

TEST_F(XMLDataStoreTest, SeveralSessionsStandInOrderOfOpening) {
  const auto store = Store();
  for (const char16_t* text : {u"a", u"b", u"c"}) {
    store->OpenSession();
    Append(store, text);
    store->CloseSession();
  }
  const auto lines = Tell(Bytes());
  EXPECT_EQ(
      std::count_if(lines.begin(), lines.end(), [](const std::string& line) { return line.find("session ") == 0; }), 3);
  EXPECT_EQ(Read(store), (std::vector<std::string>{"a", "b", "c"}));
}

TEST_F(XMLDataStoreTest, ASecondCloseIsRefused) {
  const auto store = Store();
  store->OpenSession();
  store->CloseSession();
  const auto error = Raised([&] { store->CloseSession(); });
  ExpectError(error, 17, u"No session is currently open.");
  ExpectTrail(error, {u"CXMLDataStore.CloseSession()", u"CXMLDataStore.IDataStore_CloseSession()"});
}

TEST_F(XMLDataStoreTest, ASecondOpenIsRefusedInTheWordsOfTheOppositeCase) {
  const auto store = Store();
  store->OpenSession();
  const std::string before = Bytes();
  const auto error = Raised([&] { store->OpenSession(); });
  ExpectError(error, 17, u"No session is currently open.");
  ExpectTrail(error, {u"CXMLDataStore.OpenSession()", u"CXMLDataStore.IDataStore_OpenSession()"});
  EXPECT_EQ(Bytes(), before);
}

TEST_F(XMLDataStoreTest, AnEntityNeedsASession) {
  const auto store = Store();
  const auto error = Raised([&] { Append(store, u"1"); });
  ExpectError(error, 17, u"No session is currently open.");
  ExpectTrail(error, {u"CXMLDataStore.AppendDataEntity(DataEntity)",
                      u"CXMLDataStore.IDataStore_AppendDataEntityToStore(DataEntity)"});
}

TEST_F(XMLDataStoreTest, NothingWorksBeforeInitialize) {
  const auto store = New<CXMLDataStore>(Disk);
  ExpectError(Raised([&] { Append(store, u"1"); }), Hex(0x80041460),
              u"Property cannot be accessed before Initialize().");
  const auto error = Raised([&] { store->FillDataContainerFromStore(); });
  ExpectError(error, Hex(0x80041460), u"Property cannot be accessed before Initialize().");
  ExpectTrail(error,
              {u"CXMLDataStore.FillDataFIFOFromStore()", u"CXMLDataStore.IDataStore_FillDataContainerFromStore()"});
  EXPECT_EQ(Raised([&] { store->OpenSession(); }).Number, 91);
  ExpectError(Raised([&] { store->CloseSession(); }), 17, u"No session is currently open.");
}

TEST_F(XMLDataStoreTest, AnEmptyFileNameIsRefused) {
  const auto store = New<CXMLDataStore>(Disk);
  const auto error = Raised([&] { store->Initialize(u"", false); });
  ExpectError(error, 5, u"File name cannot be an empty string.");
  ExpectTrail(error, {u"CXMLDataStore.Initialize"});
}

TEST_F(XMLDataStoreTest, NothingIsNoEntity) {
  const auto store = Store();
  store->OpenSession();
  const auto error = Raised([&] { store->AppendDataEntityToStore({}); });
  ExpectError(error, 5, u"Data entity cannot be nothing.");
  ExpectTrail(error, {u"CXMLDataStore.DataEntityToElement(DataEntity)",
                      u"CXMLDataStore.AppendEntityElement(DataEntity)", u"CXMLDataStore.AppendDataEntity(DataEntity)",
                      u"CXMLDataStore.IDataStore_AppendDataEntityToStore(DataEntity)"});
}

TEST_F(XMLDataStoreTest, ATypeThatCannotNameAnElementIsRefused) {
  const auto store = Store();
  store->OpenSession();
  const std::string before = Bytes();
  for (const char16_t* type : {u"", u" ", u"1", u"a b", u"-a", u"a:b", u"<", u"\u4E00"}) {
    ExpectError(Raised([&] { Append(store, u"1", type); }), 31004, u"Cannot create an XML element.");
  }
  EXPECT_EQ(Bytes(), before);
}

TEST_F(XMLDataStoreTest, AnAttributeThatCannotBeWrittenIsRefused) {
  const auto store = Store();
  store->OpenSession();
  const auto entity = Entity(u"1");
  entity->DataAttribute(u"two words", u"x");
  ExpectError(Raised([&] { store->AppendDataEntityToStore(entity); }), 31004, u"Cannot create an XML attribute.");
}

TEST_F(XMLDataStoreTest, PrivateAttributesStayOut) {
  const auto store = Store();
  store->OpenSession();
  const auto entity = Entity(u"1", u"stamp");
  entity->DataAttribute(u"_RTFSelectionLength", u"17");
  entity->DataAttribute(u"Extra", u"kept");
  store->AppendDataEntityToStore(entity);
  EXPECT_EQ(Tell(Bytes())[2], "Response DataType=Response Timestamp=stamp Extra=kept 3100");
}

TEST_F(XMLDataStoreTest, AttributesComeBackWhateverTheyHold) {
  const String value = u"<&>\"' \t\r\n\u00E9\u20AC\U0001D11E";
  auto store = Store();
  store->OpenSession();
  const auto entity = Entity(u"1", u"stamp");
  entity->DataAttribute(u"Extra", value);
  store->AppendDataEntityToStore(entity);
  EXPECT_EQ(FirstRead(store)->DataAttribute(u"Extra"), value);
}

TEST_F(XMLDataStoreTest, CharactersThatXmlCannotHoldAreReplaced) {
  auto store = Store();
  store->OpenSession();
  const auto entity = Entity(u"1", u"stamp");
  entity->DataAttribute(u"Extra", String(u"a\0b\x1F\xFFFE\xD800", 6));
  store->AppendDataEntityToStore(entity);
  EXPECT_EQ(FirstRead(store)->DataAttribute(u"Extra"), u"a\uFFFDb\uFFFD\uFFFD\uFFFD");
}

TEST_F(XMLDataStoreTest, AStringPayloadIsReadAndWrittenAsPlainText) {
  Disk->Put(Path, PlainLogOf("<Session><Response DataType=\"Response\" Timestamp=\"t\" DataFormat=\"String\">"
                             "<![CDATA[plain <text>]]></Response></Session>"));
  const auto entity = FirstRead(Store());
  EXPECT_EQ(FromBytes(entity->ReadData()), u"plain <text>");
  const auto store = Store(true);
  store->OpenSession();
  store->AppendDataEntityToStore(entity);
  EXPECT_EQ(Tell(Bytes())[2], "Response DataType=Response Timestamp=t DataFormat=String plain <text>");
  EXPECT_NE(Bytes().find("<![CDATA[plain <text>]]>"), std::string::npos);
}

TEST_F(XMLDataStoreTest, AStringPayloadComesBackWhole) {
  for (const String& text : {String(u"a]]>b"), String(u"]]>"), String(u"]]]>]]>]"), String(u"a\r\nb\rc\n"), String(),
                             String(u" "), String(u"\r"), String(u"]]\r>"), String(u"\u00E9\U0001D11E")}) {
    const auto store = Store(true);
    store->OpenSession();
    const auto entity = Entity(text, u"stamp");
    entity->DataAttribute(u"DataFormat", u"String");
    store->AppendDataEntityToStore(entity);
    EXPECT_EQ(FromBytes(FirstRead(store)->ReadData()), text) << Bytes();
  }
}

TEST_F(XMLDataStoreTest, ReadingDrawsOneStampForEachElement) {
  auto store = Store();
  store->OpenSession();
  for (const char16_t* text : {u"1", u"2", u"3"}) Append(store, text);
  const String before = gTimeStamper->TimeStamp();
  Read(store);
  EXPECT_EQ(before, u"2004-02-09T08:05:03.000000005-5:00");
  EXPECT_EQ(gTimeStamper->TimeStamp(), u"2004-02-09T08:05:03.000000009-5:00");
}

TEST_F(XMLDataStoreTest, ReadingForgetsTheOpenSession) {
  auto store = Store();
  store->OpenSession();
  Append(store, u"1");
  Read(store);
  const std::string before = Bytes();
  EXPECT_EQ(Raised([&] { store->CloseSession(); }).Number, 17);
  store = {};
  EXPECT_EQ(Bytes(), before);
}

TEST_F(XMLDataStoreTest, AReadingThatFailsForgetsTheOpenSessionToo) {
  auto store = Store();
  store->OpenSession();
  store->AppendDataEntityToStore(Entity(u""));
  const std::string before = Bytes();
  EXPECT_EQ(Raised([&] { store->FillDataContainerFromStore(); }).Number, 9);
  store = {};
  EXPECT_EQ(Bytes(), before);
}

TEST_F(XMLDataStoreTest, LettingTheStoreGoClosesTheSession) {
  auto store = Store();
  store->OpenSession();
  EXPECT_EQ(Bytes().find("SessionCloseTimeStamp"), std::string::npos);
  store = {};
  EXPECT_NE(Bytes().find("SessionCloseTimeStamp=\"2004-02-09T08:05:03.000000002-5:00\""), std::string::npos);
}

TEST_F(XMLDataStoreTest, LettingTheStoreGoSwallowsAFailure) {
  auto store = Store();
  store->OpenSession();
  Disk->OpenFault = EIO;
  store = {};
  EXPECT_EQ(HuntERR::ErrNumber(), 75);
  EXPECT_EQ(Labels(HuntERR::ErrReport()),
            (std::vector<String>{u"CXMLDataStore.CloseSession()", u"CXMLDataStore.Class_Terminate()"}));
}

TEST_F(XMLDataStoreTest, AnEntityWithoutDataIsWrittenAndFailsTheReading) {
  const auto store = Store();
  store->OpenSession();
  store->AppendDataEntityToStore(Entity(u""));
  Append(store, u"2");
  EXPECT_EQ(Tell(Bytes()).size(), 5U);
  const auto error = Raised([&] { store->FillDataContainerFromStore(); });
  ExpectError(error, 9, u"Subscript out of range.");
  ExpectTrail(error,
              {u"CHexEncoder.Decode(HexString)", u"CXMLDataStore.ElementToDataEntity(Element)",
               u"CXMLDataStore.FillDataFIFOFromStore()", u"CXMLDataStore.IDataStore_FillDataContainerFromStore()"});
}

TEST_F(XMLDataStoreTest, TheCreatorMakesAStoreWhereThereIsAParser) {
  const test::TemporaryFolder folder;
  const auto creator = MakeCreator(CtorXMLDataStore);
  const Params parameters = {FromUtf8(folder.At("log.xml")).Text, true};
  EXPECT_EQ(creator->Create(parameters)->ClassName(), u"CNullDataStore");
  gXMLParserAvailable = true;
  EXPECT_EQ(creator->Create(parameters)->ClassName(), u"CXMLDataStore");
}

TEST_F(XMLDataStoreTest, TheCreatorWantsTwoParameters) {
  const auto error = Raised([] { MakeCreator(CtorXMLDataStore)->Create({u"name"}); });
  EXPECT_EQ(error.Number, 450);
  ExpectTrail(error, {u"CtorXMLDataStore.ICreator_Create(Params)"});
}

class NullDataStoreTest : public DocumentTest {};

TEST_F(NullDataStoreTest, DoesNothingAndChecksNothing) {
  const auto store = New<CNullDataStore>();
  store->CloseSession();
  store->AppendDataEntityToStore({});
  store->OpenSession();
  store->OpenSession();
  EXPECT_FALSE(IsSameObject(store->FillDataContainerFromStore(), store->FillDataContainerFromStore()));
}

TEST_F(NullDataStoreTest, ItsContainerIsNotInitialized) {
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(New<CNullDataStore>()->FillDataContainerFromStore());
  ExpectError(Raised([&] { iterator->FirstItem(); }), Hex(0x80041460), u"Method cannot be called before Initialize().");
}

} // namespace
} // namespace portico::test
