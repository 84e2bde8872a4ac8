#include "framework/objects/Creator.h"

#include "support/Allocation.h"
#include "support/ErrorReports.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"

#include <ostream>

namespace portico {
namespace {

using test::FirstDescription;
using test::Labels;
using test::NamedObject;
using test::Raised;

class CreatorTest : public test::FrameworkTest {};

Ref<IObject> MakeFromFirst(const Params& parameters) {
  return New<NamedObject>(parameters.empty() ? u"CWriteCmd" : parameters[0].ToString());
}
Ref<IObject> MakeNothing(const Params&) { return {}; }

CreatorRow Row(std::size_t count) {
  return {.Name = u"CtorWriteCmd", .Specification = u"WriteCmd", .ParamCount = count, .Make = &MakeFromFirst};
}

TEST_F(CreatorTest, TellsItsNameAndSpecification) {
  const CreatorRow row = Row(1);
  const auto creator = MakeCreator(row);
  EXPECT_EQ(creator->ClassName(), u"CtorWriteCmd");
  EXPECT_EQ(creator->Specification().ToString(), u"WriteCmd");
}

TEST_F(CreatorTest, IsMatchIsExactAndSensitiveToCase) {
  const CreatorRow row = Row(1);
  const auto creator = MakeCreator(row);
  EXPECT_TRUE(creator->IsMatch(u"WriteCmd"));
  EXPECT_FALSE(creator->IsMatch(u"writecmd"));
  EXPECT_FALSE(creator->IsMatch(u"WriteCmd "));
  EXPECT_FALSE(creator->IsMatch(u""));
}

TEST_F(CreatorTest, IsMatchOfAnObjectRaises13UnderItsLabel) {
  const CreatorRow row = Row(1);
  const ErrorRecord error = Raised([&] { MakeCreator(row)->IsMatch(New<NamedObject>()); });
  EXPECT_EQ(error.Number, 13);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CtorWriteCmd.ICreator_IsMatch(Specification)"}));
}

TEST_F(CreatorTest, AFailureOfSpecificationStandsUnderItsLabel) {
  const CreatorRow row = Row(1);
  const auto creator = MakeCreator(row);
  EXPECT_EQ(Labels(Raised([&] {
              const test::FailingAllocation noMemory;
              creator->Specification();
            })),
            (std::vector<String>{u"CtorWriteCmd.ICreator_Specification()"}));
}

TEST_F(CreatorTest, MakesANewProductFromItsParameters) {
  const CreatorRow row = Row(2);
  const auto creator = MakeCreator(row);
  const auto first = creator->Create({u"CFirst", 1});
  const auto second = creator->Create({u"CSecond", 2});
  EXPECT_EQ(first->ClassName(), u"CFirst");
  EXPECT_EQ(second->ClassName(), u"CSecond");
}

struct CountCase {
  std::size_t Count;
  const char16_t* Text;
};

void PrintTo(const CountCase& expected, std::ostream* out) { *out << expected.Count; }

class CreatorCountTest : public test::FrameworkTest, public ::testing::WithParamInterface<CountCase> {};

INSTANTIATE_TEST_SUITE_P(
    Counts, CreatorCountTest,
    ::testing::Values(CountCase{0, u"Expected 0 parameters."}, CountCase{1, u"Expected 1 parameter."},
                      CountCase{2, u"Expected 2 parameters."}, CountCase{3, u"Expected 3 parameter."},
                      CountCase{4, u"Expected 4 parameter."}, CountCase{5, u"Expected 5 parameter."}));

TEST_P(CreatorCountTest, AnyOtherCountRaises450AndMakesNothing) {
  static int made;
  made = 0;
  const CreatorRow row = {
      .Name = u"CtorX",
      .Specification = u"X",
      .ParamCount = GetParam().Count,
      .Make = [](const Params&) -> Ref<IObject> {
        ++made;
        return New<NamedObject>();
      },
  };
  const auto creator = MakeCreator(row);
  for (std::size_t count = 0; count <= 6; ++count) {
    if (count == GetParam().Count) continue;
    const ErrorRecord error = Raised([&] { creator->Create(Params(count)); });
    EXPECT_EQ(error.Number, 450);
    EXPECT_EQ(FirstDescription(error), GetParam().Text);
  }
  EXPECT_EQ(made, 0);
  EXPECT_TRUE(creator->Create(Params(GetParam().Count)));
  EXPECT_EQ(made, 1);
}

TEST_F(CreatorTest, AFailureStandsUnderTheCreatorsLabel) {
  const CreatorRow row = Row(1);
  const ErrorRecord error = Raised([&] { MakeCreator(row)->Create({}); });
  EXPECT_EQ(Labels(error), (std::vector<String>{u"CtorWriteCmd.ICreator_Create(Params)"}));
}

TEST_F(CreatorTest, ALabelNameReplacesTheCreatorsOwn) {
  CreatorRow row = Row(1);
  row.LabelName = u"CtorReadCmd";
  const auto creator = MakeCreator(row);
  EXPECT_EQ(creator->ClassName(), u"CtorWriteCmd");
  EXPECT_EQ(Labels(Raised([&] { creator->Create({}); })),
            (std::vector<String>{u"CtorReadCmd.ICreator_Create(Params)"}));
}

TEST_F(CreatorTest, AProductThatWasNotMadeRaisesTheCreatorsOwnError) {
  const CreatorRow row = {
      .Name = u"CtorCopy",
      .Specification = u"Copy",
      .ParamCount = 0,
      .Make = &MakeNothing,
      .FailureNumber = 31004,
      .FailureText = u"Cannot create a copy command.",
  };
  const ErrorRecord error = Raised([&] { MakeCreator(row)->Create({}); });
  EXPECT_EQ(error.Number, 31004);
  EXPECT_EQ(FirstDescription(error), u"Cannot create a copy command.");
}

TEST_F(CreatorTest, WithoutThatCheckAnUnsetProductIsReturned) {
  const CreatorRow row = {.Name = u"CtorCopy", .Specification = u"Copy", .ParamCount = 0, .Make = &MakeNothing};
  EXPECT_FALSE(MakeCreator(row)->Create({}));
}

CreatorRow Singleton(Ref<IObject> (*make)(const Params&)) {
  return {.Name = u"CtorDriverSession",
          .Specification = u"DriverSession",
          .ParamCount = 0,
          .Make = make,
          .FailureNumber = 31004,
          .FailureText = u"Driver session object does not exist.",
          .Singleton = true};
}

TEST_F(CreatorTest, ASingletonIsMadeWithItsCreatorAndGivenToEveryCaller) {
  static int made;
  made = 0;
  const CreatorRow row = Singleton([](const Params&) -> Ref<IObject> {
    ++made;
    return New<NamedObject>();
  });
  const auto creator = MakeCreator(row);
  EXPECT_EQ(made, 1);
  EXPECT_TRUE(IsSameObject(creator->Create({}), creator->Create({})));
  EXPECT_EQ(made, 1);
}

TEST_F(CreatorTest, ASingletonLivesAsLongAsItsCreator) {
  const CreatorRow row = Singleton(&MakeFromFirst);
  auto creator = MakeCreator(row);
  const std::weak_ptr<IObject> product = creator->Create({}).Shared();
  EXPECT_FALSE(product.expired());
  creator = {};
  EXPECT_TRUE(product.expired());
}

TEST_F(CreatorTest, EachCreatorOfASingletonHasItsOwn) {
  const CreatorRow row = Singleton(&MakeFromFirst);
  const auto one = MakeCreator(row)->Create({});
  const auto other = MakeCreator(row)->Create({});
  EXPECT_FALSE(IsSameObject(one, other));
}

TEST_F(CreatorTest, EvenASingletonMustBeAskedForWithoutParameters) {
  const CreatorRow row = Singleton(&MakeFromFirst);
  const ErrorRecord error = Raised([&] { MakeCreator(row)->Create({1}); });
  EXPECT_EQ(error.Number, 450);
  EXPECT_EQ(FirstDescription(error), u"Expected 0 parameters.");
}

TEST_F(CreatorTest, AMissingSingletonRaisesTheCreatorsOwnErrorWhenAskedFor) {
  const CreatorRow row = Singleton(&MakeNothing);
  const auto creator = MakeCreator(row);
  const ErrorRecord error = Raised([&] { creator->Create({}); });
  EXPECT_EQ(error.Number, 31004);
  EXPECT_EQ(FirstDescription(error), u"Driver session object does not exist.");
}

TEST_F(CreatorTest, ASingletonThatFailsToBeMadeFailsItsCreator) {
  const CreatorRow row = Singleton([](const Params&) -> Ref<IObject> { HuntERR::Raise(17, u"Tester", u"No driver."); });
  try {
    MakeCreator(row);
  } catch (...) {
    StopHere(u"C.RegisterClasses(ObjectFactory)");
  }
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"No driver.");
  EXPECT_EQ(Labels(HuntERR::ErrReport()),
            (std::vector<String>{u"CtorDriverSession.Class_Initialize()", u"C.RegisterClasses(ObjectFactory)"}));
}

} // namespace
} // namespace portico
