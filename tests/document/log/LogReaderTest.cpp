#include "document/log/LogBench.h"

#include "document/log/LogText.h"

namespace portico::test {
namespace {

using End = LogReading::End;
using Lines = std::vector<std::string>;

const std::string HeaderLine = "header ApplicationName=Tolvane Portico ApplicationVersion=1.0.5";

LogReading ReadingOf(const std::string& bytes) {
  ILogVisitor nobody;
  return LogReader::Read(bytes, nobody);
}

End EndOf(const std::string& bytes) { return ReadingOf(bytes).Ending; }

TEST(LogReaderTest, TellsOfHeaderSessionsAndEntities) {
  EXPECT_EQ(Tell(PlainLogOf("<Session a=\"1\"><X b=\"2\" c=\"3\"><![CDATA[41]]></X></Session><Session/>")),
            (Lines{HeaderLine, "session a=1", "X b=2 c=3 41", "end", "session", "end"}));
}

TEST(LogReaderTest, NamesAreCaseSensitive) {
  EXPECT_EQ(Tell(PlainLogOf("<session><X>41</X></session>")), Lines{HeaderLine});
  EXPECT_EQ(ReadingOf("<scpicommlog>" + LogHeader + "</scpicommlog>").Headers, 0U);
}

TEST(LogReaderTest, WhatIsNoLogsIsPassedOver) {
  EXPECT_EQ(Tell(PlainLogOf("<!-- a --><?b c?><Other><Session><X>41</X></Session></Other>stray<Session>stray<!-- d -->"
                            "<X>4<!-- e -->1<Y>42</Y></X></Session>")),
            (Lines{HeaderLine, "session", "X 4142", "end"}));
  EXPECT_TRUE(Tell("<Other>" + LogHeader + "<Session/></Other>").empty());
}

TEST(LogReaderTest, WhiteSpaceAroundACDataSectionIsNoText) {
  EXPECT_EQ(TextsOf(PlainLogOf("<Session><X>\n  <![CDATA[ 41\n]]>\t</X><Y> \n </Y><Z> a </Z></Session>")),
            (Lines{" 41\n", "", " a "}));
}

TEST(LogReaderTest, ACarriageReturnIsTextWhenItIsMeant) {
  EXPECT_EQ(TextsOf(PlainLogOf("<Session><X><![CDATA[a]]>&#13;<![CDATA[\n]]></X></Session>")), Lines{"a\r\n"});
}

TEST(LogReaderTest, AnEntityMayBeCalledAsASessionIs) {
  EXPECT_EQ(Tell(PlainLogOf("<Session><Session>41</Session><Header>42</Header></Session>")),
            (Lines{HeaderLine, "session", "Session 41", "Header 42", "end"}));
}

TEST(LogReaderTest, ReadsOtherEncodings) {
  const std::string latin =
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + PlainLogOf("<Session><X>\xE9</X></Session>");
  EXPECT_EQ(TextsOf(latin), Lines{"\xC3\xA9"});
  EXPECT_FALSE(ReadingOf(latin).IsUtf8);

  std::string wide = "\xFF\xFE";
  for (const char byte : PlainLogOf("<Session><X>41</X></Session>")) wide.append({byte, '\0'});
  EXPECT_EQ(TextsOf(wide), Lines{"41"});
  EXPECT_FALSE(ReadingOf(wide).IsUtf8);
  EXPECT_FALSE(ReadingOf(wide.substr(2)).IsUtf8);

  EXPECT_TRUE(ReadingOf("\xEF\xBB\xBF" + PlainLogOf("")).IsUtf8);
  EXPECT_TRUE(ReadingOf("<?xml version=\"1.0\" encoding=\"utf-8\"?>" + PlainLogOf("")).IsUtf8);
  EXPECT_FALSE(ReadingOf("<?xml version=\"1.0\" encoding=\"us-ascii\"?>" + PlainLogOf("")).IsUtf8);
}

TEST(LogReaderTest, BytesThatAreNotOfTheEncodingBreakIt) {
  EXPECT_EQ(EndOf(PlainLogOf("<Session><X>\xE9</X></Session>")), End::Broken);
}

TEST(LogReaderTest, WhatIsNotXmlIsBroken) {
  for (const std::string& text :
       {std::string(), std::string("no"), std::string("<a></b>"), std::string("<a/><b/>"), std::string("<a>"),
        std::string(1000, '\0'), PlainLogOf("<Session><X a=\"1\" a=\"2\"/></Session>"),
        PlainLogOf("<Session>&unknown;</Session>"), PlainLogOf("</Session>"), PlainLogOf("") + "x",
        PlainLogOf("") + "<!-- open", PlainLogOf("<X></Y>")}) {
    EXPECT_EQ(EndOf(text), End::Broken) << text;
  }
}

TEST(LogReaderTest, SaysWhereItIsBroken) {
  const auto reading = ReadingOf("<SCPICommLog>\n" + LogHeader + "\n<Session>\n<X></Y>");
  EXPECT_EQ(reading.Reason, "mismatched tag");
  EXPECT_EQ(reading.Line, 4U);
}

TEST(LogReaderTest, AnExpansionOfEntitiesIsRefusedBeforeItBegins) {
  std::string laughs = "<!DOCTYPE SCPICommLog [<!ENTITY a0 \"ha\">";
  for (int i = 1; i < 30; ++i) {
    const std::string before = "&a" + std::to_string(i - 1) + ";";
    laughs += "<!ENTITY a" + std::to_string(i) + " \"" + before + before + "\">";
  }
  const auto reading = ReadingOf(laughs + "]>" + PlainLogOf("<Session><X>&a29;</X></Session>"));
  EXPECT_EQ(reading.Ending, End::Broken);
  EXPECT_EQ(reading.Reason, "a document type is not allowed");
}

TEST(LogReaderTest, NestingHasAnEnd) {
  const auto nested = [](int levels) {
    std::string open;
    std::string close;
    for (int i = 0; i < levels; ++i) {
      open += "<a>";
      close += "</a>";
    }
    return PlainLogOf("<Session>" + open + "41" + close + "</Session>");
  };
  EXPECT_EQ(TextsOf(nested(200)), Lines{"41"});
  EXPECT_EQ(ReadingOf(nested(100000)).Ending, End::Broken);
}

TEST(LogReaderTest, ALargePayloadComesWhole) {
  const std::string payload(3'000'000, 'A');
  EXPECT_EQ(TextsOf(PlainLogOf("<Session><X><![CDATA[" + payload + "]]></X></Session>")), Lines{payload});
}

TEST(LogReaderTest, ALongTagCostsNoMoreThanItsLength) {
  const std::string value(20'000'000, 'A');
  EXPECT_EQ(Tell(PlainLogOf("<Session><X a=\"" + value + "\"/></Session>"))[2].size(), value.size() + 5);
}

TEST(LogReaderTest, ReadsInPiecesOfAnySize) {
  const std::string log = LogText::Head() + LogText::SessionTag(u"t", u"") + "\n<X a=\"&lt;\"><![CDATA[41]]></X>" +
                          std::string(LogText::SessionAndRootEnd);
  for (std::size_t piece = 1; piece < log.size(); ++piece) {
    Told told;
    std::size_t at = 0;
    const auto reading = LogReader::Read(
        [&](char* buffer, std::size_t size) {
          const std::size_t count = log.copy(buffer, std::min(size, piece), at);
          at += count;
          return count;
        },
        told);
    EXPECT_EQ(reading.Ending, End::Complete);
    EXPECT_EQ(told.Lines, (Lines{HeaderLine, "session SessionOpenTimeStamp=t", "X a=< 41", "end"}));
    EXPECT_EQ(reading.Size, log.size());
    EXPECT_EQ(reading.SoundEnd, log.size() - LogText::RootEnd.size());
  }
}

TEST(LogReaderTest, WhatAVisitorThrowsReachesTheCaller) {
  struct Thrower final : ILogVisitor {
    void Entity(const LogElement&) override { throw 17; }
  } thrower;
  EXPECT_THROW(LogReader::Read(PlainLogOf("<Session><X/><Y/></Session>"), thrower), int);
}

TEST(LogReaderTest, AnyStartOfALogBehindItsHeaderIsTorn) {
  const std::string log = LogText::Head() + LogText::SessionTag(u"t", u"u") + "\n<X a=\"\xC3\xA9\"><![CDATA[41]]></X>" +
                          LogText::SessionTag(u"t", u"u").insert(0, LogText::SessionEnd) +
                          std::string(LogText::SessionAndRootEnd);
  for (std::size_t length = 0; length + 1 < log.size(); ++length) {
    const bool hasHeader = length >= LogText::Head().size();
    EXPECT_EQ(EndOf(log.substr(0, length)), hasHeader ? End::Torn : End::Broken) << length;
  }
  EXPECT_EQ(EndOf(log.substr(0, log.size() - 1)), End::Complete); // the last line feed is only there for looks
}

TEST(LogReaderTest, ATornLogIsSoundUpToTheLastWholeThing) {
  const std::string sound = LogText::Head() + LogText::SessionTag(u"t", u"") + "\n<X><![CDATA[41]]></X>";
  const auto reading = ReadingOf(sound + "\n<Y><![CDATA[4");
  EXPECT_EQ(reading.Ending, End::Torn);
  EXPECT_EQ(reading.SoundEnd, sound.size());
  EXPECT_TRUE(reading.InSession);
}

TEST(LogReaderTest, StrayTextIsKeptUpToItsLastCharacter) {
  const std::string sound = LogText::Head() + "\n<Session>\n stray";
  const auto reading = ReadingOf(sound + " \n\n<X>41");
  EXPECT_EQ(reading.Ending, End::Torn);
  EXPECT_EQ(reading.SoundEnd, sound.size());
}

TEST(LogReaderTest, AnotherApplicationsLogIsNotCompleted) {
  EXPECT_EQ(EndOf("<SCPICommLog><Header ApplicationName=\"Other\"/><Session>"), End::Broken);
  EXPECT_EQ(EndOf("<SCPICommLog>" + LogHeader + LogHeader + "<Session>"), End::Broken);
  EXPECT_EQ(EndOf("<Other>" + LogHeader + "<Session>"), End::Broken);
  EXPECT_EQ(EndOf("<SCPICommLog><Header ApplicationName=\"Tolvane Portico\"><Session>"), End::Broken);
}

TEST(LogReaderTest, AHalfOverwrittenTagIsRecognised) {
  const std::string sound = LogText::Head() + LogText::SessionTag(u"t", u"") + "\n<X><![CDATA[41]]></X>";
  const auto tags = LogText::SessionAndRootEnd;
  const std::string element = "\n<Response DataType=\"Response\" Timestamp=\"t\">";
  for (std::size_t written = 0; written <= tags.size(); ++written) {
    const auto reading = ReadingOf(sound + element.substr(0, written) + std::string(tags.substr(written)));
    EXPECT_EQ(reading.Ending, written <= 2 ? End::Complete : End::Torn) << written;
  }
}

TEST(LogReaderTest, OtherDamageIsNotTakenForATornWrite) {
  const std::string sound = LogText::Head() + LogText::SessionTag(u"t", u"") + "\n<X><![CDATA[41]]></X>";
  const std::string end(LogText::SessionAndRootEnd);
  EXPECT_EQ(EndOf(sound + "\n<Respons</Session>\n</SCPICommLog>\n"), End::Broken); // too long
  EXPECT_EQ(EndOf(sound + "\n<Responsession>\n</SCPIComm>\n"), End::Broken);       // another end
  EXPECT_EQ(EndOf(sound + "\n&& Response>\n</SCPICommLog>\n"), End::Broken);       // no element's start
  EXPECT_EQ(EndOf(sound + end.substr(0, end.size() - 1) + "x"), End::Broken);
}

TEST(LogReaderTest, APieceOfACloseStampLeavesTheSessionOpen) {
  const std::string start = LogText::Head() + LogText::SessionTagStart(u"t");
  const std::string field = LogText::CloseStampField(u"2004-11-01T16:42:15.000000000-5:00");
  const std::string rest = ">\n<X><![CDATA[41]]></X>" + std::string(LogText::SessionAndRootEnd);
  const std::string full = field.substr(0, field.find_last_not_of(' ') + 1);
  for (std::size_t written = 0; written < full.size(); ++written) {
    std::string torn = full.substr(0, written);
    torn.resize(LogText::CloseStampRoom, ' ');
    const std::string log = start + torn + rest;
    EXPECT_EQ(Tell(log), (Lines{HeaderLine, "session SessionOpenTimeStamp=t", "X 41", "end"})) << written;
    const auto reading = ReadingOf(log);
    EXPECT_EQ(reading.TornCloseStamps.size(), written <= 1 ? 0U : 1U);
    EXPECT_EQ(reading.Size, log.size());
    EXPECT_EQ(reading.SoundEnd, log.size() - LogText::RootEnd.size());
  }
}

TEST(LogReaderTest, ADamageBehindASessionIsNotTakenForATornCloseStamp) {
  const std::string start = LogText::Head() + LogText::SessionTag(u"t", u"") + "\n<X>41</X>";
  EXPECT_EQ(EndOf(start + "\n</Session>\n<Session Log>\n</Other>"), End::Broken);
  EXPECT_EQ(EndOf(start + "\n</Session>\n<Session SessionOpenTimeStamp=\"u\" x></Session>"), End::Broken);
}

TEST(LogReaderTest, ATornCloseStampIsLookedForInFrontOfTheFault) {
  const std::string tag = LogText::SessionTag(u"t", u"");
  const std::string log = LogText::Head() + LogText::SessionTagStart(u"t") + " SessionCloseTimeStamp=\"2/>" + tag;
  EXPECT_EQ(EndOf(log), End::Broken); // and does not take the tag behind the fault for the torn one
}

TEST(LogReaderTest, SeveralTornCloseStampsAreAllPassed) {
  std::string room = " SessionCloseTimeStamp=\"20";
  room.resize(LogText::CloseStampRoom, ' ');
  const std::string tag = LogText::SessionTagStart(u"t") + room + ">";
  const std::string log = LogText::Head() + tag + "\n<X>41</X>\n</Session>" + tag + "\n<Y>42</Y>\n</Session>" +
                          std::string(LogText::RootEnd);
  EXPECT_EQ(TextsOf(log), (Lines{"41", "42"}));
  const auto reading = ReadingOf(log);
  ASSERT_EQ(reading.TornCloseStamps.size(), 2U);
  for (const std::uint64_t position : reading.TornCloseStamps) EXPECT_EQ(log.substr(position, room.size()), room);
}

TEST(LogReaderTest, ASessionTagThatIsBrokenOtherwiseStaysBroken) {
  const std::string blanks(LogText::CloseStampRoom - 2, ' ');
  EXPECT_EQ(EndOf(PlainLogOf("<Session SessionOpenTimeStamp=\"t\" x " + blanks + "></Session>")),
            End::Broken); // one too many
  EXPECT_EQ(EndOf(PlainLogOf("<Session SessionOpenTimeStamp=\"t\" x" + blanks.substr(2) + "></Session>")), End::Broken);
  EXPECT_EQ(EndOf(PlainLogOf("<Session><Session SessionOpenTimeStamp=\"t\" x" + blanks + "></Session></Session>")),
            End::Broken);
}

} // namespace
} // namespace portico::test
