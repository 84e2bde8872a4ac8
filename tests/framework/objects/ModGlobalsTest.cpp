#include "framework/objects/modGlobals.h"

#include "support/Allocation.h"
#include "support/ErrorReports.h"
#include "support/Files.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"

#include <filesystem>

namespace portico {
namespace {

using modGlobals::FileExists;
using modGlobals::ParamArrayCount;
using modGlobals::VarArray;
using test::Labels;
using test::NamedObject;
using test::Raised;

class ModGlobalsTest : public test::FrameworkTest {};

TEST_F(ModGlobalsTest, VarArrayKeepsItsArgumentsInOrder) {
  const auto object = New<NamedObject>();
  const Params array = VarArray(u"Write", 2, true, object, Value());
  ASSERT_EQ(array.size(), 5U);
  EXPECT_EQ(array[0].ToString(), u"Write");
  EXPECT_EQ(array[1].ToLong(), 2);
  EXPECT_TRUE(array[2].ToBoolean());
  EXPECT_TRUE(IsSameObject(array[3].ToObject<IObject>(), object));
  EXPECT_TRUE(array[4].IsEmpty());
}

TEST_F(ModGlobalsTest, VarArrayWithoutArgumentsHasLength0) { EXPECT_EQ(ParamArrayCount(VarArray()), 0); }

TEST_F(ModGlobalsTest, VarArrayOfAnArrayHoldsItAsOneValue) {
  const Params outer = VarArray(VarArray(1, 2, 3));
  ASSERT_EQ(ParamArrayCount(outer), 1);
  EXPECT_EQ(ParamArrayCount(outer[0].ToArray()), 3);
}

TEST_F(ModGlobalsTest, AFailureOfVarArrayStandsUnderItsLabel) {
  const ErrorRecord error = Raised([] {
    const test::FailingAllocation noMemory;
    VarArray(1, 2);
  });
  EXPECT_EQ(error.Number, 7);
  EXPECT_EQ(Labels(error), (std::vector<String>{u"modGlobals.VarArray(Params)"}));
}

TEST_F(ModGlobalsTest, ParamArrayCountIsTheNumberOfValues) {
  EXPECT_EQ(ParamArrayCount(VarArray(1)), 1);
  EXPECT_EQ(ParamArrayCount({1, u"b", Value()}), 3);
}

TEST_F(ModGlobalsTest, FileExistsForFilesOnly) {
  const test::TemporaryFolder folder;
  const auto file = folder.Path() / u"Me\u00DFreihe.xml";
  test::WriteFile(file, "x");
  EXPECT_TRUE(FileExists(file.u16string()));
  EXPECT_FALSE(FileExists(folder.Path().u16string()));
  std::filesystem::remove(file);
  EXPECT_FALSE(FileExists(file.u16string()));
}

TEST_F(ModGlobalsTest, NoFileExistsWhereTheFileSystemCannotTell) {
  EXPECT_FALSE(FileExists(u""));
  EXPECT_FALSE(FileExists(String(u"/") + String(5000, u'x')));
  EXPECT_FALSE(FileExists(String{u'/', 0xD800}));
}

TEST_F(ModGlobalsTest, XMLParserAvailableTellsTheFlag) {
  gXMLParserAvailable = true;
  EXPECT_TRUE(modGlobals::XMLParserAvailable());
  gXMLParserAvailable = false;
  EXPECT_FALSE(modGlobals::XMLParserAvailable());
}

} // namespace
} // namespace portico
