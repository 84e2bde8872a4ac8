#include "framework/objects/ClassKey.h"

#include "framework/objects/CObjectFactory.h"
#include "framework/shared/ICommand.h"

#include "support/ErrorReports.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using test::CommandOf;
using test::CreatorOf;
using test::NamedObject;
using test::Raised;

constexpr ClassKey<ICommand> Plain{u"Plain"};
constexpr ClassKey<ICommand, StringView, bool, std::int32_t, Ref<IObject>, ByteArray> Full{u"Full"};

class ClassKeyTest : public test::FrameworkTest {
protected:
  ClassKeyTest() {
    gObjectFactory = New<CObjectFactory>();
    for (const char16_t* specification : {u"Plain", u"Full"}) {
      gObjectFactory->Add(New<CreatorOf>(specification, [this](const Params& parameters) {
        Seen = parameters;
        return Product;
      }));
    }
  }

  Ref<IObject> Product = New<CommandOf>([] {});
  Params Seen = {u"nothing asked"};
};

TEST_F(ClassKeyTest, AClassWithoutParametersIsAskedForWithAnEmptyArray) {
  const Ref<ICommand> command = Create(Plain);
  EXPECT_TRUE(IsSameObject(command, Product));
  EXPECT_TRUE(Seen.empty());
}

TEST_F(ClassKeyTest, ArgumentsReachTheCreatorInTheirOrder) {
  const auto object = New<NamedObject>(u"CThing");
  Create(Full, u"text", true, 7, object, ByteArray{1, 2});
  ASSERT_EQ(Seen.size(), 5U);
  EXPECT_EQ(Seen[0].TextForm(), u"'text'");
  EXPECT_EQ(Seen[1].ToString(), u"True");
  EXPECT_EQ(Seen[2].TextForm(), u"7");
  EXPECT_EQ(Seen[3].TextForm(), u"{CThing}");
  EXPECT_EQ(Seen[4].ToByteArray().size(), 2U);
}

TEST_F(ClassKeyTest, AnUnsetReferenceIsAnArgumentLikeAnyOther) {
  Create(Full, u"", false, 0, {}, {});
  ASSERT_EQ(Seen.size(), 5U);
  EXPECT_EQ(Seen[3].TextForm(), u"{Null}");
}

TEST_F(ClassKeyTest, AProductWithoutTheInterfaceRaises13) {
  Product = New<NamedObject>();
  EXPECT_EQ(Raised([] { Create(Plain); }).Number, 13);
}

TEST_F(ClassKeyTest, AProductCanBeAskedForAnotherInterface) {
  Product = New<NamedObject>(u"CThing");
  EXPECT_EQ(CreateAs<NamedObject>(Plain)->Name, u"CThing");
}

TEST_F(ClassKeyTest, WithoutAFactoryItRaises91) {
  gObjectFactory = {};
  EXPECT_EQ(Raised([] { Create(Plain); }).Number, 91);
}

TEST_F(ClassKeyTest, ASubstitutedCreatorIsAskedFromTheNextObjectOn) {
  Create(Plain);
  const Ref<IObject> other = New<CommandOf>([] {});
  gObjectFactory->Substitue(New<CreatorOf>(u"Plain", [&](const Params&) { return other; }));
  EXPECT_TRUE(IsSameObject(Create(Plain), other));
}

TEST_F(ClassKeyTest, ACreatorThatIsRemovedIsNotFoundAgain) {
  Create(Plain);
  gObjectFactory->Remove(New<CreatorOf>(u"Plain"));
  EXPECT_EQ(Raised([] { Create(Plain); }).Number, 5);
}

TEST_F(ClassKeyTest, ACreatorIsFoundOnceItIsAdded) {
  constexpr ClassKey<ICommand> late{u"Late"};
  EXPECT_EQ(Raised([&] { Create(late); }).Number, 5);
  EXPECT_EQ(Raised([&] { Create(late); }).Number, 5) << "its absence is not remembered";
  gObjectFactory->Add(New<CreatorOf>(u"Late", [this](const Params&) { return Product; }));
  EXPECT_TRUE(IsSameObject(Create(late), Product));
}

TEST_F(ClassKeyTest, ACreatorIsFoundWhenManyHaveComeBehindIt) {
  Create(Plain);
  for (std::int64_t i = 0; i < 1000; ++i) gObjectFactory->Add(New<CreatorOf>(u"Another" + ToText(i)));
  EXPECT_TRUE(IsSameObject(Create(Plain), Product));
}

TEST_F(ClassKeyTest, ACreatorIsFoundThatWasAskedWhileAnotherWent) {
  constexpr ClassKey<ICommand> asked{u"Asked"};
  bool wasFound = false;
  const auto end = [&](const void*) { wasFound = IsSameObject(Create(asked), Product); };
  gObjectFactory->Substitue(New<CreatorOf>(
      u"Full", [last = std::shared_ptr<const void>(this, end)](const Params&) { return Ref<IObject>(); }));
  for (const char16_t* specification : {u"Before", u"Asked", u"Behind"}) {
    gObjectFactory->Add(New<CreatorOf>(specification, [this, specification](const Params&) {
      return specification == asked.Specification ? Product : Ref<IObject>();
    }));
  }
  gObjectFactory->Remove(New<CreatorOf>(u"Full"));
  EXPECT_TRUE(wasFound);
  EXPECT_TRUE(IsSameObject(Create(asked), Product));
}

TEST_F(ClassKeyTest, AnotherFactoryIsAskedForItsOwnCreator) {
  Create(Plain);
  const Ref<IObject> other = New<CommandOf>([] {});
  gObjectFactory = New<CObjectFactory>();
  EXPECT_EQ(Raised([] { Create(Plain); }).Number, 5);
  gObjectFactory->Add(New<CreatorOf>(u"Plain", [&](const Params&) { return other; }));
  EXPECT_TRUE(IsSameObject(Create(Plain), other));
}

TEST_F(ClassKeyTest, ACreatorOutlivesItsOwnRemovalWhileItCreates) {
  gObjectFactory->Substitue(New<CreatorOf>(u"Plain", [product = Product](const Params&) {
    gObjectFactory->Remove(New<CreatorOf>(u"Plain"));
    return product;
  }));
  EXPECT_TRUE(IsSameObject(Create(Plain), Product));
}

TEST_F(ClassKeyTest, AFailureTellsTheSpecificationAndTheParameters) {
  gObjectFactory->Remove(New<CreatorOf>(u"Full"));
  const auto failure = test::FailureOf([] { Create(Full, u"", false, 0, {}, {}); });
  EXPECT_EQ(failure.Trail,
            (std::vector<String>{u"CObjectFactories.Item(IndexOrKey='Full')",
                                 u"CObjectFactory.IObjectFactory_CreateObject(Specification='Full', Params={Array})"}));
}

TEST_F(ClassKeyTest, KnowsHowManyParametersTheCreatorTakes) {
  EXPECT_EQ(Plain.ParamCount, 0U);
  EXPECT_EQ(Full.ParamCount, 5U);
}

} // namespace
} // namespace portico
