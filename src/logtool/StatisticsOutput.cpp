#include "logtool/StatisticsOutput.h"

#include "document/log/LogStamps.h"
#include "framework/text/Printable.h"

#include <array>
#include <chrono>
#include <iomanip>

namespace portico::logtool {

std::optional<std::int64_t> SecondsOf(std::string_view stamp) {
  stamp = stamp.substr(0, StampSecondForm.size());
  if (!HasStampForm(stamp, StampSecondForm)) return {};
  std::array<int, 6> fields{};
  std::size_t field = 0;
  for (std::size_t i = 0; i < stamp.size(); ++i) {
    if (StampSecondForm[i] != 'd') {
      ++field;
    } else {
      fields[field] = fields[field] * 10 + (stamp[i] - '0');
    }
  }
  const std::chrono::year_month_day date{std::chrono::year{fields[0]},
                                         std::chrono::month{static_cast<unsigned>(fields[1])},
                                         std::chrono::day{static_cast<unsigned>(fields[2])}};
  if (!date.ok()) return {};
  const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
  return ((days * 24 + fields[3]) * 60 + fields[4]) * 60 + fields[5];
}

void StatisticsOutput::Counts::Add(const Counts& more) {
  Sessions += more.Sessions;
  NotClosed += more.NotClosed;
  Instructions += more.Instructions;
  Automatic += more.Automatic;
  Responses += more.Responses;
  Others += more.Others;
  Errors += more.Errors;
  Seconds += more.Seconds;
}

void StatisticsOutput::BeginFile(const std::string& name) {
  m_name = name;
  m_file = {};
  ++m_files;
}

void StatisticsOutput::OpenSession(const Session& session) {
  ++m_file.Sessions;
  if (!session.CloseStamp) ++m_file.NotClosed;
  m_inSession = true;
  m_errors.Begin();
  m_first = session.OpenStamp;
  m_last = session.CloseStamp.value_or("");
}

std::string StatisticsOutput::Add(const LogEntry& entry) {
  if (m_errors.Add(FromUtf8(entry.Kind).Text, entry.Text) == LogErrors::Finding::ErrorAnswer) ++m_file.Errors;
  if (entry.Kind == "Instruction") {
    ++m_file.Instructions;
  } else if (entry.Kind == "AutomaticInstruction") {
    ++m_file.Automatic;
  } else if (entry.Kind == "Response") {
    ++m_file.Responses;
  } else {
    ++m_file.Others;
  }
  if (!SecondsOf(m_last) || SecondsOf(m_last) < SecondsOf(entry.Stamp)) m_last = entry.Stamp;
  return {};
}

void StatisticsOutput::EndSession() {
  const auto first = SecondsOf(m_first);
  const auto last = SecondsOf(m_last);
  if (m_inSession && first && last && *last > *first) m_file.Seconds += *last - *first;
  m_inSession = false;
}

void StatisticsOutput::EndFile() {
  EndSession();
  Print(Printable(FromUtf8(m_name).Text), m_file);
  m_all.Add(m_file);
}

void StatisticsOutput::End() {
  if (m_files > 1) Print("all files", m_all);
}

void StatisticsOutput::Print(const std::string& name, const Counts& counts) {
  const auto line = [this](const char* what) -> std::ostream& {
    return m_out << "  " << std::left << std::setw(23) << what;
  };
  m_out << name << '\n';
  line("sessions") << counts.Sessions << '\n';
  line("sessions not closed") << counts.NotClosed << '\n';
  line("duration") << std::right << std::setfill('0') << counts.Seconds / 3600 << ':' << std::setw(2)
                   << counts.Seconds / 60 % 60 << ':' << std::setw(2) << counts.Seconds % 60 << std::setfill(' ')
                   << '\n';
  line("instructions") << counts.Instructions << '\n';
  line("automatic instructions") << counts.Automatic << '\n';
  line("responses") << counts.Responses << '\n';
  line("others") << counts.Others << '\n';
  line("error answers") << counts.Errors << '\n';
}

} // namespace portico::logtool
