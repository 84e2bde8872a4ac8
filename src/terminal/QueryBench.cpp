#include "terminal/QueryBench.h"

#include "terminal/console/Diagnostic.h"
#include "timing/NearestRank.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <iomanip>
#include <system_error>
#include <utility>

namespace portico::terminal {
namespace {

constexpr std::size_t ReadBufferSize = 0x100000; // as the channel's
constexpr std::size_t MessageBufferSize = 256;

} // namespace

QueryBench::QueryBench(const RunOptions& options, IInstrumentDriver& driver, std::function<bool()> interrupted,
                       std::ostream& out, std::ostream& err, Clock now)
    : m_options(options),
      m_driver(driver),
      m_interrupted(std::move(interrupted)),
      m_out(out),
      m_err(err),
      m_now(std::move(now)),
      m_buffer(ReadBufferSize) {}

ExitStatus QueryBench::Run() {
  const std::string& csv = m_options.Bench->CsvFile;
  std::ofstream file;
  if (!csv.empty()) {
    file.open(csv, std::ios::binary);
    if (!file) {
      Fail("cannot write " + csv + ": " + std::generic_category().message(errno), ExitStatus::Usage);
      return m_status.Gravest();
    }
  }
  if (Open()) {
    Ask();
    Close();
    PrintFigures();
    SaveSamples(file);
    if (!csv.empty() && !file.flush()) Fail(csv + " is incomplete", ExitStatus::Internal);
  }
  return m_status.Gravest();
}

bool QueryBench::Open() {
  const std::int32_t status = m_driver.TVSCPI_init(ToCodePage(m_options.Instrument), 0, 0, m_session);
  if (status == 0) return true;
  Fail("cannot open " + ToUtf8(m_options.Instrument) + ": " + Message(status), ExitStatus::NotOpened);
  return false;
}

void QueryBench::Ask() {
  const std::string text = ToCodePage(m_options.Bench->Query) + '\r';
  m_samples.reserve(m_options.Bench->Queries);
  while (m_samples.size() < m_options.Bench->Queries && !m_interrupted()) {
    const auto start = m_now();
    if (!Exchange(text)) return;
    m_samples.push_back(std::chrono::duration<double, std::micro>(m_now() - start).count());
  }
}

/// False, and told, if there is no answer.
bool QueryBench::Exchange(const std::string& text) {
  std::int32_t count = 0;
  std::int32_t status = m_driver.TVSCPI_WriteInstrData(m_session, text);
  if (status == 0) {
    status =
        m_driver.TVSCPI_ReadInstrData(m_session, static_cast<std::int32_t>(m_buffer.size()), m_buffer.data(), count);
  }
  const bool tooLong = status == 0 && static_cast<std::size_t>(count) >= m_buffer.size();
  if (status == 0 && !tooLong) return true;
  const std::string what = tooLong ? "the answer is too long and was dropped" : Message(status);
  if (!m_interrupted()) {
    Fail("query " + std::to_string(m_samples.size() + 1) + ": " + what, ExitStatus::DriverFailure);
  }
  return false;
}

void QueryBench::Close() {
  if (m_interrupted()) {
    const std::string done = std::to_string(m_samples.size()) + " of " + std::to_string(m_options.Bench->Queries);
    Fail("interrupted after " + done + " queries", ExitStatus::Interrupted);
  }
  const std::int32_t status = m_driver.TVSCPI_close(m_session);
  if (status != 0) Fail(Message(status), ExitStatus::DriverFailure);
}

void QueryBench::PrintFigures() {
  if (m_samples.empty()) return;
  std::vector<double> sorted = m_samples;
  std::sort(sorted.begin(), sorted.end());
  const auto rank = [&sorted](std::size_t percent) { return sorted[timing::NearestRank(sorted.size(), percent) - 1]; };
  m_out << "queries  " << sorted.size() << '\n' << std::fixed << std::setprecision(1);
  m_out << "median   " << rank(50) << " us\n";
  m_out << "90 %     " << rank(90) << " us\n";
  m_out << "99 %     " << rank(99) << " us\n";
  m_out << "maximum  " << sorted.back() << " us" << std::endl;
  if (!m_out) Fail("standard output cannot be written", ExitStatus::Internal);
}

void QueryBench::SaveSamples(std::ostream& file) {
  file << "query,microseconds\n" << std::fixed << std::setprecision(3);
  for (std::size_t i = 0; i < m_samples.size(); ++i) file << i + 1 << ',' << m_samples[i] << '\n';
}

std::string QueryBench::Message(std::int32_t status) const {
  std::array<char, MessageBufferSize> buffer{};
  m_driver.TVSCPI_error_message(m_session, status, buffer.data());
  const std::string_view text(buffer.data());
  return ToUtf8(FromCodePage(text.substr(0, text.find('\n'))));
}

void QueryBench::Fail(const std::string& text, ExitStatus status) {
  m_err << Diagnostic(text) << std::endl;
  m_status.Note(status);
}

} // namespace portico::terminal
