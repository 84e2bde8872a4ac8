#include "framework/errors/HuntERR.h"

#include "support/ErrorReports.h"
#include "support/Golden.h"
#include "support/doubles/Objects.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico {
namespace {

using test::CallStack;
using test::Hex;
using test::NamedObject;
using test::Raised;

class ErrorReportTest : public test::FrameworkTest {
protected:
  /// The report of an error that is stopped in its first procedure.
  static String Report(ErrorRecord record, StringView label = u"C.M()", const Params& values = {}) {
    RecordHere(std::move(record), label, values);
    return HuntERR::ErrReport();
  }
  static String Report(StringView label, const Params& values = {}) { return Report(Failure(17), label, values); }

  static ErrorRecord Failure(std::int32_t number, StringView description = u"No beam.") {
    ErrorRecord record;
    record.Number = number;
    record.Source = u"HuntERR.Check";
    record.Description = String(description);
    return record;
  }

  /// The stack line and what stands behind it.
  static String Stack(const String& report) { return report.substr(report.find(u"  Call Stack: ")); }
  static String Padded(StringView line) { return String(line) + String(100 - line.size(), u'-') + u"\r\n"; }
  static String NumberLine(std::uint32_t number) {
    const String report = Report(Failure(Hex(number)));
    const auto start = report.find(u"  Number: ");
    return report.substr(start, report.find(u"\r\n", start) - start);
  }
};

TEST_F(ErrorReportTest, TheHeaderTellsWhatWhenWhereAndByWhom) {
  EXPECT_EQ(Report(Failure(Hex(0x80041450), u"This instruction processor cannot handle CONFIG."), u"C.M(A,B)"),
            u"This instruction processor cannot handle CONFIG. \r\n"
            u"  Time='02/09/04 08:05:03' App='portico:1.4.2' ADO-version='' Computer='BENCH-7' \r\n"
            u"  Method: C.M \r\n"
            u"  Number: -2147216304 = &H80041450 = vbObjectError + 5200 = ERRMAP_APP_FIRST + 2 \r\n"
            u"  Source: HuntERR.Check \r\n"
            u"  Description: This instruction processor cannot handle CONFIG.\r\n" +
                Padded(u"  Call Stack: C.M(A,B) "));
}

TEST_F(ErrorReportTest, NumbersAreShownWithTheirDistances) {
  EXPECT_EQ(NumberLine(5), u"  Number: 5 = &H5 = vbObjectError + 2147221509 = ERRMAP_APP_FIRST + 2147216311 ");
  EXPECT_EQ(NumberLine(0x80040001),
            u"  Number: -2147221503 = &H80040001 = vbObjectError + 1 = ERRMAP_APP_FIRST - 5197 ");
  EXPECT_EQ(NumberLine(0x80030000),
            u"  Number: -2147287040 = &H80030000 = vbObjectError - 65536 = ERRMAP_APP_FIRST - 70734 ");
}

TEST_F(ErrorReportTest, TheGeneralErrorIsNamed) {
  EXPECT_EQ(NumberLine(0x8004144E), u"  Number: -2147216306 = &H8004144E = vbObjectError + 5198 = ERRMAP_APP_FIRST + 0 "
                                    u"= ERR_GENERAL");
}

TEST_F(ErrorReportTest, TimeIsMonthDayYearInTwoDigits) {
  Environment.Now = test::FakeErrorEnvironment::At(2031, 12, 24, 23, 59, 58);
  EXPECT_NE(Report(u"C.M()").find(u"  Time='12/24/31 23:59:58' "), String::npos);
}

TEST_F(ErrorReportTest, APercentSignInADescriptionPassesUnharmed) {
  const String report = Report(Failure(17, u"50% of %Time% at %nl%"));
  EXPECT_EQ(report.substr(0, 24), u"50% of %Time% at %nl% \r\n");
  EXPECT_NE(report.find(u"  Description: 50% of %Time% at %nl%\r\n"), String::npos);
}

TEST_F(ErrorReportTest, APercentSignInAnotherFieldPassesUnharmed) {
  Environment.Computer = u"%Descr%";
  EXPECT_NE(Report(u"C.M()").find(u"Computer='%Descr%'"), String::npos);
}

TEST_F(ErrorReportTest, ASystemErrorAddsALineWithItsMessageInOneLine) {
  Environment.SystemMessages[5] = u"Access\r\nis denied.\r\n";
  ErrorRecord record = Failure(17);
  record.LastDllError = 5;
  const String report = Report(record);
  EXPECT_NE(report.find(u"  Description: No beam.\r\n  API Error: (5) Accessis denied.\r\n  Call Stack: "),
            String::npos);
}

TEST_F(ErrorReportTest, SystemErrors0And203AddNoLine) {
  for (const std::uint32_t number : {0U, 203U}) {
    Environment.SystemMessages[number] = u"Nothing to tell.";
    ErrorRecord record = Failure(17);
    record.LastDllError = number;
    EXPECT_EQ(Report(record).find(u"API Error"), String::npos) << number;
  }
}

TEST_F(ErrorReportTest, TheStackLineIsPaddedTo100Characters) {
  EXPECT_EQ(Stack(Report(u"CDataFIFO.Enqueue(DataEntity)")), Padded(u"  Call Stack: CDataFIFO.Enqueue(DataEntity) "));
}

TEST_F(ErrorReportTest, AStackLineOf100CharactersGetsNoDashes) {
  const String label = u"C." + String(100 - 14 - 2 - 2 - 1, u'x') + u"()";
  EXPECT_EQ(Stack(Report(label)), u"  Call Stack: " + label + u" \r\n");
}

TEST_F(ErrorReportTest, AStackLineOf99CharactersGetsOneDash) {
  const String label = u"C." + String(99 - 14 - 2 - 2 - 1, u'x') + u"()";
  EXPECT_EQ(Stack(Report(label)), u"  Call Stack: " + label + u" -\r\n");
}

TEST_F(ErrorReportTest, AStackLineOf120CharactersIsNotCutAndGetsNoDashes) {
  const String label = u"C." + String(120 - 14 - 2 - 2 - 1, u'x') + u"()";
  EXPECT_EQ(Stack(Report(label)), u"  Call Stack: " + label + u" \r\n");
}

TEST_F(ErrorReportTest, ALabelWithoutBracketsIsShownWithEmptyOnes) {
  EXPECT_EQ(Stack(Report(u"CResponse.GetError")), Padded(u"  Call Stack: CResponse.GetError() "));
}

TEST_F(ErrorReportTest, AKnownLineNumberStandsBehindTheCall) {
  ErrorRecord record = Failure(17);
  record.Erl = 120;
  EXPECT_EQ(Stack(Report(record)), Padded(u"  Call Stack: C.M()  at Line 120 "));
}

TEST_F(ErrorReportTest, ALineNumberBelongsToTheDeepestProcedureOnly) {
  ErrorRecord record = Failure(17);
  record.Erl = 120;
  HuntERR::Load(Error(record));
  const ErrorRecord passed = Raised([] { HuntERR::ErrorIn(u"Inner.Do()", {}, 0x23); });
  EXPECT_EQ(Stack(Report(passed, u"Outer.Do()")),
            Padded(u"  Call Stack: Inner.Do()  at Line 120 ") + Padded(u"  Call Stack: Outer.Do() "));
}

TEST_F(ErrorReportTest, WithoutValuesTheParameterNamesStandAsWritten) {
  EXPECT_EQ(CallStack(Report(u"m.EventHandler(cmdName, Params)")),
            (std::vector<String>{u"m.EventHandler(cmdName, Params)"}));
}

TEST_F(ErrorReportTest, ValuesAreShownByNameInTheirTextForms) {
  const Params values = {
      u"text", -3, 2.5, Params{1}, Value(), Value::NullType{}, New<NamedObject>(u"CWriteCmd"), true, Ref<IObject>()};
  EXPECT_EQ(CallStack(Report(u"C.M(a,b,c,d,e,f,g,h,i)", values)),
            (std::vector<String>{u"C.M(a='text', b=-3, c=2.5, d={Array}, e={Empty}, f={Null}, g={CWriteCmd}, h={?}, "
                                 u"i={Null})"}));
}

TEST_F(ErrorReportTest, NamesAreSplitAtTheCommaAndKeepTheirBlanks) {
  EXPECT_EQ(CallStack(Report(u"C.M(A, B)", {1, 2})), (std::vector<String>{u"C.M(A=1,  B=2)"}));
}

TEST_F(ErrorReportTest, AValueWithoutANameStandsAlone) {
  EXPECT_EQ(CallStack(Report(u"C.M(A)", {1, u"x"})), (std::vector<String>{u"C.M(A=1, 'x')"}));
  EXPECT_EQ(CallStack(Report(u"C.M", {1})), (std::vector<String>{u"C.M(1)"}));
}

TEST_F(ErrorReportTest, ANameWithoutAValueIsLeftOut) {
  EXPECT_EQ(CallStack(Report(u"C.M(A,B)", {1})), (std::vector<String>{u"C.M(A=1)"}));
}

TEST_F(ErrorReportTest, AValueOf40CharactersStandsInTheCall) {
  const String text(40, u'x');
  EXPECT_EQ(CallStack(Report(u"C.M(A)", {text})), (std::vector<String>{u"C.M(A='" + text + u"')"}));
}

TEST_F(ErrorReportTest, AValueOf41CharactersStandsBehindTheStackLine) {
  const String text(41, u'x');
  EXPECT_EQ(Stack(Report(u"C.M(A,B)", {text, 1})),
            Padded(u"  Call Stack: C.M(A={Text}, B=1) ") + u"    Value Of A:\r\n" + text + u"\r\n");
}

TEST_F(ErrorReportTest, AValueWithALineBreakStandsBehindTheStackLine) {
  for (const StringView text : {u"a\r\nb", u"a\rb", u"a\nb"}) {
    EXPECT_EQ(Stack(Report(u"C.M(A)", {text})),
              Padded(u"  Call Stack: C.M(A={Text}) ") + u"    Value Of A:\r\n" + String(text) + u"\r\n");
  }
}

TEST_F(ErrorReportTest, LongValuesKeepTheOrderOfTheirParameters) {
  const String report = Stack(Report(u"C.M(A,B)", {String(50, u'a'), String(50, u'b')}));
  EXPECT_EQ(report, Padded(u"  Call Stack: C.M(A={Text}, B={Text}) ") + u"    Value Of A:\r\n" + String(50, u'a') +
                        u"\r\n    Value Of B:\r\n" + String(50, u'b') + u"\r\n");
}

TEST_F(ErrorReportTest, CollectedTextStandsInFrontOfLongValues) {
  HuntERR::Check(false, 0, u"Remark.");
  EXPECT_EQ(Stack(Report(u"C.M(A)", {u"a\nb"})),
            Padded(u"  Call Stack: C.M(A={Text}) ") + u"Remark.\r\n    Value Of A:\r\na\nb\r\n");
}

TEST_F(ErrorReportTest, AValueThatIsXmlGetsLineBreaks) {
  EXPECT_EQ(Stack(Report(u"C.M(A)", {u"<?xml version='1.0'?><a><b/></a>"})),
            Padded(u"  Call Stack: C.M(A={Text}) ") +
                u"    Value Of A:\r\n<?xml version='1.0'?>\r\n<a>\r\n<b/>\r\n</a>\r\n");
  EXPECT_EQ(Stack(Report(u"C.M(A)", {u"xml<a><b>"})),
            Padded(u"  Call Stack: C.M(A={Text}) ") + u"    Value Of A:\r\nxml<a>\r\n<b>\r\n");
}

TEST_F(ErrorReportTest, ShowsWhatWasCapturedAtTheFailure) {
  const auto object = New<NamedObject>(u"CBefore");
  RecordHere(Failure(17), u"C.M(Object)", {object});
  Environment.Now = test::FakeErrorEnvironment::At(2031, 12, 24, 23, 59, 58);
  object->Name = u"CAfter";
  const String report = HuntERR::ErrReport();
  EXPECT_NE(report.find(u"Time='02/09/04 08:05:03'"), String::npos);
  EXPECT_EQ(CallStack(report), (std::vector<String>{u"C.M(Object={CBefore})"}));
}

TEST_F(ErrorReportTest, AReportOutlivesTheObjectsItShows) {
  RecordHere(Failure(17), u"C.M(Object)", {New<NamedObject>(u"CGone")});
  EXPECT_EQ(CallStack(HuntERR::ErrReport()), (std::vector<String>{u"C.M(Object={CGone})"}));
}

void Write(const String& data) try {
  HuntERR::Check(data.size() < 10, 17, u"No session is currently open. 100% of 5 \u00B5V lost.");
} catch (...) {
  PassOn(u"CDriverSession.IChannel_WriteData(data)", {data});
}

void Send(const Ref<IObject>& instruction, const String& data) try { Write(data); } catch (...) {
  PassOn(u"CSCPIInstHandler.IInstProcessor_Send(Instruction,Lines)", {instruction, u"*CLS\r\n*IDN?"});
}

void RunLine(std::int32_t line) try {
  Send(New<NamedObject>(u"CInstContainer"), u"MEASure:VOLTage:DC? 10,0.001,(@101:110,201:210)");
} catch (...) {
  StopHere(u"frmMain.mnuRunStep_Click(Line,Again)", {line, 0.5});
}

void ReadFile(const String& name) try {
  ErrorRecord record;
  record.Number = Hex(0x8004144E);
  record.Source = u"Portico";
  record.Description = String(u"The file cannot be read.");
  record.LastDllError = 2;
  record.Erl = 40;
  HuntERR::Raise(record);
} catch (...) {
  PassOn(u"CLogStore.Load(FileName)", {name});
}

void OpenLog() try { ReadFile(u"bench.xml"); } catch (...) {
  StopHere(u"frmViewLog.Form_Load");
}

TEST_F(ErrorReportTest, TheLogOfTwoFailuresIsTheGoldenText) {
  Environment.SystemMessages[2] = u"The system cannot find the file specified.\r\n";
  RunLine(12);
  HuntERR::WriteErrorReport(u"SCPIComm.log");
  Environment.Now = test::FakeErrorEnvironment::At(2004, 2, 9, 17, 30, 0);
  OpenLog();
  HuntERR::WriteErrorReport(u"SCPIComm.log");
  std::string log;
  for (const auto& entry : Environment.Appended) log += ToUtf8(entry.Text);
  test::ExpectGolden("error-report.txt", log);
}

} // namespace
} // namespace portico
