#include "document/log/LogBench.h"

#include "document/log/LogText.h"

#include <algorithm>
#include <cerrno>
#include <limits>

namespace portico::test {
namespace {

using Texts = std::vector<std::string>;

/// A log that others change, and a disk that fails.
class XMLDataStoreFileTest : public LoggingTest {
protected:
  std::size_t CountSessions() {
    const auto lines = Tell(Bytes());
    return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), "end"));
  }
};

TEST_F(XMLDataStoreFileTest, AnAppendTouchesNothingInFrontOfTheClosingTags) {
  const auto store = Logging();
  const std::string before = Bytes();
  const std::size_t steps = Disk->Steps;
  Append(store, u"2");
  const std::size_t kept = before.size() - LogText::SessionAndRootEnd.size();
  EXPECT_EQ(Bytes().substr(0, kept), before.substr(0, kept));
  EXPECT_EQ(Disk->Steps - steps, Bytes().size() - kept);
}

TEST_F(XMLDataStoreFileTest, AFullDiskLeavesTheLogAsItWas) {
  const auto store = Logging();
  const std::string before = Bytes();
  for (std::size_t room = 0; room < 60; ++room) {
    Disk->Capacity = before.size() + room;
    const auto error = Raised([&] { Append(store, u"x"); });
    ExpectError(error, 75, Full);
    EXPECT_EQ(Bytes(), before) << room;
  }
}

TEST_F(XMLDataStoreFileTest, AFailedSaveIsToldOfAndRaises) {
  const auto store = Logging();
  Disk->Capacity = Bytes().size();
  const auto error = Raised([&] { Append(store, u"2"); });
  ExpectError(error, 75, Full);
  ExpectTrail(error, {u"CXMLDataStore.AppendDataEntity(DataEntity)",
                      u"CXMLDataStore.IDataStore_AppendDataEntityToStore(DataEntity)"});
  EXPECT_EQ(Failures, Texts{ToUtf8(Full)});
}

TEST_F(XMLDataStoreFileTest, WhatCouldNotBeWrittenGoesOutWithTheNextSave) {
  const auto store = Logging();
  Disk->Capacity = Bytes().size();
  for (const char16_t* text : {u"2", u"3"}) EXPECT_EQ(Raised([&] { Append(store, text); }).Number, 75);
  EXPECT_EQ(TextsOf(Bytes()).size(), 1U);
  Disk->Capacity = 100000;
  Append(store, u"4");
  store->CloseSession();
  EXPECT_EQ(Failures.size(), 2U);
  EXPECT_EQ(Read(store), (Texts{"1", "2", "3", "4"}));
  EXPECT_NE(Bytes().find("SessionCloseTimeStamp"), std::string::npos);
}

TEST_F(XMLDataStoreFileTest, AReadingKnowsWhatCouldNotBeWritten) {
  const auto store = Logging();
  Disk->Capacity = Bytes().size();
  EXPECT_EQ(Raised([&] { Append(store, u"2"); }).Number, 75);
  const std::string before = Bytes();
  EXPECT_EQ(Read(store), (Texts{"1", "2"}));
  EXPECT_EQ(Bytes(), before);

  Disk->Capacity = 100000;
  store->OpenSession(); // the reading has ended the session, but not lost what was in it
  Append(store, u"3");
  EXPECT_EQ(Read(store), (Texts{"1", "2", "3"}));
  EXPECT_EQ(Tell(Bytes()).size(), 8U);
}

TEST_F(XMLDataStoreFileTest, ASessionWhoseOpeningWasNotWrittenIsOpen) {
  const auto store = Store();
  Disk->Capacity = Bytes().size();
  EXPECT_EQ(Raised([&] { store->OpenSession(); }).Number, 75);
  EXPECT_EQ(Raised([&] { store->OpenSession(); }).Number, 17);
  EXPECT_EQ(Raised([&] { Append(store, u"1"); }).Number, 75);
  EXPECT_EQ(Read(store), Texts{"1"});
}

