#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"

#include "support/ErrorReports.h"
#include "support/fixtures/FrameworkTest.h"

#include <new>
#include <stdexcept>
#include <typeinfo>
#include <utility>

namespace portico {
namespace {

using test::CallStack;
using test::FirstDescription;
using test::Hex;

class HuntERRTailsTest : public test::FrameworkTest {};

void Fail(std::int32_t number = 17, StringView description = u"No beam.") {
  HuntERR::Check(false, number, description);
}

template <class Action>
void Inner(Action action) try {
  action();
} catch (...) {
  PassOn(u"Inner.Do(Action)");
}

template <class Action>
void Outer(Action action) try {
  Inner(action);
} catch (...) {
  PassOn(u"Outer.Do(Action)");
}

template <class Action>
void Top(Action action) try {
  Outer(action);
} catch (...) {
  StopHere(u"Top.Do(Action)");
}

const std::vector<String> ThreeCalls = {u"Inner.Do(Action)", u"Outer.Do(Action)", u"Top.Do(Action)"};

TEST_F(HuntERRTailsTest, AnErrorClimbsToTheTailThatStopsIt) {
  Top([] { Fail(); });
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(FirstDescription(HuntERR::ErrDescription()), u"No beam.");
  EXPECT_EQ(CallStack(HuntERR::ErrDescription()), ThreeCalls);
}

TEST_F(HuntERRTailsTest, TailsShowTheValuesOfTheCall) {
  try {
    Fail();
  } catch (...) {
    StopHere(u"C.M(Name,Count)", {u"Bench", 3});
  }
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), (std::vector<String>{u"C.M(Name='Bench', Count=3)"}));
}

TEST_F(HuntERRTailsTest, AnExpectedErrorPassesThemWithItsOwnDescription) {
  Top([] { Fail(Hex(0x80041100), u"The plain description."); });
  EXPECT_EQ(HuntERR::ErrNumber(), Hex(0x80041100));
  EXPECT_EQ(HuntERR::ErrDescription(), u"The plain description.");
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(HuntERRTailsTest, TheReportNamesTheErrorThatWasRaisedLast) {
  Top([] { Fail(); });
  Top([] { Fail(53, u"Paste-from file does not exist."); });
  EXPECT_EQ(HuntERR::ErrNumber(), 53);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"Paste-from file does not exist.");
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), ThreeCalls);
}

TEST_F(HuntERRTailsTest, AHandledErrorOnTheWayDoesNotDisturbALaterOne) {
  Top([] {
    Top([] { Fail(5, u"Handled."); });
    Fail(17, u"Passed on.");
  });
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"Passed on.");
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), ThreeCalls);
}

struct FailsWhenDestroyed {
  ~FailsWhenDestroyed() {
    try {
      Fail(5, u"From the destructor.");
    } catch (...) {
      SwallowInDestructor(u"FailsWhenDestroyed.Class_Terminate");
    }
  }
};

TEST_F(HuntERRTailsTest, ADestructorThatFailsDuringUnwindingDoesNotDisturbThePassingError) {
  Top([] {
    const FailsWhenDestroyed local;
    Fail();
  });
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"No beam.");
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), ThreeCalls);
}

TEST_F(HuntERRTailsTest, ADestructorsTailRecordsAndSwallows) {
  EXPECT_NO_THROW(FailsWhenDestroyed());
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"From the destructor.");
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), (std::vector<String>{u"FailsWhenDestroyed.Class_Terminate()"}));
}

class FailsWhenMade {
public:
  explicit FailsWhenMade(std::int32_t number) try { Fail(number); } catch (...) {
    FailConstruction(u"FailsWhenMade.Class_Initialize");
  }
};

TEST_F(HuntERRTailsTest, AConstructorFailsWithNumber0AndAHeldCopy) {
  try {
    const FailsWhenMade object(17);
    FAIL() << "The constructor did not fail.";
  } catch (const Error& error) {
    EXPECT_EQ(error.Record().Number, 0);
    EXPECT_EQ(error.Record().Description.Text(), u"");
    ASSERT_NE(error.Held(), nullptr);
    EXPECT_EQ(error.Held()->Number, 17);
    EXPECT_EQ(error.Held()->Source, u"HuntERR.ErrorIn");
  }
}

