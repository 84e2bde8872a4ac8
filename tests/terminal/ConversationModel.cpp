#include "terminal/ConversationModel.h"

#include <algorithm>
#include <cctype>

namespace portico::test {
namespace {

const std::string LineEnd = "\r\n";

std::string WithoutLeadingBlanks(const std::string& text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

bool EndsInLineEnd(const std::string& text) {
  return text.size() >= 2 && text.compare(text.size() - 2, 2, LineEnd) == 0;
}

std::string Terminated(const std::string& text) { return EndsInLineEnd(text) ? text : text + LineEnd; }

/// A question mark outside quotes. Of the two kinds of quotes only the one that opened closes.
bool IsQuery(const std::string& text) {
  char quote = 0;
  for (const char c : text) {
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == '?') {
      return true;
    }
  }
  return false;
}

bool BeginsIgnoringCase(const std::string& line, const std::string& beginning) {
  const auto same = [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
  };
  return line.size() >= beginning.size() && std::equal(beginning.begin(), beginning.end(), line.begin(), same);
}

/// What is seen of a text that stands unescaped in rich text.
std::string Visible(const std::string& text) {
  std::string seen;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\r' || c == '\n' || c == '{' || c == '}') continue;
    if (c != '\\') {
      seen += c;
      continue;
    }
    const char next = text.at(++i);
    if (next == '\'') {
      seen += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else if (std::isalpha(static_cast<unsigned char>(next)) == 0) {
      seen += next;
    } else {
      while (i < text.size() && std::isalpha(static_cast<unsigned char>(text[i])) != 0) ++i;
      while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])) != 0) ++i;
      if (i < text.size() && text[i] != ' ') --i; // a blank is part of the word
    }
  }
  return seen;
}

class Model {
public:
  Model(const ModelOptions& options, int lastStamp) : m_options(options), m_stamp(lastStamp) {}

  Conversation Run(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) Take(WithoutLeadingBlanks(line));
    return std::move(m_conversation);
  }

private:
  void Take(const std::string& line) {
    const char first = line.empty() ? '\0' : line.front();
    if (first == '\xAE' || first == '\xA9') return;
    if (line.empty() || line.compare(0, 4, "REM ") == 0) {
      m_conversation.History.push_back({Look::Remark, Visible(line) + LineEnd});
      m_conversation.Printed += "# " + line + '\n';
    } else {
      Send(line);
    }
  }

  void Send(const std::string& line) {
    if (m_options.OPCPacing) WriteAndRead("*OPC?", line);
    if (m_options.PacingInterval > 0) Pace();
    WriteAndRead(line, line);
    if (m_options.ErrorChecking) WriteAndRead(m_options.ErrorCheckingCommand, line);
    Report(LineEnd, ""); // the end of the instruction
  }

  /// An interval runs from the start of one line to that of the next.
  void Pace() {
    m_now = std::max(m_now, m_paceEnd);
    m_paceEnd = m_now + m_options.PacingInterval;
  }

  void WriteAndRead(const std::string& text, const std::string& line) {
    Call("WriteInstrData(" + Session() + "," + text + "\r)");
    const std::int32_t status = m_instrument.Write(text);
    if (status != 0) Explain(status);
    Report(Terminated(text), BeginsIgnoringCase(line, text) ? "Instruction" : "AutomaticInstruction");
    if (m_options.AutoRead && IsQuery(text)) Read();
  }

  void Read() {
    Call("ReadInstrData(" + Session() + ",1048576)");
    const SampleInstrument::Answer answer = m_instrument.Read();
    if (answer.Status != 0) {
      Explain(answer.Status);
      Report(SampleInstrument::Message(answer.Status) + LineEnd, "Response");
    } else if (!answer.Bytes.empty()) {
      Report(Terminated(answer.Bytes), "Response");
    }
  }

  void Explain(std::int32_t status) { Call("error_message(" + Session() + "," + std::to_string(status) + ")"); }
  void Call(const std::string& text) { m_conversation.Calls.push_back(std::to_string(m_now) + " " + text); }
  std::string Session() const { return std::to_string(m_options.Session); }

  /// Makes two entities of it, one for the history and one for the log.
  void Report(const std::string& text, const std::string& type) {
    ModelEntity entity{type, text, ++m_stamp, 0};
    if (text != LineEnd) {
      Show(text, type);
      Print(text, type);
      entity.FragmentLength = std::string("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 " // before the text
                                          "\\par }\r\n")                            // and behind it
                                  .size() +
                              text.size();
    }
    m_conversation.Queue.push_back(entity);
    ++m_stamp;
    if (!type.empty()) m_conversation.Log.push_back({type, text, m_stamp, 0});
  }

  void Show(const std::string& text, const std::string& type) {
    Look look = Look::Instruction;
    if (type == "Response") {
      look = Look::Response;
      m_conversation.History.push_back({Look::Marker, "\xAE"});
    } else if (type == "AutomaticInstruction") {
      look = Look::AutomaticInstruction;
      m_conversation.History.push_back({Look::Marker, "\xA9"});
    }
    m_conversation.History.push_back({look, Visible(text) + LineEnd});
  }

  void Print(const std::string& text, const std::string& type) {
    const std::string mark = type == "Response" ? "< " : type == "Instruction" ? "> " : "* ";
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text.compare(i, 2, LineEnd) == 0) ++i;
      if (text[i] == '\n') {
        m_conversation.Printed += mark + line + '\n';
        line.clear();
      } else {
        line += text[i];
      }
    }
  }

  const ModelOptions m_options;
  SampleInstrument m_instrument;
  int m_stamp;
  int m_now = 0;
  int m_paceEnd = 0;
  Conversation m_conversation;
};

} // namespace

std::string Conversation::HistoryText() const {
  std::string text;
  for (const Passage& passage : History) text += passage.Text;
  return text;
}

Conversation ModelConversation(const std::vector<std::string>& lines, const ModelOptions& options, int lastStamp) {
  return Model(options, lastStamp).Run(lines);
}

} // namespace portico::test