TEST_F(XMLDataStoreFileTest, ASessionMayOpenAndCloseWhollyInVain) {
  const auto store = Store();
  Disk->Capacity = Bytes().size();
  EXPECT_EQ(Raised([&] { store->OpenSession(); }).Number, 75);
  EXPECT_EQ(Raised([&] { Append(store, u"1"); }).Number, 75);
  EXPECT_EQ(Raised([&] { store->CloseSession(); }).Number, 75);
  Disk->Capacity = 100000;
  store->CloseSession();
  EXPECT_EQ(Tell(Bytes()),
            (Texts{"header ApplicationName=Tolvane Portico ApplicationVersion=1.0.5",
                   "session SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00 "
                   "SessionCloseTimeStamp=2004-02-09T08:05:03.000000004-5:00",
                   "Response DataType=Response Timestamp=2004-02-09T08:05:03.000000002-5:00 3100", "end"}));
}

TEST_F(XMLDataStoreFileTest, ACloseThatFailsLeavesTheSessionOpenWithItsStampToCome) {
  const auto store = Logging();
  Disk->OpenFault = EACCES;
  const auto error = Raised([&] { store->CloseSession(); });
  ExpectError(error, 75, u"The file, conversation.xml, cannot be written: Permission denied.");
  Disk->OpenFault = 0;
  Append(store, u"2");
  EXPECT_NE(Bytes().find("SessionCloseTimeStamp=\"2004-02-09T08:05:03.000000003"), std::string::npos);
  store->CloseSession();
  EXPECT_NE(Bytes().find("SessionCloseTimeStamp=\"2004-02-09T08:05:03.000000005"), std::string::npos);
  EXPECT_EQ(Read(store), (Texts{"1", "2"}));
}

TEST_F(XMLDataStoreFileTest, ALogThatWasRemovedIsBegunAnew) {
  const auto store = Logging();
  Disk->Remove(Path);
  Append(store, u"2");
  Append(store, u"3");
  store->CloseSession();
  EXPECT_EQ(Tell(Bytes()),
            (Texts{"header ApplicationName=Tolvane Portico ApplicationVersion=1.0.5",
                   "session SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00 "
                   "SessionCloseTimeStamp=2004-02-09T08:05:03.000000005-5:00",
                   "Response DataType=Response Timestamp=2004-02-09T08:05:03.000000003-5:00 3200",
                   "Response DataType=Response Timestamp=2004-02-09T08:05:03.000000004-5:00 3300", "end"}));
}

TEST_F(XMLDataStoreFileTest, ALogMayBeRemovedAtAnyTime) {
  const auto store = Store();
  Disk->Remove(Path);
  store->OpenSession();
  EXPECT_EQ(Tell(Bytes()).size(), 3U);
  Disk->Remove(Path);
  store->CloseSession();
  EXPECT_EQ(Tell(Bytes()).size(), 3U);
  EXPECT_NE(Bytes().find("SessionCloseTimeStamp"), std::string::npos);
  Disk->Remove(Path);
  store->OpenSession();
  Append(store, u"1");
  EXPECT_EQ(Tell(Bytes()).size(), 4U);
}

TEST_F(XMLDataStoreFileTest, ALogThatCannotBeBegunAnewYetKeepsItsEntities) {
  const auto store = Logging();
  Disk->Remove(Path);
  Disk->ReplaceFault = EACCES;
  EXPECT_EQ(Raised([&] { Append(store, u"2"); }).Number, 75);
  EXPECT_EQ(Raised([&] { Append(store, u"3"); }).Number, 75);
  Disk->ReplaceFault = 0;
  Append(store, u"4");
  EXPECT_EQ(Read(store), (Texts{"2", "3", "4"}));
  EXPECT_EQ(Tell(Bytes()).size(), 6U);
}

