#include "contract/DriverBench.h"

namespace portico::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ExtendedDriverContract : public DriverContract {
protected:
  /// Of a long answer; a line takes no more before it is read.
  static std::size_t Long() {
    return GetParam().traits.recovery == TransportTraits::RecoveryKind::Listening ? 3'000 : 300'000;
  }
  static std::string LongHeader() { return Long() == 3'000 ? "#43000" : "#6300000"; }
};

INSTANTIATE_TEST_SUITE_P(
    Extended, ExtendedDriverContract,
    testing::ValuesIn(DriverBenchesWhere([](const TransportTraits& its) { return its.isExtended; })), BenchName);

TEST_P(ExtendedDriverContract, AfterAClearTheNextQueryGetsNoOldAnswer) {
  Start({{"SLOW?", Reaction::Silence()}, {"OLD?", Reaction::Answer("old\n")}, {"Q?", Reaction::Answer("1\n")}}, Brief);
  Ask("SLOW?");
  EXPECT_EQ(ReadBriefly().status, Number(DriverStatus::ReadTimeout));
  bench->Send("late\n");
  EXPECT_EQ(Driver().Clear(session), Success);
  EXPECT_EQ(Query("Q?"), "1");
  Ask("OLD?");
  EXPECT_EQ(Driver().Clear(session), Success) << "in step, too";
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_P(ExtendedDriverContract, AClearIsToldOnce) {
  Start({{"Q?", Reaction::Answer("1\n")}}, Brief);
  EXPECT_EQ(Driver().Clear(session), Success);
  const bool connectsAnew = GetParam().traits.recovery == TransportTraits::RecoveryKind::FreshConnection;
  EXPECT_THAT(connectsAnew ? bench->observer.names : bench->observer.cleared, ElementsAre(bench->CanonicalName()));
  EXPECT_THAT(connectsAnew ? bench->observer.cleared : bench->observer.names, IsEmpty());
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(bench->observer.names.size() + bench->observer.cleared.size(), 1U);
}

TEST_P(ExtendedDriverContract, AClearLeavesTheAttributes) {
  Start({{"Q?", Reaction::Answer("a\nb\r")}}, Brief);
  EXPECT_EQ(Driver().TVSCPI_SetAttributeViInt32(session, 0, TVSCPI_ATTR_TERMCHAR, 13), Success);
  EXPECT_EQ(Driver().Clear(session), Success);
  EXPECT_EQ(Query("Q?"), "a\nb");
}

TEST_P(ExtendedDriverContract, TheFrontPanelIsGivenBackWhereThereIsAWay) {
  Start({{"Q?", Reaction::Answer("1\n")}});
  const std::int32_t status = Driver().GoToLocal(session);
  if (GetParam().traits.returnsToLocal) {
    EXPECT_EQ(status, Success);
  } else {
    EXPECT_EQ(status, Number(DriverStatus::NotPossible));
    EXPECT_EQ(Message(status, session), "This cannot be done: " + bench->CanonicalName() + " has no means for it.\n");
  }
  EXPECT_EQ(Query("Q?"), "1") << "the session stays open";
  EXPECT_THAT(bench->observer.names, IsEmpty());
}

TEST_P(ExtendedDriverContract, AHandleThatIsNotOpenIsRefused) {
  Start({});
  for (const std::int32_t none : {0, session + 1}) {
    EXPECT_EQ(Driver().Clear(none), Number(DriverStatus::InvalidSession));
    EXPECT_EQ(Driver().GoToLocal(none), Number(DriverStatus::InvalidSession));
    EXPECT_EQ(Driver().CanReadInPieces(none), Number(DriverStatus::InvalidSession));
    EXPECT_EQ(Driver().ReadInPieces(none, [](std::string_view) { return true; }), Number(DriverStatus::InvalidSession));
  }
}

TEST_P(ExtendedDriverContract, ATimeoutHoldsFromTheNextCallOn) {
  Start({{"SLOW?", Reaction::Silence()}, {"Q?", Reaction::Answer("1\n")}});
  Ask("SLOW?");
  EXPECT_EQ(Driver().SetTimeout(Brief), Success);
  EXPECT_EQ(Read().status, Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(Driver().SetTimeout(Patient), Success);
  bench->Send("late\n");
  EXPECT_EQ(Read().bytes, std::string("late\0", 5));
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_P(ExtendedDriverContract, AnAnswerOfAnySizeIsReadInPieces) {
  std::string block;
  for (std::size_t i = 0; i < Long(); ++i) block += static_cast<char>(i % 251); // line feeds, too
  Start({{"BLOCK?", Reaction::Answer(LongHeader() + block + "\n")}, {"Q?", Reaction::Answer("1\n")}});
  EXPECT_EQ(Driver().CanReadInPieces(session), Success);
  Ask("BLOCK?");
  std::string data;
  EXPECT_EQ(Driver().ReadInPieces(session,
                                  [&](std::string_view piece) {
                                    EXPECT_LE(piece.size(), 65536U);
                                    data += piece;
                                    return true;
                                  }),
            Success);
  EXPECT_EQ(data, LongHeader() + block);
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_P(ExtendedDriverContract, AnAnswerThatIsGivenUpIsNotTakenForTheNext) {
  Start({{"LONG?", Reaction::Part(LongHeader() + std::string(Long() / 3, 'x'))}, {"Q?", Reaction::Answer("1\n")}});
  Ask("LONG?");
  const std::int32_t status = Driver().ReadInPieces(session, [](std::string_view) { return false; });
  EXPECT_EQ(status, Number(DriverStatus::GivenUp));
  EXPECT_EQ(Message(status, session), "The answer was given up: " + bench->CanonicalName() + ".\n");
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_P(ExtendedDriverContract, ATornAnswerIsNotTakenForTheNext) {
  Start({{"TORN?", Reaction::Part("#41000abc")}, {"Q?", Reaction::Answer("1\n")}}, Brief);
  Ask("TORN?");
  bench->Hurry();
  EXPECT_EQ(Driver().ReadInPieces(session, [](std::string_view) { return true; }), Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(Query("Q?"), "1");
}

class PlainDriverContract : public DriverContract {};

INSTANTIATE_TEST_SUITE_P(
    Plain, PlainDriverContract,
    testing::ValuesIn(DriverBenchesWhere([](const TransportTraits& its) { return !its.isExtended; })), BenchName);

TEST_P(PlainDriverContract, WhatTheDriverCannotIsRefusedInWords) {
  Start({{"Q?", Reaction::Answer("1\n")}});
  const std::string refusal = "This cannot be done: the driver library has no function for it.\n";
  for (const std::int32_t status :
       {Driver().Clear(session), Driver().GoToLocal(session), Driver().SetTimeout(Brief),
        Driver().CanReadInPieces(session), Driver().ReadInPieces(session, [](std::string_view) { return true; })}) {
    EXPECT_EQ(status, Number(DriverStatus::NotPossible));
    EXPECT_EQ(Message(status, session), refusal);
  }
  EXPECT_EQ(Query("Q?"), "1");
}

} // namespace
} // namespace portico::test
