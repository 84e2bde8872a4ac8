#include "simulator/language/UnitSuffix.h"

#include <gtest/gtest.h>

namespace portico::simulator {
namespace {

TEST(UnitSuffix, TheUnitAloneIsOne) {
  EXPECT_EQ(UnitFactor(Quantity::Voltage, "V"), 1.0);
  EXPECT_EQ(UnitFactor(Quantity::Current, "A"), 1.0);
  EXPECT_EQ(UnitFactor(Quantity::Resistance, "OHM"), 1.0);
  EXPECT_EQ(UnitFactor(Quantity::Time, "S"), 1.0);
  EXPECT_EQ(UnitFactor(Quantity::Frequency, "HZ"), 1.0);
}

TEST(UnitSuffix, MultipliersStandBeforeTheUnit) {
  EXPECT_EQ(UnitFactor(Quantity::Voltage, "MV"), 1E-3);
  EXPECT_EQ(UnitFactor(Quantity::Voltage, "UV"), 1E-6);
  EXPECT_EQ(UnitFactor(Quantity::Voltage, "KV"), 1E3);
  EXPECT_EQ(UnitFactor(Quantity::Resistance, "KOHM"), 1E3);
  EXPECT_EQ(UnitFactor(Quantity::Resistance, "GOHM"), 1E9);
  EXPECT_EQ(UnitFactor(Quantity::Time, "NS"), 1E-9);
  EXPECT_EQ(UnitFactor(Quantity::Current, "PA"), 1E-12);
  EXPECT_EQ(UnitFactor(Quantity::Current, "MAA"), 1E6);
}

TEST(UnitSuffix, MIsMegaForOhmsAndHertz) {
  EXPECT_EQ(UnitFactor(Quantity::Resistance, "MOHM"), 1E6);
  EXPECT_EQ(UnitFactor(Quantity::Frequency, "MHZ"), 1E6);
  EXPECT_EQ(UnitFactor(Quantity::Resistance, "MAOHM"), 1E6);
}

TEST(UnitSuffix, CaseDoesNotMatter) {
  EXPECT_EQ(UnitFactor(Quantity::Voltage, "mv"), 1E-3);
  EXPECT_EQ(UnitFactor(Quantity::Frequency, "kHz"), 1E3);
}

TEST(UnitSuffix, AnotherQuantitysUnitIsNone) {
  EXPECT_FALSE(UnitFactor(Quantity::Voltage, "A"));
  EXPECT_FALSE(UnitFactor(Quantity::Time, "OHM"));
  EXPECT_FALSE(UnitFactor(Quantity::Voltage, "QV"));
  EXPECT_FALSE(UnitFactor(Quantity::Voltage, "M"));
  EXPECT_FALSE(UnitFactor(Quantity::None, "V"));
}

} // namespace
} // namespace portico::simulator