TEST_F(XMLDataStoreFileTest, ALogThatIsStillALogIsExtendedByASessionOfItsOwn) {
  const auto store = Logging();
  Disk->Put(Path, PlainLogOf("<Session SessionOpenTimeStamp=\"other\"><X Timestamp=\"x\">7800</X></Session>"));
  Append(store, u"2");
  store->CloseSession();
  EXPECT_EQ(Tell(Bytes()),
            (Texts{"header ApplicationName=Tolvane Portico ApplicationVersion=1.0.5",
                   "session SessionOpenTimeStamp=other", "X Timestamp=x 7800", "end",
                   "session SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00 "
                   "SessionCloseTimeStamp=2004-02-09T08:05:03.000000004-5:00",
                   "Response DataType=Response Timestamp=2004-02-09T08:05:03.000000003-5:00 3200", "end"}));
}

TEST_F(XMLDataStoreFileTest, TwoStoresMayWriteOneLogInTurns) {
  const auto one = Logging();
  const auto other = Store();
  other->OpenSession();
  for (const char16_t* text : {u"2", u"3", u"4"}) {
    Append(one, text);
    Append(other, String(text) + u"'");
  }
  other->CloseSession();
  one->CloseSession();
  EXPECT_EQ(Read(one), (Texts{"1", "2", "2'", "3", "3'", "4", "4'"}));
}

TEST_F(XMLDataStoreFileTest, AChangeOfTheSameLengthIsNotWrittenOver) {
  const auto store = Logging();
  std::string& bytes = Bytes();
  bytes.replace(bytes.size() - 2, 2, " >");
  Append(store, u"2");
  EXPECT_EQ(TextsOf(Bytes()), (Texts{"3100", "3200"}));
  EXPECT_EQ(Tell(Bytes()).size(), 7U);
}

TEST_F(XMLDataStoreFileTest, WhatIsNoLogAnyMoreIsLeftAlone) {
  const auto store = Logging();
  for (const std::string& text : {std::string("notes"), std::string("<Other/>"), std::string(),
                                  std::string("<SCPICommLog><Header ApplicationName=\"Other\"/></SCPICommLog>")}) {
    Disk->Put(Path, text);
    const auto error = Raised([&] { Append(store, u"2"); });
    ExpectError(error, 31037,
                u"The file, conversation.xml, is not a valid data store: it has been changed by another program and is "
                u"not a valid data store any more.");
    EXPECT_EQ(Bytes(), text);
  }
  EXPECT_EQ(Failures.size(), 4U);
  Disk->Remove(Path);
  Append(store, u"3");
  EXPECT_EQ(Read(store), (Texts{"2", "2", "2", "2", "3"}));
}

TEST_F(XMLDataStoreFileTest, AChangedSessionTagIsNotStamped) {
  const auto store = Logging();
  Bytes().replace(Bytes().find("SessionOpenTimeStamp"), 20, "sessionOpenTimeStamp");
  store->CloseSession();
  const auto lines = Tell(Bytes());
  EXPECT_EQ(lines[1], "session sessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00");
  EXPECT_EQ(lines[4], "session SessionOpenTimeStamp=2004-02-09T08:05:03.000000001-5:00 "
                      "SessionCloseTimeStamp=2004-02-09T08:05:03.000000003-5:00");
}

TEST_F(XMLDataStoreFileTest, OpeningAndReadingWriteNothing) {
  for (const std::string& log :
       {PlainLogOf(""), PlainLogOf("<Session/>"), PlainLogOf("<Session><X>7800</X></Session>") + "<!-- behind -->",
        LogText::Head() + "\n<Session>\n<X>7800</X>\n<Y>78", "\xEF\xBB\xBF" + PlainLogOf("")}) {
    Disk->Put(Path, log);
    {
      const auto store = Store();
      Read(store);
    }
    EXPECT_EQ(Bytes(), log);
  }
}