TEST_F(HuntERRTailsTest, TheCreatorsTailGoesOnWithTheConstructorsError) {
  Top([] { FailsWhenMade(17); });
  const String report = HuntERR::ErrReport();
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(FirstDescription(report), u"No beam.");
  EXPECT_EQ(CallStack(report), (std::vector<String>{u"FailsWhenMade.Class_Initialize()", u"Inner.Do(Action)",
                                                    u"Outer.Do(Action)", u"Top.Do(Action)"}));
  EXPECT_EQ(report.find(u"  Time='"), report.rfind(u"  Time='"));
}

TEST_F(HuntERRTailsTest, ADestructorThatFailsDoesNotDisturbAHeldCopy) {
  Top([] {
    const FailsWhenDestroyed local;
    FailsWhenMade(17);
  });
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"No beam.");
}

TEST_F(HuntERRTailsTest, AnExpectedErrorOutOfAConstructorKeepsItsDescription) {
  Top([] { FailsWhenMade(Hex(0x80041100)); });
  EXPECT_EQ(HuntERR::ErrNumber(), Hex(0x80041100));
  EXPECT_EQ(HuntERR::ErrDescription(), u"No beam.");
}

TEST_F(HuntERRTailsTest, AHeldCopyIsForgottenWithTheErrorThatCarriedIt) {
  try {
    FailsWhenMade(17);
  } catch (const Error&) { // no tail: the copy is still held
  }
  Top([] { Fail(53, u"Another."); });
  EXPECT_EQ(HuntERR::ErrNumber(), 53);
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"Another.");
}

TEST_F(HuntERRTailsTest, NumberZeroWithoutAHeldCopyCountsAsLostInformation) {
  Top([] { HuntERR::Raise(0, u"Tester", u"Nothing."); });
  EXPECT_EQ(HuntERR::ErrNumber(), Hex(0x8004144E));
}

class HasAMemberThatFails {
public:
  HasAMemberThatFails() try : m_member(17) {
  } catch (...) {
    FailConstruction(u"HasAMemberThatFails.Class_Initialize");
  }

private:
  FailsWhenMade m_member;
};

TEST_F(HuntERRTailsTest, ConstructorsNest) {
  Top([] { HasAMemberThatFails(); });
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(CallStack(HuntERR::ErrReport()),
            (std::vector<String>{u"FailsWhenMade.Class_Initialize()", u"HasAMemberThatFails.Class_Initialize()",
                                 u"Inner.Do(Action)", u"Outer.Do(Action)", u"Top.Do(Action)"}));
}

TEST_F(HuntERRTailsTest, RecordHereRecordsWhatStopHereWould) {
  try {
    HuntERR::Raise(17, u"Tester", u"No beam.");
  } catch (...) {
    StopHere(u"C.M(Name)", {u"a"});
  }
  const String stopped = HuntERR::ErrReport();
  HuntERR::Reset();
  RecordHere({17, u"Tester", String(u"No beam."), {}, 0, 0, 0}, u"C.M(Name)", {u"a"});
  EXPECT_EQ(HuntERR::ErrReport(), stopped);
  EXPECT_EQ(HuntERR::ErrNumber(), 17);
  EXPECT_EQ(HuntERR::ErrSource(), u"HuntERR.ErrorIn");
}

TEST_F(HuntERRTailsTest, RecordStandardRecordsWhatRaisingAndStoppingWould) {
  try {
    HuntERR::RaiseStandard(5);
  } catch (...) {
    StopHere(u"C.M(Name)", {u"a"});
  }
  const ErrorRecord stopped = HuntERR::Err();
  HuntERR::Reset();
  HuntERR::RecordStandard(5, u"C.M(Name)", u"a");
  EXPECT_EQ(HuntERR::ErrReport(), stopped.Description.Text());
  EXPECT_EQ(HuntERR::ErrNumber(), 5);
  EXPECT_EQ(HuntERR::ErrSource(), u"HuntERR.ErrorIn");
  EXPECT_EQ(HuntERR::Err().Number, stopped.Number);
  EXPECT_EQ(HuntERR::Err().Source, stopped.Source);
}

