#include "recordings/Recording.h"

#include "document/log/WholeLog.h"
#include "framework/text/text.h"
#include "recordings/RecordingReader.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace portico::recordings {

Recording ReadRecording(const std::string& path, const RecordingOptions& options) {
  simulator::ReplayBook book;
  RecordingReader reader(book, options.Session);
  LogFinding finding;
  try {
    finding = ReadWholeLog(path, reader);
  } catch (const RecordingReader::Refusal& refusal) {
    return {.Fault = refusal.Text};
  } catch (const simulator::ReplayBook::Full&) {
    return {.Fault = "it has more than " + std::to_string(simulator::ReplayBook::MostMessages) +
                     " instructions; replay a part of it"};
  } catch (const simulator::ByteStore::Failed&) {
    return {.Fault = "a temporary file for its answers cannot be written"};
  }
  if (!finding.Fault.empty() && !finding.IsTorn) return {.Fault = std::move(finding.Fault)};
  if (options.Session && *options.Session > reader.Sessions()) {
    return {.Fault = "it has no session " + std::to_string(*options.Session)};
  }
  return {std::make_unique<simulator::ReplayedInstrument>(std::move(book), options.Order, options.Seed),
          std::move(finding.Fault)};
}

simulator::ReplayMaker Recordings() {
  return [](const std::string& name) -> std::unique_ptr<simulator::Instrument> {
    const std::string path = ToUtf8(FromCodePage(name));
    std::error_code fault;
    const bool isThere = std::filesystem::exists(path, fault);
    // A pipe would hold the program until somebody writes.
    const bool isPlain = std::filesystem::is_regular_file(path, fault);
    Recording recording = !isThere || isPlain ? ReadRecording(path, {}) : Recording{.Fault = "it is no file"};
    if (recording.Instrument == nullptr) throw simulator::NoInstrument(name + ": " + recording.Fault);
    return std::move(recording.Instrument);
  };
}

} // namespace portico::recordings