TEST_F(XMLDataStoreFileTest, AnyFormOfALogIsExtended) {
  const std::string header = "header ApplicationName=Tolvane Portico ApplicationVersion=1.0.5";
  const std::string latin =
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + PlainLogOf("<Session n=\"\xE9\"><X>7800</X></Session>");
  for (const std::string& log :
       {PlainLogOf(""), PlainLogOf("<Session/>"), PlainLogOf("<Session></Session>\n\n") + "\n\n",
        PlainLogOf("<!-- last -->"), PlainLogOf("stray"), PlainLogOf("<![CDATA[stray]]>"),
        PlainLogOf("<Session><X>7800</X></Session>") + "<!-- behind --><?and this?>", latin,
        "\xEF\xBB\xBF" + PlainLogOf("<Session/>"), "<?xml version=\"1.0\"?>\r\n" + PlainLogOf("<Session a='1'/>\r\n"),
        PlainLogOf("<Other>&lt;<!-- x --></Other>")}) {
    Disk->Put(Path, log);
    auto expected = Tell(log);
    const auto store = Store();
    store->OpenSession();
    Append(store, u"\u20AC", u"Response");
    const auto lines = Tell(Bytes());
    ASSERT_EQ(lines.size(), expected.size() + 3) << Bytes();
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), lines.begin())) << Bytes();
    EXPECT_EQ(lines[lines.size() - 2].substr(0, 17), "Response DataType");
    const std::string end(LogText::SessionAndRootEnd);
    EXPECT_EQ(Bytes().substr(Bytes().size() - end.size()), end);
    for (const char* kept : {"<!-- last -->", "stray", "<!-- behind -->", "<?and this?>", "<!-- x -->"}) {
      EXPECT_EQ(Bytes().find(kept) == std::string::npos, log.find(kept) == std::string::npos) << kept;
    }
  }
}

TEST_F(XMLDataStoreFileTest, AnotherEncodingIsRewrittenFaithfully) {
  std::string log =
      PlainLogOf("<!-- c --><?p q?><Session a=\"&lt;&quot;&#9;&#13;\"><X b=\"\xC3\xA9\"><![CDATA[<&]]>&amp;&#13;"
                 "<Y/><Z></Z></X></Session>");
  std::string wide = "\xFE\xFF";
  for (const char16_t unit : FromUtf8(log).Text) {
    wide.push_back(static_cast<char>(unit >> 8));
    wide.push_back(static_cast<char>(unit & 0xFF));
  }
  Disk->Put(Path, wide);
  const auto store = Store();
  store->OpenSession();
  EXPECT_EQ(Bytes().substr(0, Bytes().rfind("\n<Session ")),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<SCPICommLog>" + LogHeader +
                "<!-- c --><?p q?><Session a=\"&lt;&quot;&#9;&#13;\"><X b=\"\xC3\xA9\"><![CDATA[<&]]>&amp;&#13;<Y/><Z/>"
                "</X></Session>");
}

TEST_F(XMLDataStoreFileTest, ATornLogIsCompletedWhenItIsExtended) {
  const std::string sound = LogText::Head() + LogText::SessionTag(u"t", u"") + "\n<X>3100</X>";
  Disk->Put(Path, sound + "\n<Y>3200</");
  const auto store = Store();
  EXPECT_EQ(Read(store), Texts{"1"});
  store->OpenSession();
  EXPECT_EQ(Bytes().substr(0, sound.size() + 21), sound + "\n</Session>\n<Session ");
  Append(store, u"3");
  EXPECT_EQ(Read(store), (Texts{"1", "3"}));
}

TEST_F(XMLDataStoreFileTest, ATornCloseStampIsBlankedWhenItsLogIsExtended) {
  std::string torn = " SessionCloseTimeSt";
  torn.resize(LogText::CloseStampRoom, ' ');
  const std::string start = LogText::Head() + LogText::SessionTagStart(u"t");
  const std::string rest = ">\n<X>3100</X>" + std::string(LogText::SessionEnd);
  Disk->Put(Path, start + torn + rest + std::string(LogText::RootEnd));
  const auto store = Store();
  store->OpenSession();
  EXPECT_EQ(Bytes().substr(0, Bytes().rfind("\n<Session ")), start + std::string(LogText::CloseStampRoom, ' ') + rest);
}

TEST_F(XMLDataStoreFileTest, ASkeletonThatCannotBeWrittenIsAnError) {
  Disk->ReplaceFault = EROFS;
  const auto error = Raised([&] { Store(); });
  ExpectError(error, 75, u"The file, conversation.xml, cannot be written: Read-only file system.");
  ExpectTrail(error, {u"CXMLDataStore.CreateStoreSkeleton()",
                      u"CXMLDataStore.InititalizeDataStore(FileName, OverWrite)", u"CXMLDataStore.Initialize"});
}

