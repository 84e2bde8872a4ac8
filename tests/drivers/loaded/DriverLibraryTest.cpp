#include "drivers/loaded/DriverLibrary.h"

#include "support/Files.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

using namespace drivers;

std::string ErrorOf(const std::string& name) {
  const auto library = LoadDriverLibrary(name);
  const auto* error = std::get_if<DriverLibraryError>(&library);
  return error == nullptr ? "" : error->Text;
}

TEST(DriverLibrary, ItsFunctionsAreBoundByTheirNames) {
  const auto library = LoadDriverLibrary(ECHO_LIBRARY);
  ASSERT_TRUE(std::holds_alternative<DriverFunctions>(library)) << ErrorOf(ECHO_LIBRARY);
  const auto& functions = std::get<DriverFunctions>(library);
  std::int32_t session = 0;
  EXPECT_EQ(functions.Init("OTHER", 0, 0, &session), -1);
  EXPECT_EQ(functions.Init("ECHO", 0, 0, &session), 0);
  EXPECT_EQ(functions.WriteInstrData(1, "*IDN?\r"), 0);
  std::string buffer(16, '~');
  std::int32_t count = 0;
  EXPECT_EQ(functions.ReadInstrData(1, 16, buffer.data(), &count), 0);
  EXPECT_EQ(buffer.substr(0, 7), std::string("*IDN?\r\0", 7));
  EXPECT_EQ(functions.SetAttributeViInt32(1, 0, 1150007, 13), 0);
  EXPECT_EQ(functions.GetAttributeViInt32(1, 0, 1150007, &count), 0);
  EXPECT_EQ(count, 13);
  EXPECT_EQ(functions.SetAttributeViString(1, 0, 1150002, "E?"), 0);
  EXPECT_EQ(functions.GetAttributeViString(1, 0, 1150002, 16, buffer.data()), 0);
  EXPECT_STREQ(buffer.c_str(), "E?");
  buffer.resize(256);
  EXPECT_EQ(functions.ErrorMessage(0, -1, buffer.data()), 0);
  EXPECT_STREQ(buffer.c_str(), "There is only ECHO.\n");
  EXPECT_EQ(functions.Close(2), -2);
}

TEST(DriverLibrary, AFileThatIsMissingIsNamed) {
  EXPECT_EQ(ErrorOf("/no/such/driver.so"),
            "/no/such/driver.so: cannot open shared object file: No such file or directory");
  EXPECT_TRUE(ErrorOf("no-such-driver.so").starts_with("no-such-driver.so: ")) << ErrorOf("no-such-driver.so");
}

TEST(DriverLibrary, AFileThatIsNoLibraryIsNamed) {
  const TemporaryFolder folder;
  folder.Write("driver.so", "not a library");
  EXPECT_EQ(ErrorOf(folder.At("driver.so")), folder.At("driver.so") + ": file too short");
}

TEST(DriverLibrary, EveryFunctionThatIsMissingIsNamed) {
  EXPECT_EQ(ErrorOf(LACKING_LIBRARY), LACKING_LIBRARY ": it lacks TVSCPI_close, TVSCPI_error_message");
}

} // namespace
} // namespace portico::test
