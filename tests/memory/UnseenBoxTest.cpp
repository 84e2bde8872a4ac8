#include "memory/UnseenBox.h"

#include "support/fixtures/DocumentFixture.h"
#include "views/CSCPIViewHistory.h"

namespace portico::test {
namespace {

TEST(UnseenBoxTest, KeepsNothingOfWhatIsWrittenThere) {
  memory::UnseenBox box;
  int changes = 0;
  box.Change().Connect([&] { ++changes; });
  box.Text(u"text");
  box.SelText(u"text");
  box.SelRTF(u"{\\rtf1 text}");
  box.TextRTF(u"{\\rtf1 text}");
  box.SelFragment({u"text", u"}"});
  EXPECT_EQ(box.Text(), u"");
  EXPECT_EQ(box.TextLength(), 0);
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.Find(u"text", 0), -1);
  EXPECT_EQ(box.SelText(), u"");
  EXPECT_EQ(changes, 0);
}

/// Whoever asks an entity learns of its fragment what he would learn if somebody saw it.
class UnseenHistoryTest : public DocumentFixture {};

TEST_F(UnseenHistoryTest, NotesTheFragmentsOnTheEntities) {
  const auto view = New<CSCPIViewHistory>();
  view->Initialize(New<memory::UnseenBox>());
  const auto entity = Entity(u"1.5\r\n", u"Response");
  view->Instructions()->Enqueue(entity);
  EXPECT_EQ(entity->DataAttribute(u"_RTFSelectionLength"), u" 47");
  EXPECT_EQ(entity->DataAttribute(u"_RTFVisibleTextOffset"), u"0");
  const auto emptyLine = Entity(u"\r\n", u"");
  view->Instructions()->Enqueue(emptyLine);
  EXPECT_EQ(emptyLine->DataAttributes()->Count(), 2) << "it is not shown";
  view->Clear();
  view->Instructions()->Clear();
  EXPECT_EQ(view->Instructions()->Count(), 0);
}

} // namespace
} // namespace portico::test
