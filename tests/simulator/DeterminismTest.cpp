#include "simulator/Session.h"

#include "simulator/status/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace portico::simulator {
namespace {

using test::Session;

std::string Transcript(std::string_view device, std::uint64_t seed) {
  Session session(device, seed);
  std::string all;
  for (const char* message : {"*IDN?", "READ?", "TRAC:DATA?", "SIM:GARB? 50", "VOLT 3;:OUTP ON;:MEAS:VOLT?",
                              "SING;:WAV:DATA?", "SYST:ERR:ALL?"}) {
    all += session.Ask(message) + '\n';
  }
  return all;
}

TEST(Determinism, TheSameSeedGivesTheSameAnswers) {
  for (const char* device : {"dmm", "psu", "scope"}) EXPECT_EQ(Transcript(device, 7), Transcript(device, 7)) << device;
}

TEST(Determinism, AnotherSeedGivesOthers) {
  for (const char* device : {"dmm", "psu", "scope"}) EXPECT_NE(Transcript(device, 7), Transcript(device, 8)) << device;
}

TEST(Random, IsTheKnownSequence) {
  Random random(1234567);
  EXPECT_EQ(random.Next(), 6457827717110365317U);
  EXPECT_EQ(random.Next(), 3203168211198807973U);
}

TEST(Random, KeepsItsBounds) {
  Random random(1);
  double sum = 0;
  for (int i = 0; i < 10000; ++i) {
    const double uniform = random.Uniform();
    EXPECT_GE(uniform, 0);
    EXPECT_LT(uniform, 1);
    const double noise = random.Noise();
    EXPECT_LE(std::abs(noise), 1);
    sum += noise;
  }
  EXPECT_NEAR(sum / 10000, 0, 0.05);
}

} // namespace
} // namespace portico::simulator
