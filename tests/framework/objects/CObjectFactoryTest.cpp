#include "framework/objects/CObjectFactory.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/ICommand.h"

#include "support/Allocation.h"
#include "support/ErrorReports.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using modGlobals::VarArray;
using test::CreatorOf;
using test::Labels;
using test::NamedObject;
using test::Raised;

class CObjectFactoriesTest : public test::FrameworkTest {
protected:
  CObjectFactoriesTest() {
    for (const char16_t* specification : {u"OpenInstrument", u"CloseInstrument", u"CopyTo"}) {
      Creators.Add(New<CreatorOf>(specification), specification);
    }
  }
  String SpecificationAt(const Value& indexOrKey) const {
    return Creators.Item(indexOrKey)->Specification().ToString();
  }
  std::vector<String> All() const {
    std::vector<String> specifications;
    for (const auto& creator : Creators.NewEnum()) specifications.push_back(creator->Specification().ToString());
    return specifications;
  }

  CObjectFactories Creators;
};

TEST_F(CObjectFactoriesTest, EnumeratesInInsertionOrder) {
  EXPECT_EQ(Creators.Count(), 3U);
  EXPECT_EQ(All(), (std::vector<String>{u"OpenInstrument", u"CloseInstrument", u"CopyTo"}));
}

TEST_F(CObjectFactoriesTest, ItemCountsFromZero) {
  EXPECT_EQ(SpecificationAt(0), u"OpenInstrument");
  EXPECT_EQ(SpecificationAt(1), u"CloseInstrument");
  EXPECT_EQ(SpecificationAt(2), u"CopyTo");
}

TEST_F(CObjectFactoriesTest, ItemTakesATextThatReadsAsANumberForAPosition) {
  EXPECT_EQ(SpecificationAt(u"1"), u"CloseInstrument");
  EXPECT_EQ(SpecificationAt(u" 2 "), u"CopyTo");
}

TEST_F(CObjectFactoriesTest, ItemIgnoresTheCaseOfKeys) { EXPECT_EQ(SpecificationAt(u"COPYTO"), u"CopyTo"); }

TEST_F(CObjectFactoriesTest, AbsentItemsRaise5) {
  for (const Value& absent : {Value(3), Value(-1), Value(-7), Value(2147483647), Value(u"3"), Value(u"Copy")}) {
    EXPECT_EQ(Raised([&] { Creators.Item(absent); }).Number, 5) << ToUtf8(absent.TextForm());
  }
}

TEST_F(CObjectFactoriesTest, APositionBeyond32BitsIsAbsentLikeAnyOther) {
  for (const Value& beyond : {Value(2147483648.0), Value(4294967296.0), Value(-4294967296.0), Value(1e300)}) {
    EXPECT_EQ(Raised([&] { Creators.Item(beyond); }).Number, 5) << ToUtf8(beyond.TextForm());
    EXPECT_EQ(Raised([&] { Creators.Remove(beyond); }).Number, 5) << ToUtf8(beyond.TextForm());
  }
  EXPECT_EQ(Raised([&] { Creators.Item(u"4294967296"); }).Number, 5);
  EXPECT_EQ(Raised([&] { Creators.Remove(4294967297.0); }).Number, 5);
  EXPECT_EQ(Creators.Count(), 3U);
}

TEST_F(CObjectFactoriesTest, AFractionIsRoundedBeforeItIsCounted) {
  EXPECT_EQ(SpecificationAt(0.5), u"OpenInstrument");
  EXPECT_EQ(SpecificationAt(1.5), u"CopyTo");
  Creators.Remove(1.5);
  EXPECT_EQ(All(), (std::vector<String>{u"OpenInstrument", u"CopyTo"}));
}

TEST_F(CObjectFactoriesTest, RemoveCountsFromOneUnlikeItem) {
  Creators.Remove(1);
  EXPECT_EQ(All(), (std::vector<String>{u"CloseInstrument", u"CopyTo"}));
}

TEST_F(CObjectFactoriesTest, RemoveTakesATextForAKeyEvenIfItReadsAsANumber) {
  Creators.Add(New<CreatorOf>(u"Odd"), u"1");
  Creators.Remove(u"1");
  EXPECT_EQ(All(), (std::vector<String>{u"OpenInstrument", u"CloseInstrument", u"CopyTo"}));
}

TEST_F(CObjectFactoriesTest, RemovingTheAbsentRaises5) {
  for (const Value& absent : {Value(0), Value(-1), Value(4), Value(u"1"), Value(u"Copy")}) {
    EXPECT_EQ(Raised([&] { Creators.Remove(absent); }).Number, 5) << ToUtf8(absent.TextForm());
  }
  EXPECT_EQ(Creators.Count(), 3U);
}

TEST_F(CObjectFactoriesTest, AddingAPresentKeyRaises457) {
  EXPECT_EQ(Raised([&] { Creators.Add(New<CreatorOf>(u"x"), u"copyto"); }).Number, 457);
  EXPECT_EQ(Creators.Count(), 3U);
}

TEST_F(CObjectFactoriesTest, FailuresStandUnderTheirLabels) {
  EXPECT_EQ(Labels(Raised([&] { Creators.Add(New<CreatorOf>(u"x"), u"CopyTo"); })),
            (std::vector<String>{u"CObjectFactories.Add(Creator,Specification)"}));
  EXPECT_EQ(Labels(Raised([&] { Creators.Item(9); })), (std::vector<String>{u"CObjectFactories.Item(IndexOrKey)"}));
  EXPECT_EQ(Labels(Raised([&] { Creators.Remove(u"Copy"); })),
            (std::vector<String>{u"CObjectFactories.Remove(IndexOrKey)"}));
  EXPECT_EQ(Labels(Raised([&] {
              const test::FailingAllocation noMemory;
              Creators.NewEnum();
            })),
            (std::vector<String>{u"CObjectFactories.NewEnum()"}));
}

