// What the program changes in the user's stead, and what of it the user can undo.

#include "contract/UserEditBench.h"

#include <stdexcept>

namespace portico::test {
namespace {

class UserEditContract : public testing::TestWithParam<UserEditBenchKind> {
protected:
  UserEditContract() {
    Box.Change().Connect([this] { seen.push_back(Text()); });
  }

  std::string Text() const { return ToUtf8(Box.Text()); }
  void Replace(std::int32_t start, std::int32_t length, StringView text) {
    Box.AsUser([&] {
      Box.SelStart(start);
      Box.SelLength(length);
      Box.SelText({});
      Box.SelFormat({.SelBold = false, .SelColor = 0});
      Box.SelText(text);
    });
  }
  SelectionFormat LookOf(std::int32_t start, std::int32_t length) {
    Box.SelStart(start);
    Box.SelLength(length);
    return Box.SelFormat();
  }

  const std::unique_ptr<UserEditBench> Bench = GetParam().make();
  IRichTextControl& Box = Bench->Box();
  std::vector<std::string> seen;
};

INSTANTIATE_TEST_SUITE_P(AllPlatforms, UserEditContract, testing::ValuesIn(AllUserEditBenches()), UserEditBenchName);

TEST_P(UserEditContract, AnEditIsOneStepOfUndo) {
  Box.Text(u"one\r\ntwo");
  Replace(5, 3, u"*IDN?");
  EXPECT_EQ(Text(), "one\r\n*IDN?");
  EXPECT_EQ(Box.SelStart(), 10);
  Replace(5, 5, u"*RST");
  Bench->Undo();
  EXPECT_EQ(Text(), "one\r\n*IDN?");
  Bench->Undo();
  EXPECT_EQ(Text(), "one\r\ntwo");
  Bench->Undo();
  EXPECT_EQ(Text(), "one\r\ntwo") << "what the program has written is no step";
}

TEST_P(UserEditContract, WhatWasTypedBeforeCanBeUndoneAfterIt) {
  Bench->Type(u"a");
  Replace(0, 1, u"*IDN?");
  Bench->Undo();
  EXPECT_EQ(Text(), "a");
  Bench->Undo();
  EXPECT_EQ(Text(), "");
}

TEST_P(UserEditContract, WhatIsTypedBehindItIsAStepOfItsOwn) {
  Replace(0, 0, u"*IDN?");
  Bench->Type(u"x");
  EXPECT_EQ(Text(), "*IDN?x");
  Bench->Undo();
  EXPECT_EQ(Text(), "*IDN?");
}

TEST_P(UserEditContract, WhatTheProgramChangesOtherwiseIsNoStepAndEndsThem) {
  Replace(0, 0, u"*IDN?");
  Box.SelStart(0);
  Box.SelText(u"x");
  Bench->Undo();
  EXPECT_EQ(Text(), "x*IDN?");
}

TEST_P(UserEditContract, ChangeFiresOnceBehindTheWholeEdit) {
  Box.Text(u"two");
  seen.clear();
  Replace(0, 3, u"*IDN?");
  EXPECT_EQ(seen, std::vector<std::string>{"*IDN?"});
  Box.AsUser([] {});
  EXPECT_EQ(seen.size(), 1U);
}

TEST_P(UserEditContract, LooksComeBackWithTheText) {
  Box.Text(u"ab\r\nc");
  Box.SelStart(0);
  Box.SelLength(2);
  Box.SelFormat({.SelBold = true, .SelColor = 0x0000FF});
  Replace(0, 2, u"*IDN?");
  EXPECT_EQ(LookOf(0, 5).SelBold, false);
  EXPECT_EQ(LookOf(0, 5).SelColor, 0);
  Bench->Undo();
  EXPECT_EQ(Text(), "ab\r\nc");
  EXPECT_EQ(LookOf(0, 2).SelBold, true);
  EXPECT_EQ(LookOf(0, 2).SelColor, 0x0000FF);
}

TEST_P(UserEditContract, WhatWasChangedBeforeAnErrorStaysAStep) {
  Bench->Type(u"a");
  seen.clear();
  EXPECT_THROW(Box.AsUser([this] {
    Box.SelText(u"b");
    throw std::runtime_error("no more");
  }),
               std::runtime_error);
  EXPECT_EQ(seen, std::vector<std::string>{"ab"});
  Bench->Undo();
  EXPECT_EQ(Text(), "a");
}

} // namespace
} // namespace portico::test
