#include "document/entities/ConversationPrinter.h"

#include "document/entities/CDataEntity.h"
#include "document/log/CMockTimeStampServer.h"
#include "support/doubles/FlushRecorder.h"
#include "support/fixtures/FrameworkTest.h"

#include <sstream>

namespace portico {
namespace {

class ConversationPrinterTest : public test::FrameworkTest {
protected:
  ConversationPrinterTest() { gTimeStamper = New<CMockTimeStampServer>(); }
  ~ConversationPrinterTest() override { gTimeStamper = nullptr; }

  static Ref<IDataEntity> Entity(StringView text, const String& type) {
    const auto entity = New<CDataEntity>();
    entity->Initialize(ToBytes(text), type, {});
    return entity;
  }
  /// What the entity adds to the output.
  std::string Shown(StringView text, const String& type) {
    out.str({});
    printer.Show(*Entity(text, type));
    return out.str();
  }

  std::ostringstream out;
  ConversationPrinter printer{out};
};

TEST_F(ConversationPrinterTest, EveryKindHasItsMark) {
  EXPECT_EQ(Shown(u"*IDN?\r\n", u"Instruction"), "> *IDN?\n");
  EXPECT_EQ(Shown(u"*OPC?\r\n", u"AutomaticInstruction"), "* *OPC?\n");
  EXPECT_EQ(Shown(u"+1.0\r\n", u"Response"), "< +1.0\n");
  EXPECT_EQ(Shown(u"a\r\n", u"Configuration"), "! a\n");
  EXPECT_EQ(Shown(u"The host is not known.\r\n", u""), "! The host is not known.\n");
}

TEST_F(ConversationPrinterTest, EachLineOfAResponseIsMarked) {
  EXPECT_EQ(Shown(u"one\r\ntwo\nthree\r\n", u"Response"), "< one\n< two\n< three\n");
}

TEST_F(ConversationPrinterTest, BlankLineWithinAResponseIsShown) {
  EXPECT_EQ(Shown(u"one\r\n\r\ntwo\r\n", u"Response"), "< one\n< \n< two\n");
}

TEST_F(ConversationPrinterTest, BareLineFeedBehindAResponseIsShownAsABlankLine) {
  EXPECT_EQ(Shown(u"one\n\r\n", u"Response"), "< one\n< \n");
}

TEST_F(ConversationPrinterTest, LineEndAloneIsNotShown) {
  EXPECT_EQ(Shown(u"\r\n", u""), "");
  EXPECT_EQ(Shown(u"\r\n", u"Response"), "");
}

TEST_F(ConversationPrinterTest, TextIsWrittenAsUtf8) {
  EXPECT_EQ(Shown(u"5 \u00B5V, 3 \u20AC\r\n", u"Response"), "< 5 \xC2\xB5V, 3 \xE2\x82\xAC\n");
}

TEST_F(ConversationPrinterTest, RemarksAndBlankLinesAreMarked) {
  printer.Remark(u"REM a remark");
  printer.Remark(u"");
  EXPECT_EQ(out.str(), "# REM a remark\n# \n");
}

TEST_F(ConversationPrinterTest, FlushingIsLeftToOthers) {
  test::FlushRecorder recorder;
  std::ostream stream(&recorder);
  ConversationPrinter(stream).Show(*Entity(u"one\ntwo\r\n", u"Response"));
  EXPECT_EQ(recorder.str(), "< one\n< two\n");
  EXPECT_EQ(recorder.Flushed, std::vector<std::string>{});
}

} // namespace
} // namespace portico
