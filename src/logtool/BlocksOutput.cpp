#include "logtool/BlocksOutput.h"

#include "document/entities/IDataEntity.h"
#include "framework/text/Printable.h"
#include "numbers/Block.h"
#include "numbers/FileSuffix.h"
#include "system/PendingFile.h"

#include <filesystem>
#include <system_error>

namespace portico::logtool {
namespace {

std::string CannotWrite(const std::string& path, std::error_code error) {
  return path + " cannot be written: " + error.message();
}

std::error_code WriteFile(const std::string& path, std::string_view bytes) {
  system::PendingFile file(path);
  int error = file.Open();
  if (error == 0) error = file.Write(bytes);
  if (error == 0) error = file.Commit();
  return {error, std::generic_category()};
}

} // namespace

void BlocksOutput::OpenSession(const Session& /*session*/) {
  ++m_session;
  m_asked.clear();
}

std::string BlocksOutput::Add(const LogEntry& entry) {
  if (m_hasFailed || (m_wanted && *m_wanted != m_session)) return {};
  const String kind = FromUtf8(entry.Kind).Text;
  if (kind == DataTypeName::Instruction || kind == DataTypeName::AutomaticInstruction) {
    m_asked = WithoutLineEnd(entry.Text);
  }
  if (kind != DataTypeName::Response) return {};
  const StringView text = numbers::AnswerShownAs(entry.Text);
  const std::string answer = ToCodePage(text);
  std::string complaint;
  for (const scpi::Block& block : numbers::FindBlocks(answer)) {
    const auto start = static_cast<std::size_t>(block.Bytes.data() - answer.data());
    std::string fault;
    if (!block.Whole) {
      fault = "the block of " + entry.Stamp + " is torn";
    } else if (FindOutsideCodePage(text.substr(start, block.Bytes.size()))) {
      fault = "the block of " + entry.Stamp + " holds a character that stands for no byte";
    } else {
      fault = Write(block.Bytes);
    }
    if (complaint.empty()) complaint = fault;
    if (m_hasFailed) break;
  }
  return complaint;
}

std::string BlocksOutput::Write(std::string_view bytes) {
  ++m_blocks;
  const std::filesystem::path folder(m_folder);
  const std::string name = "block-" + std::to_string(m_blocks) + "." + std::string(numbers::FileSuffix(bytes));
  const std::string path = (folder / name).string();
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!error && std::filesystem::exists(std::filesystem::symlink_status(path, error))) {
    return path + " is there already and was left alone";
  }
  if (!error || error == std::errc::no_such_file_or_directory) error = WriteFile(path, bytes);
  if (error) {
    m_hasFailed = true;
    return CannotWrite(path, error);
  }
  m_out << Printable(FromUtf8(path).Text) << ": " << bytes.size() << " bytes";
  if (!m_asked.empty()) m_out << ", " << Printable(m_asked);
  m_out << '\n';
  return {};
}

} // namespace portico::logtool
