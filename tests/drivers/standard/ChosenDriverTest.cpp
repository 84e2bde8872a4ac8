#include "drivers/standard/ChosenDriver.h"

#include "drivers/SteadyClock.h"
#include "support/EnvironmentVariable.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

using namespace drivers;

class ChosenDriverTest : public testing::Test {
protected:
  ChosenDriver Choose(const char* library) {
    const EnvironmentVariable chosen("PORTICO_DRIVER", library);
    return ChooseDriver({m_clock});
  }
  static std::int32_t StatusOfOpening(const ChosenDriver& chosen, const std::string& name) {
    std::int32_t session = 0;
    return chosen.Driver->TVSCPI_init(name, 0, 0, session);
  }
  static std::string Message(const ChosenDriver& chosen, std::int32_t status) {
    std::string text(256, '\0');
    EXPECT_EQ(chosen.Driver->TVSCPI_error_message(0, status, text.data()), 0);
    return text.c_str();
  }

private:
  SteadyClock m_clock;
};

TEST_F(ChosenDriverTest, WithoutALibraryItIsTheStandardDriver) {
  for (const char* library : {static_cast<const char*>(nullptr), ""}) {
    const ChosenDriver chosen = Choose(library);
    EXPECT_EQ(chosen.Notice, "");
    EXPECT_EQ(StatusOfOpening(chosen, "SIM::dmm::INSTR"), 0);
    EXPECT_EQ(StatusOfOpening(chosen, "ECHO"), -1151002);
  }
}

TEST_F(ChosenDriverTest, ALibraryTakesEveryNameButThoseOfSimulatedInstruments) {
  const ChosenDriver chosen = Choose(ECHO_LIBRARY);
  EXPECT_EQ(chosen.Notice, "");
  EXPECT_EQ(StatusOfOpening(chosen, "ECHO"), 0);
  EXPECT_EQ(StatusOfOpening(chosen, "SIM::psu::INSTR"), 0);
  EXPECT_EQ(StatusOfOpening(chosen, "TCPIP::127.0.0.1::1::SOCKET"), -1);
  EXPECT_EQ(Message(chosen, -1), "There is only ECHO.\n");
  EXPECT_EQ(StatusOfOpening(chosen, "SIM::none::INSTR"), -1151004);
}

TEST_F(ChosenDriverTest, ALibraryThatCannotBeUsedIsToldAndOnlySimulatedInstrumentsOpen) {
  const ChosenDriver chosen = Choose(LACKING_LIBRARY);
  EXPECT_EQ(chosen.Notice, "The driver library that PORTICO_DRIVER names could not be loaded: " LACKING_LIBRARY
                           ": it lacks TVSCPI_close, TVSCPI_error_message. Until that is put right, only simulated "
                           "instruments open.");
  EXPECT_EQ(StatusOfOpening(chosen, "SIM::dmm::INSTR"), 0);
  EXPECT_EQ(StatusOfOpening(chosen, "TCPIP::127.0.0.1::1::SOCKET"), -1151019);
  EXPECT_EQ(Message(chosen, -1151019), "The driver library could not be loaded: " LACKING_LIBRARY
                                       ": it lacks TVSCPI_close, TVSCPI_error_message.\n");
}

} // namespace
} // namespace portico::test