class CObjectFactoryTest : public test::FrameworkTest {
protected:
  CObjectFactoryTest() {
    Factory.Add(New<CreatorOf>(u"WriteCmd", [](const Params& parameters) -> Ref<IObject> {
      return New<NamedObject>(parameters[0].ToString());
    }));
  }

  CObjectFactory Factory;
};

TEST_F(CObjectFactoryTest, CreatesWhatTheCreatorMakesOfTheParameters) {
  EXPECT_EQ(Factory.CreateObject(u"WriteCmd", VarArray(u"CProduct"))->ClassName(), u"CProduct");
}

TEST_F(CObjectFactoryTest, FindsACreatorWithoutRegardToCaseWhereIsMatchDoesNot) {
  EXPECT_EQ(Factory.CreateObject(u"writecmd", VarArray(u"CProduct"))->ClassName(), u"CProduct");
  EXPECT_FALSE(Factory.GetCreator(u"writecmd")->IsMatch(u"writecmd"));
}

TEST_F(CObjectFactoryTest, GivesTheRegisteredCreator) {
  const Ref<ICreator> creator = New<CreatorOf>(u"ReadCmd");
  Factory.Add(creator);
  EXPECT_TRUE(IsSameObject(Factory.GetCreator(u"ReadCmd"), creator));
  EXPECT_TRUE(IsSameObject(Factory.Creators().Item(1), creator));
}

TEST_F(CObjectFactoryTest, AnUnknownSpecificationRaises5WithItsChainOfSources) {
  const ErrorRecord error = Raised([&] { Factory.CreateObject(u"Nope", VarArray(1)); });
  EXPECT_EQ(error.Number, 5);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CObjectFactories.Item(IndexOrKey)",
                                                u"CObjectFactory.IObjectFactory_CreateObject(Specification,Params)"}));
  EXPECT_EQ(Labels(Raised([&] { Factory.GetCreator(u"Nope"); })),
            (std::vector<String>{u"CObjectFactories.Item(IndexOrKey)",
                                 u"CObjectFactory.IObjectFactory_GetCreator(Specification)"}));
}

TEST_F(CObjectFactoryTest, ASecondAddUnderOneSpecificationFails) {
  const ErrorRecord error = Raised([&] { Factory.Add(New<CreatorOf>(u"WRITECMD")); });
  EXPECT_EQ(error.Number, 457);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CObjectFactories.Add(Creator,Specification)",
                                                u"CObjectFactory.IObjectFactory_Add(Creator)"}));
}

TEST_F(CObjectFactoryTest, RemovesWhatIsRegisteredUnderTheSameSpecification) {
  Factory.Remove(New<CreatorOf>(u"writecmd"));
  EXPECT_EQ(Factory.Creators().Count(), 0U);
}

TEST_F(CObjectFactoryTest, RemovingAnUnregisteredSpecificationRaises5) {
  const ErrorRecord error = Raised([&] { Factory.Remove(New<CreatorOf>(u"Nope")); });
  EXPECT_EQ(error.Number, 5);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CObjectFactories.Remove(IndexOrKey)",
                                                u"CObjectFactory.IObjectFactory_Remove(Creator)"}));
}

TEST_F(CObjectFactoryTest, SubstitueReplacesTheCreatorAndPutsItLast) {
  Factory.Add(New<CreatorOf>(u"ReadCmd"));
  const Ref<ICreator> other = New<CreatorOf>(u"WriteCmd");
  Factory.Substitue(other);
  EXPECT_EQ(Factory.Creators().Count(), 2U);
  EXPECT_TRUE(IsSameObject(Factory.GetCreator(u"WriteCmd"), other));
  EXPECT_TRUE(IsSameObject(Factory.Creators().Item(1), other));
}

TEST_F(CObjectFactoryTest, SubstitueOfAnUnregisteredSpecificationAddsNothing) {
  const ErrorRecord error = Raised([&] { Factory.Substitue(New<CreatorOf>(u"Nope")); });
  EXPECT_EQ(error.Number, 5);
  EXPECT_EQ(Factory.Creators().Count(), 1U);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CObjectFactories.Remove(IndexOrKey)",
                                                u"CObjectFactory.IObjectFactory_Remove(Creator)",
                                                u"CObjectFactory.IObjectFactory_Substitue(Creator)"}));
}

TEST_F(CObjectFactoryTest, AnUnsetCreatorRaises91) {
  EXPECT_EQ(Raised([&] { Factory.Add({}); }).Number, 91);
  EXPECT_EQ(Raised([&] { Factory.Remove({}); }).Number, 91);
}

TEST_F(CObjectFactoryTest, CreateAsksTheOneFactoryAndConvertsTheProduct) {
  EXPECT_EQ(Raised([] { Create<IObject>(u"WriteCmd"); }).Number, 91);
  gObjectFactory = New<CObjectFactory>();
  gObjectFactory->Add(New<CreatorOf>(u"Plain"));
  EXPECT_EQ(Create<IObject>(u"Plain")->ClassName(), u"NamedObject");
  EXPECT_EQ(Raised([] { Create<ICommand>(u"Plain"); }).Number, 13);
}

} // namespace
} // namespace portico
