#include "terminal/MixedLines.h"

#include "terminal/ConversationModel.h"

namespace portico::test {

std::string MixedLines::Instruction() {
  return OneOf({"*CLS", "*RST", "VOLT ", "CONF:VOLT:DC 10,", "OUTP ON;VOLT ", "trig:coun ", "SAMP:COUN "}) + Number();
}

std::string MixedLines::Query() {
  const std::string query = OneOf({"*IDN?", "MEAS:VOLT:DC? ", "meas:curr? ", "FETC?;*WAI ", "*IDN ? junk ", "?"});
  return query + Number();
}

std::string MixedLines::Quoted() {
  return OneOf({"DISP:TEXT \"WHY?\" ", "DISP:TEXT 'WHY?'; *IDN? ", "DISP 'it \"is\"?' ", "DISP \"open? ", "DISP 'open ",
                "DISP \"a\"?\"b\" ", "DISP 'a''?' ", "DISP \"it's?\"? "}) +
         Number();
}

std::string MixedLines::Remark() {
  return OneOf({"REM ", "REM what now? ", "REM REM ", "REM *RST ", "REM \xB5 \x80 ", "REM 'quoted ",
                "REM {in {braces}} ", "REM \xAE "}) +
         Number();
}

std::string MixedLines::NearlyRemark() {
  return OneOf({"REM", "REM\t", "Rem ", "rem ", "REMARK ", "REM\xA0", "VOLT 1 REM ", "'REM "}) + Number();
}

std::string MixedLines::Marked() {
  return OneOf({"\xAE", "\xAE+1.0 ", "\xAEREM ", "\xA9*OPC?", "\xA9:SYST:ERR?", "\xA9", "\xAE\xA9", "VOLT \xAE ",
                "*IDN? \xA9 "}) +
         Number();
}

std::string MixedLines::KnownWord() {
  return OneOf({"OPEN ", "CLOSE", "READ?", "READ ", "WRITE *RST ", "SET ", "GET ", "GETATTRIBUTE TERMCHAR ",
                "SETATTRIBUTE TERMCHAR CR ", "STOP ", "RUN "}) +
         Number();
}

std::string MixedLines::LikeAutomatic() {
  return OneOf({"*OPC?", "*opc?", "*Opc? ;", "*OPC? ", "*OPC ", ":SYST:ERR?", ":syst:err?", ":SYST:ERR? (@",
                ":SYST:ERR", " *OPC?", "SYST:ERR? "}) +
         (Once(2) ? std::string() : Number());
}

std::string MixedLines::RichText() {
  return OneOf({"TRAC {1,2} ", "TRAC {1,{2}}? ", "MMEM:LOAD \"C:\\temp\\labdata.csv\" ", "DISP \\\\host\\{x\\} ",
                "DISP \\'e9 ", "DISP \\zeta now ", "PATH C:\\temp"}) +
         Number();
}

std::string MixedLines::Foreign() {
  return OneOf({"DISP caf\xE9 ", "DISP \xC9T\xC9? ", "UNIT \xB5V ", "\x80 ", "DISP \x81\x8D\x8F\x90\x9D ",
                "DISP \xFF\xA0", "\xE9?", "\xAB\xBB "}) +
         Number();
}

std::string MixedLines::Failing() {
  return OneOf({"LOST ", "LOST? ", "FOO ", "FOO? ", "FOO;FOO ", "*OPC? LOST "}) + Number();
}

std::string MixedLines::Line() {
  std::string line;
  switch (m_random() % 24) {
  case 0:
    return OneOf({"", "", " ", "     "});
  case 1:
  case 2:
    line = Remark();
    break;
  case 3:
    line = NearlyRemark();
    break;
  case 4:
  case 5:
    line = Marked();
    break;
  case 6:
    line = KnownWord();
    break;
  case 7:
    line = LikeAutomatic();
    break;
  case 8:
    line = RichText();
    break;
  case 9:
    line = Foreign();
    break;
  case 10:
    line = Failing();
    break;
  case 11:
  case 12:
    line = Quoted();
    break;
  case 13:
  case 14:
  case 15:
  case 16:
  case 17:
  case 18:
    line = Query();
    break;
  case 19:
    line = OneOf({"\t", "\t*CLS", " \t ", "?", "\"", "a"});
    break;
  default:
    line = Instruction();
    break;
  }
  if (Once(5)) line.insert(0, m_random() % 5 + 1, ' ');
  if (Once(5)) line.append(m_random() % 5 + 1, ' ');
  if (Once(200)) line.append(2000 + m_random() % 2000, 'x');
  return line;
}

std::vector<std::string> MixedLines::Pasted() {
  std::vector<std::string> typed(m_random() % 8 + 1);
  for (std::string& line : typed) line = Once(4) ? Remark() : Once(2) ? Query() : Instruction();
  const std::string history = ModelConversation(typed, {}, 0).HistoryText();
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < history.size();) {
    const std::size_t end = history.find("\r\n", begin);
    lines.push_back(history.substr(begin, end - begin));
    begin = end + 2;
  }
  return lines;
}

std::vector<std::string> MixedLines::Make(std::size_t count) {
  std::vector<std::string> lines;
  while (lines.size() < count) {
    if (!Once(8)) {
      lines.push_back(Line());
      continue;
    }
    const std::vector<std::string> pasted = Pasted();
    lines.insert(lines.end(), pasted.begin(), pasted.end());
  }
  lines.resize(count);
  return lines;
}

} // namespace portico::test
