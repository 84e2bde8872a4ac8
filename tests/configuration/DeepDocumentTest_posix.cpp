#include "configuration/CConfiguration.h"

#include "framework/errors/HuntERR.h"
#include "support/Labels.h"

#include <functional>
#include <pthread.h>

namespace portico {
namespace {

using test::ExpectError;
using test::Raised;

/// Runs the act on a stack on which whatever recurses with a document's depth ends the program.
void OnSmallStack(std::function<void()> act) {
  constexpr std::size_t small = std::size_t{256} * 1024;
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, small), 0);
  pthread_t thread{};
  const auto run = [](void* body) -> void* {
    (*static_cast<std::function<void()>*>(body))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &act), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

/// A document is answered alike however deep it is.
class DeepDocumentTest : public ::testing::TestWithParam<std::size_t> {
protected:
  DeepDocumentTest() { Server->Initialize(); }
  ~DeepDocumentTest() override { HuntERR::Reset(); }

  static String Repeated(StringView piece) {
    String text;
    for (std::size_t i = 0; i < GetParam(); ++i) text.append(piece);
    return text;
  }
  static String Nested(StringView text) { return Repeated(u"<x>") + String(text) + Repeated(u"</x>"); }
  static String Parameter(const String& content) { return u"<Parameter Name=\"A\">" + content + u"</Parameter>"; }
  static String Document(const String& content) { return u"<Parameters>" + content + u"</Parameters>"; }
  /// Without a difference of megabytes when they are not the same.
  static void ExpectSame(const String& text, const String& expected) {
    EXPECT_TRUE(text == expected) << ToUtf8(text.substr(0, 200));
  }

  Ref<CConfiguration> Server = New<CConfiguration>();
};

INSTANTIATE_TEST_SUITE_P(Levels, DeepDocumentTest, ::testing::Values(2, 200000));

TEST_P(DeepDocumentTest, UpdateReadsTheTextBelowAParameter) {
  OnSmallStack([this] {
    const auto response = Server->Update(Document(Parameter(Nested(u"deep"))));
    ExpectSame(response->ResponseData(), Document(Parameter(u"deep")));
  });
}

TEST_P(DeepDocumentTest, RetrieveReplacesAllBelowAParameter) {
  Server->ItemValue(u"A", u"1");
  OnSmallStack([this] {
    const auto response = Server->Retrieve(Document(Parameter(u"a" + Nested(u"deep") + Nested(u"<y a=\"1\"/>"))));
    ExpectSame(response->ResponseData(), Document(Parameter(u"1")));
  });
}

TEST_P(DeepDocumentTest, RetrieveGivesBackWhatStandsElsewhere) {
  Server->ItemValue(u"A", u"1");
  OnSmallStack([this] {
    const String elsewhere = u"<Other>" + Nested(u"deep") + u"</Other>";
    const auto response = Server->Retrieve(Document(elsewhere + Parameter(u"")));
    ExpectSame(response->ResponseData(), Document(elsewhere + Parameter(u"1")));
  });
}

TEST_P(DeepDocumentTest, OneThatIsNotWellFormedIsRefused) {
  OnSmallStack([this] {
    for (const String& document : {Document(Parameter(Repeated(u"<x>"))), Document(Nested(u"&#0;"))}) {
      ExpectError(Raised([&] { Server->Update(document); }), 5, u"Syntax Error: Configuration is not valid XML");
      ExpectError(Raised([&] { Server->Retrieve(document); }), 5, u"Syntax Error: Configuration is not valid XML");
    }
  });
}

} // namespace
} // namespace portico
