#include "framework/errors/Value.h"

#include "framework/shared/ICommand.h"
#include "support/ErrorReports.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"

#include <limits>

namespace portico {
namespace {

using test::NamedObject;
using test::Raised;

class ValueTest : public test::FrameworkTest {};

TEST_F(ValueTest, TextFormOfAStringStandsBetweenApostrophes) {
  EXPECT_EQ(Value(u"*IDN?").TextForm(), u"'*IDN?'");
  EXPECT_EQ(Value(u"").TextForm(), u"''");
  EXPECT_EQ(Value(String(u"it's")).TextForm(), u"'it's'");
}

TEST_F(ValueTest, TextFormOfANumberIsItsDecimalText) {
  EXPECT_EQ(Value(-17).TextForm(), u"-17");
  EXPECT_EQ(Value(2.5).TextForm(), u"2.5");
  EXPECT_EQ(Value(1000000.0).TextForm(), u"1000000");
}

TEST_F(ValueTest, TextFormOfAnArrayIsArray) {
  EXPECT_EQ(Value(Params{}).TextForm(), u"{Array}");
  EXPECT_EQ(Value(ByteArray{1}).TextForm(), u"{Array}");
}

TEST_F(ValueTest, TextFormOfNothingIsEmptyAndOfNullNull) {
  EXPECT_EQ(Value().TextForm(), u"{Empty}");
  EXPECT_EQ(Value(Value::NullType{}).TextForm(), u"{Null}");
  EXPECT_EQ(Value(Ref<IObject>()).TextForm(), u"{Null}");
}

TEST_F(ValueTest, TextFormOfAnObjectIsItsClassName) {
  EXPECT_EQ(Value(New<NamedObject>(u"CWriteCmd")).TextForm(), u"{CWriteCmd}");
}

TEST_F(ValueTest, TextFormOfABooleanIsAQuestionMark) { EXPECT_EQ(Value(true).TextForm(), u"{?}"); }

TEST_F(ValueTest, KnowsEmptyAndObjectsApart) {
  EXPECT_TRUE(Value().IsEmpty());
  EXPECT_FALSE(Value(Value::NullType{}).IsEmpty());
  EXPECT_FALSE(Value(u"").IsEmpty());
  EXPECT_TRUE(Value(Ref<IObject>()).IsObject());
  EXPECT_FALSE(Value().IsObject());
}

TEST_F(ValueTest, IsNumericForNumbersAndTextsThatReadAsOne) {
  EXPECT_TRUE(Value(0).IsNumeric());
  EXPECT_TRUE(Value(0.5).IsNumeric());
  EXPECT_TRUE(Value(u" 1 ").IsNumeric());
  EXPECT_FALSE(Value(u"").IsNumeric());
  EXPECT_FALSE(Value(u"WriteCmd").IsNumeric());
  EXPECT_FALSE(Value(true).IsNumeric());
  EXPECT_FALSE(Value().IsNumeric());
  EXPECT_FALSE(Value(New<NamedObject>()).IsNumeric());
}

TEST_F(ValueTest, AsTextIsNothingForOtherKinds) {
  ASSERT_TRUE(Value(u"a").AsText());
  EXPECT_EQ(*Value(u"a").AsText(), u"a");
  EXPECT_FALSE(Value(1).AsText());
  EXPECT_EQ(*Value::Borrowed(u"b").AsText(), u"b");
}

TEST_F(ValueTest, ToStringWritesNumbersTruthsAndNothing) {
  EXPECT_EQ(Value(u"a").ToString(), u"a");
  EXPECT_EQ(Value(-3).ToString(), u"-3");
  EXPECT_EQ(Value(0.25).ToString(), u"0.25");
  EXPECT_EQ(Value(true).ToString(), u"True");
  EXPECT_EQ(Value(false).ToString(), u"False");
  EXPECT_EQ(Value().ToString(), u"");
}

TEST_F(ValueTest, ToLongRoundsHalvesToTheEvenNumber) {
  EXPECT_EQ(Value(0.5).ToLong(), 0);
  EXPECT_EQ(Value(1.5).ToLong(), 2);
  EXPECT_EQ(Value(2.5).ToLong(), 2);
  EXPECT_EQ(Value(-2.5).ToLong(), -2);
  EXPECT_EQ(Value(u" 3.5 ").ToLong(), 4);
}

TEST_F(ValueTest, ToLongOfTruthsAndNothing) {
  EXPECT_EQ(Value(true).ToLong(), -1);
  EXPECT_EQ(Value(false).ToLong(), 0);
  EXPECT_EQ(Value().ToLong(), 0);
}

TEST_F(ValueTest, ToLongReachesBothEndsOf32Bits) {
  EXPECT_EQ(Value(u"2147483647").ToLong(), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(Value(u"-2147483648").ToLong(), std::numeric_limits<std::int32_t>::min());
}

TEST_F(ValueTest, ANumberOver32BitsRaises6) {
  EXPECT_EQ(Raised([] { Value(2147483648.0).ToLong(); }).Number, 6);
  EXPECT_EQ(Raised([] { Value(u"-2147483649").ToLong(); }).Number, 6);
  EXPECT_EQ(Raised([] { Value(std::numeric_limits<double>::quiet_NaN()).ToLong(); }).Number, 6);
}

TEST_F(ValueTest, ATextThatIsNoNumberRaises13) {
  EXPECT_EQ(Raised([] { Value(u"ten").ToLong(); }).Number, 13);
  EXPECT_EQ(Raised([] { Value(u"").ToLong(); }).Number, 13);
  EXPECT_EQ(Raised([] { Value(u"maybe").ToBoolean(); }).Number, 13);
}

TEST_F(ValueTest, ToBooleanReadsTruthNumbersAndText) {
  EXPECT_TRUE(Value(true).ToBoolean());
  EXPECT_TRUE(Value(2).ToBoolean());
  EXPECT_TRUE(Value(0.5).ToBoolean());
  EXPECT_TRUE(Value(u"TRUE").ToBoolean());
  EXPECT_TRUE(Value(u"-1").ToBoolean());
  EXPECT_FALSE(Value(false).ToBoolean());
  EXPECT_FALSE(Value(0).ToBoolean());
  EXPECT_FALSE(Value(u"false").ToBoolean());
  EXPECT_FALSE(Value(u"0").ToBoolean());
  EXPECT_FALSE(Value().ToBoolean());
}

TEST_F(ValueTest, ConversionsOfTheWrongKindRaise13) {
  const Value object = New<NamedObject>();
  EXPECT_EQ(Raised([&] { object.ToString(); }).Number, 13);
  EXPECT_EQ(Raised([&] { object.ToLong(); }).Number, 13);
  EXPECT_EQ(Raised([&] { object.ToBoolean(); }).Number, 13);
  EXPECT_EQ(Raised([&] { object.ToArray(); }).Number, 13);
  EXPECT_EQ(Raised([&] { object.ToByteArray(); }).Number, 13);
  EXPECT_EQ(Raised([&] { object.ToObject<ICommand>(); }).Number, 13);
  EXPECT_EQ(Raised([] { Value(u"x").ToObject<IObject>(); }).Number, 13);
  EXPECT_EQ(Raised([] { Value(Value::NullType{}).ToString(); }).Number, 13);
}

TEST_F(ValueTest, ToObjectGivesTheInterfaceOrNothing) {
  const auto object = New<NamedObject>();
  EXPECT_EQ(Value(object).ToObject<NamedObject>().Get(), object.Get());
  EXPECT_FALSE(Value().ToObject<ICommand>());
  EXPECT_FALSE(Value(Ref<ICommand>()).ToObject<NamedObject>());
}

TEST_F(ValueTest, ArraysGiveTheirElements) {
  const Value array = Params{u"a", 2};
  ASSERT_EQ(array.ToArray().size(), 2U);
  EXPECT_EQ(array.ToArray()[1].ToLong(), 2);
  EXPECT_EQ(Value(ByteArray{7, 8}).ToByteArray(), (ByteArray{7, 8}));
  EXPECT_EQ(Value().ToByteArray(), ByteArray{});
}

class RefTest : public test::FrameworkTest {};

TEST_F(RefTest, ACallThroughAnUnsetReferenceRaises91) {
  const Ref<ICommand> unset;
  EXPECT_EQ(Raised([&] { unset->Execute(); }).Number, 91);
  EXPECT_EQ(Raised([&] { static_cast<void>(*unset); }).Number, 91);
  EXPECT_EQ(unset.Get(), nullptr);
}

TEST_F(RefTest, ACastOfNothingGivesNothing) { EXPECT_FALSE(Cast<ICommand>(Ref<IObject>())); }

TEST_F(RefTest, ACastToAMissingInterfaceRaises13) {
  const Ref<IObject> object = New<NamedObject>();
  EXPECT_EQ(Raised([&] { Cast<ICommand>(object); }).Number, 13);
}

TEST_F(RefTest, ACastSharesTheObject) {
  const Ref<IObject> object = New<NamedObject>();
  const auto same = Cast<NamedObject>(object);
  EXPECT_TRUE(IsSameObject(object, same));
  EXPECT_EQ(object.Shared().use_count(), 2);
}

TEST_F(RefTest, IdentityIsThatOfTheObjectNotOfTheInterface) {
  class Both final : public ICommand, public ISubscriber {
  public:
    StringView ClassName() const override { return u"Both"; }
    void Execute() override {}
    void Update(const Ref<IObject>&) override {}
  };
  const auto both = New<Both>();
  EXPECT_TRUE(IsSameObject(Ref<ICommand>(both), Ref<ISubscriber>(both)));
  EXPECT_FALSE(IsSameObject(Ref<ICommand>(both), Ref<ISubscriber>(New<Both>())));
  EXPECT_FALSE(IsSameObject(Ref<ICommand>(both), Ref<ISubscriber>()));
}

} // namespace
} // namespace portico
