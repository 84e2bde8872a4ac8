#pragma once

#include "platform/IInstrumentDriver.h"
#include "terminal/RunOptions.h"
#include "terminal/RunStatus.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace portico::terminal {

/// Measures what a query takes at the driver's seam, its write and its read, without anything of the program above it.
class QueryBench {
public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  /// `options` must ask for it. It stops in front of the next query once `interrupted` says so. Figures go to `out`,
  /// diagnostics to `err`. All must outlive it.
  QueryBench(const RunOptions& options, IInstrumentDriver& driver, std::function<bool()> interrupted, std::ostream& out,
             std::ostream& err, Clock now = std::chrono::steady_clock::now);

  /// Opens the instrument, asks, closes it, and prints median, 90th and 99th percentile and maximum of the queries that
  /// were answered, up to the first that was not.
  ExitStatus Run();

private:
  bool Open();
  void Ask();
  bool Exchange(const std::string& text);
  void Close();
  void PrintFigures();
  void SaveSamples(std::ostream& file);
  std::string Message(std::int32_t status) const;
  void Fail(const std::string& text, ExitStatus status);

  const RunOptions& m_options;
  IInstrumentDriver& m_driver;
  const std::function<bool()> m_interrupted;
  std::ostream& m_out;
  std::ostream& m_err;
  const Clock m_now;

  std::int32_t m_session = 0;
  std::vector<char> m_buffer;
  std::vector<double> m_samples; ///< microseconds, in the order of the queries
  RunStatus m_status;
};

} // namespace portico::terminal
