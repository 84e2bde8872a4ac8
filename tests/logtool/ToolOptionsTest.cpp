#include "logtool/ToolOptions.h"

#include <gtest/gtest.h>

namespace portico::logtool {
namespace {

using Arguments = std::vector<const char*>;
using Files = std::vector<std::string>;

auto Parse(Arguments arguments) {
  arguments.insert(arguments.begin(), "portico-log");
  return ParseToolOptions(static_cast<int>(arguments.size()), arguments.data());
}

TEST(ToolOptionsTest, TakesACommandAndFiles) {
  const auto options = std::get<ToolOptions>(Parse({"show", "a.xml", "-"}));
  EXPECT_EQ(options.Wanted, Output::Show);
  EXPECT_EQ(options.Files, (Files{"a.xml", "-"}));
  EXPECT_EQ(std::get<ToolOptions>(Parse({"stats", "a.xml"})).Wanted, Output::Statistics);
  EXPECT_EQ(std::get<ToolOptions>(Parse({"errors", "a.xml"})).Wanted, Output::Errors);
}

TEST(ToolOptionsTest, TakesAFormatToExport) {
  EXPECT_EQ(std::get<ToolOptions>(Parse({"export", "--format", "csv", "a"})).Wanted, Output::Csv);
  EXPECT_EQ(std::get<ToolOptions>(Parse({"export", "a", "--format", "json"})).Wanted, Output::Json);
  EXPECT_EQ(std::get<ToolOptions>(Parse({"export", "--format=cmd", "a"})).Wanted, Output::Commands);
  EXPECT_EQ(std::get<UsageError>(Parse({"export", "--format", "xml", "a"})).Text, "--format xml: use csv, json or cmd");
}

TEST(ToolOptionsTest, TakesALogAndAQueryForATable) {
  const auto options = std::get<ToolOptions>(Parse({"table", "a.log", "MEAS? \xC2\xB5"}));
  EXPECT_EQ(options.Wanted, Output::Table);
  EXPECT_EQ(options.Files, Files{"a.log"});
  EXPECT_EQ(options.Query, u"MEAS? \u00B5");
  EXPECT_TRUE(std::holds_alternative<UsageError>(Parse({"table", "a.log"})));
  EXPECT_TRUE(std::holds_alternative<UsageError>(Parse({"table", "a.log", "A?", "B?"})));
}

TEST(ToolOptionsTest, TakesTwoLogsToCompare) {
  const auto options = std::get<ToolOptions>(Parse({"diff", "a", "-"}));
  EXPECT_EQ(options.Wanted, Output::Differences);
  EXPECT_EQ(options.Files, (Files{"a", "-"}));
  EXPECT_EQ(options.Tolerance, std::nullopt);
  EXPECT_EQ(std::get<ToolOptions>(Parse({"diff", "a", "b", "--tolerance", "1e-6"})).Tolerance, 1e-6);
  EXPECT_EQ(std::get<ToolOptions>(Parse({"diff", "--tolerance=0", "a", "b"})).Tolerance, 0);
  for (const Arguments& arguments :
       {Arguments{"diff", "a"}, Arguments{"diff", "a", "b", "c"}, Arguments{"diff", "a", "b", "--tolerance", "-1"},
        Arguments{"diff", "a", "b", "--tolerance", "x"}}) {
    EXPECT_TRUE(std::holds_alternative<UsageError>(Parse(arguments)));
  }
}

TEST(ToolOptionsTest, TakesAPartOfALog) {
  const auto options =
      std::get<ToolOptions>(Parse({"cut", "--session", "2", "--from", "2004-11-01", "--to=2004-11-01T16:42", "a.log"}));
  EXPECT_EQ(options.Wanted, Output::Part);
  EXPECT_EQ(options.Files, Files{"a.log"});
  EXPECT_EQ(options.Selection.Session, 2U);
  EXPECT_EQ(options.Selection.From, "2004-11-01");
  EXPECT_EQ(options.Selection.To, "2004-11-01T16:42");
  EXPECT_EQ(std::get<UsageError>(Parse({"cut", "--from", "today", "a"})).Text,
            "today: use a time as in 2004-11-01T16:42:09");
  EXPECT_EQ(std::get<UsageError>(Parse({"cut", "--to", "2004", "a"})).Text,
            "2004: use a time as in 2004-11-01T16:42:09");
  EXPECT_TRUE(std::holds_alternative<UsageError>(Parse({"cut", "--session", "0", "a"})));
  EXPECT_TRUE(std::holds_alternative<UsageError>(Parse({"cut", "a", "b"})));
}

TEST(ToolOptionsTest, TakesLogsToMerge) {
  const auto options = std::get<ToolOptions>(Parse({"merge", "a", "b", "-"}));
  EXPECT_EQ(options.Wanted, Output::Merged);
  EXPECT_EQ(options.Files, (Files{"a", "b", "-"}));
  EXPECT_EQ(options.Selection.Session, std::nullopt);
}

TEST(ToolOptionsTest, TakesALogAndAFolderForItsBlocks) {
  const auto options = std::get<ToolOptions>(Parse({"blocks", "a.log", "--to", "pictures", "--session=3"}));
  EXPECT_EQ(options.Wanted, Output::Blocks);
  EXPECT_EQ(options.Files, Files{"a.log"});
  EXPECT_EQ(options.Folder, "pictures");
  EXPECT_EQ(options.Selection.Session, 3U);
  EXPECT_TRUE(std::holds_alternative<UsageError>(Parse({"blocks", "a.log"})));
  EXPECT_TRUE(std::holds_alternative<UsageError>(Parse({"blocks", "--to", "pictures"})));
  EXPECT_TRUE(std::holds_alternative<UsageError>(Parse({"blocks", "a", "--to", "b", "--session", "0"})));
}

TEST(ToolOptionsTest, RefusesEverythingElse) {
  for (const Arguments& arguments : {Arguments{}, Arguments{"show"}, Arguments{"print", "a"}, Arguments{"export", "a"},
                                     Arguments{"stats", "--format", "csv", "a"}, Arguments{"show", "stats"}}) {
    const auto request = Parse(arguments);
    if (arguments == Arguments{"show", "stats"}) continue; // a file may be called so
    ASSERT_TRUE(std::holds_alternative<UsageError>(request));
    EXPECT_NE(std::get<UsageError>(request).Text.find("; see portico-log --help"), std::string::npos);
  }
}

TEST(ToolOptionsTest, HelpsAndTellsItsVersion) {
  EXPECT_NE(std::get<HelpText>(Parse({"--help"})).Text.find("export"), std::string::npos);
  EXPECT_EQ(std::get<HelpText>(Parse({"--version"})).Text, "portico-log 1.0.5\n");
}

} // namespace
} // namespace portico::logtool