TEST_F(HuntERRTailsTest, RecordStandardTellsTheTimeAtWhichItWasCalled) {
  HuntERR::RecordStandard(5, u"C.M(Name)", u"a");
  Environment.Now = test::FakeErrorEnvironment::At(2031, 12, 24, 23, 59, 58);
  EXPECT_NE(HuntERR::ErrReport().find(u"Time='02/09/04 08:05:03'"), String::npos) << ToUtf8(HuntERR::ErrReport());
}

TEST_F(HuntERRTailsTest, OfSeveralRecordedErrorsTheLastStands) {
  HuntERR::RecordStandard(5, u"C.M(Name)", u"a");
  HuntERR::RecordStandard(9, u"C.N(Name)", u"b");
  EXPECT_EQ(HuntERR::ErrNumber(), 9);
  EXPECT_EQ(test::Labels(HuntERR::ErrReport()), std::vector<String>{u"C.N(Name)"});
}

TEST_F(HuntERRTailsTest, RecordStandardTakesCollectedTextAlong) {
  HuntERR::Check(false, 0, u"a hint");
  HuntERR::RecordStandard(5, u"C.M(Name)", u"a");
  EXPECT_NE(HuntERR::ErrReport().find(u"a hint"), String::npos);
  HuntERR::Check(false, 0, u"another");
  HuntERR::RecordStandard(5, u"C.M(Name)", u"a");
  HuntERR::RecordStandard(9, u"C.N(Name)", u"b");
  EXPECT_EQ(HuntERR::ErrReport().find(u"another"), String::npos); // the first one took it
}

TEST_F(HuntERRTailsTest, QuitPassesEveryTailWithoutAReport) {
  EXPECT_THROW(Top([] { throw Quit{}; }), Quit);
  EXPECT_EQ(HuntERR::ErrNumber(), 0);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(HuntERRTailsTest, QuitPassesAConstructorsTail) {
  struct Quits {
    Quits() try { throw Quit{}; } catch (...) {
      FailConstruction(u"Quits.Class_Initialize");
    }
  };
  EXPECT_THROW(Quits(), Quit);
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

TEST_F(HuntERRTailsTest, QuitEndsInADestructorsTail) {
  try {
    throw Quit{};
  } catch (...) {
    SwallowInDestructor(u"C.Class_Terminate");
  }
  EXPECT_EQ(HuntERR::ErrReport(), u"");
}

template <class Exception>
std::int32_t NumberOf(Exception exception) {
  Top([&] { throw exception; });
  return HuntERR::ErrNumber();
}

TEST_F(HuntERRTailsTest, ExceptionsOfTheStandardLibraryCountAsStandardNumbers) {
  EXPECT_EQ(NumberOf(std::bad_cast()), 13);
  EXPECT_EQ(NumberOf(std::out_of_range("index")), 9);
  EXPECT_EQ(NumberOf(std::bad_alloc()), 7);
  EXPECT_EQ(NumberOf(std::length_error("size")), 7);
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), ThreeCalls);
}

TEST_F(HuntERRTailsTest, AnyOtherExceptionIsTheGeneralErrorWithItsOwnText) {
  EXPECT_EQ(NumberOf(std::runtime_error("5 \xC2\xB5V")), Hex(0x8004144E));
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"5 \u00B5V");
}

TEST_F(HuntERRTailsTest, AThrowOfAForeignTypeIsTheGeneralError) {
  Top([] { Fail(); }); // which must not be taken for it
  EXPECT_EQ(NumberOf(42), Hex(0x8004144E));
  EXPECT_EQ(FirstDescription(HuntERR::ErrReport()), u"ErrorIn: Error information was lost. To fix: call ErrPreserve "
                                                    u"before doing anything in error handler.");
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), ThreeCalls);
}