TEST_F(XMLDataStoreFileTest, AFileThatAppearsMeanwhileIsNotReplaced) {
  Disk->BeforeCreation = [this] { Disk->Put(Path, PlainLogOf("<Session><X>7800</X></Session>")); };
  const auto store = Store();
  store->OpenSession();
  Append(store, u"1");
  EXPECT_EQ(TextsOf(Bytes()), (Texts{"7800", "3100"}));
  Disk->Remove(Path);
  Disk->BeforeCreation = [this] { Disk->Put(Path, PlainLogOf("<Session><X>7900</X></Session>")); };
  Append(store, u"2");
  EXPECT_EQ(TextsOf(Bytes()), (Texts{"7900", "3200"}));
}

TEST_F(XMLDataStoreFileTest, ASaveWhoseUndoingFailsIsNotWrittenTwice) {
  const auto store = Logging();
  const std::size_t before = Bytes().size();
  for (std::size_t room = 0; room < 100; ++room) {
    Disk->TruncateFault = EIO;
    Disk->Capacity = Bytes().size() + room;
    Raised([&] { Append(store, u"2"); });
    Raised([&] { Append(store, u"3"); });
    Disk->TruncateFault = 0;
    Disk->Capacity = std::numeric_limits<std::size_t>::max();
    Append(store, u"4");
    EXPECT_EQ(TextsOf(Bytes()).size(), 1 + 3 * (room + 1)) << room;
    EXPECT_EQ(CountSessions(), 1U) << room;
  }
  EXPECT_GT(Bytes().size(), before);
}

TEST_F(XMLDataStoreFileTest, AFailingCloseIsAFailedSave) {
  const auto store = Logging();
  Disk->CloseFault = ENOSPC;
  Disk->TruncateFault = EBADF;
  ExpectError(Raised([&] { Append(store, u"2"); }), 75, Full);
  ExpectError(Raised([&] { Append(store, u"3"); }), 75, // the failed save must be undone first
              u"The file, conversation.xml, cannot be written: Bad file descriptor.");
  EXPECT_EQ(Raised([&] { store->CloseSession(); }).Number, 75);
  Disk->CloseFault = 0;
  Disk->TruncateFault = 0;
  store->CloseSession();
  EXPECT_EQ(Failures.size(), 3U);
  EXPECT_EQ(Read(store), (Texts{"1", "2", "3"}));
  EXPECT_EQ(CountSessions(), 1U);
}

TEST_F(XMLDataStoreFileTest, AStoreThatIsInitializedAgainHasNoSession) {
  const auto store = Logging();
  store->Initialize(u"other.xml", false);
  EXPECT_EQ(Raised([&] { Append(store, u"2"); }).Number, 17);
  EXPECT_EQ(Raised([&] { store->CloseSession(); }).Number, 17);
  store->OpenSession();
  Append(store, u"3");
  EXPECT_EQ(TextsOf(Disk->Bytes("other.xml")), Texts{"3300"});
  EXPECT_EQ(TextsOf(Bytes()), Texts{"3100"});
}

TEST_F(XMLDataStoreFileTest, ALogThatHasBecomeForeignIsNotRead) {
  const auto store = Store();
  Disk->Put(Path, "<SCPICommLog><Header ApplicationName=\"Other\"/></SCPICommLog>");
  ExpectError(Raised([&] { store->FillDataContainerFromStore(); }), 321, u"");
  Disk->Put(Path, "<Other/>");
  ExpectError(Raised([&] { store->FillDataContainerFromStore(); }), 321,
              u"This data store does not contain header information.");
}

TEST_F(XMLDataStoreFileTest, ALogThatHasGoneCannotBeRead) {
  const auto store = Store();
  Disk->Remove(Path);
  ExpectError(Raised([&] { store->FillDataContainerFromStore(); }), 31037,
              u"The file, conversation.xml, is not a valid data store.");
}

} // namespace
} // namespace portico::test