TEST_F(HuntERRTailsTest, AThrowOfAForeignTypeIsRecordedByADestructorsTail) {
  try {
    throw "text";
  } catch (...) {
    SwallowInDestructor(u"C.Class_Terminate");
  }
  EXPECT_EQ(HuntERR::ErrNumber(), Hex(0x8004144E));
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), (std::vector<String>{u"C.Class_Terminate()"}));
}

TEST_F(HuntERRTailsTest, AThrowOfAForeignTypeFailsAConstructorAsAnyErrorDoes) {
  struct Foreign {
    Foreign() try { throw 42; } catch (...) {
      FailConstruction(u"Foreign.Class_Initialize");
    }
  };
  Top([] { Foreign(); });
  EXPECT_EQ(HuntERR::ErrNumber(), Hex(0x8004144E));
  EXPECT_EQ(CallStack(HuntERR::ErrReport()).front(), u"Foreign.Class_Initialize()");
}

TEST(ErrorNumbers, StandWhereTheyBelong) {
  EXPECT_EQ(ErrorNumber::InvalidArgument, 5);
  EXPECT_EQ(ErrorNumber::BadSubscript, 9);
  EXPECT_EQ(ErrorNumber::DivisionByZero, 11);
  EXPECT_EQ(ErrorNumber::TypeMismatch, 13);
  EXPECT_EQ(ErrorNumber::CannotCarryOut, 17);
  EXPECT_EQ(ErrorNumber::InternalState, 51);
  EXPECT_EQ(ErrorNumber::FileNotFound, 53);
  EXPECT_EQ(ErrorNumber::MissingObject, 91);
  EXPECT_EQ(ErrorNumber::BadFileFormat, 321);
  EXPECT_EQ(ErrorNumber::BadPropertyValue, 380);
  EXPECT_EQ(ErrorNumber::BadIndex, 381);
  EXPECT_EQ(ErrorNumber::ObjectRequired, 424);
  EXPECT_EQ(ErrorNumber::NotImplemented, 445);
  EXPECT_EQ(ErrorNumber::WrongParameterCount, 450);
  EXPECT_EQ(ErrorNumber::DuplicateKey, 457);
  EXPECT_EQ(ErrorNumber::CannotCreate, 31004);
  EXPECT_EQ(ErrorNumber::BadFile, 31037);
  EXPECT_EQ(ErrorNumber::ERRMAP_APP_FIRST, Hex(0x8004144E));
  EXPECT_EQ(ErrorNumber::NoHandler, Hex(0x80041450));
  EXPECT_EQ(ErrorNumber::MissingText, Hex(0x80041451));
  EXPECT_EQ(ErrorNumber::SendNextInstruction, Hex(0x80041453));
  EXPECT_EQ(ErrorNumber::InstructionComplete, Hex(0x80041454));
  EXPECT_EQ(ErrorNumber::Syntax, Hex(0x80041459));
  EXPECT_EQ(ErrorNumber::MissingFunction, Hex(0x8004145A));
  EXPECT_EQ(ErrorNumber::MissingInstrumentName, Hex(0x8004145C));
  EXPECT_EQ(ErrorNumber::MissingAttributeName, Hex(0x8004145F));
  EXPECT_EQ(ErrorNumber::NotInitialized, Hex(0x80041460));
  EXPECT_EQ(ErrorNumber::OptionNotDefined, Hex(0x80041462));
}

TEST(ErrorNumbers, TheTextsOfAnObjectUsedTooEarly) {
  EXPECT_EQ(StringView(MethodBeforeInitialize), u"Method cannot be called before Initialize().");
  EXPECT_EQ(StringView(PropertyBeforeInitialize), u"Property cannot be accessed before Initialize().");
  EXPECT_EQ(StringView(PropertyNotValidBeforeInitialize), u"Property is not valid before Initialize().");
}

} // namespace
} // namespace portico
