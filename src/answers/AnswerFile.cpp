#include "answers/AnswerFile.h"

#include <system_error>

namespace portico::answers {

bool AnswerFile::Open() { return Note(m_file.Open()); }

bool AnswerFile::Add(std::string_view piece) {
  m_done += piece.size();
  return Write(m_data.Take(piece));
}

bool AnswerFile::Write(std::string_view bytes) {
  if (!m_fault.empty()) return false;
  if (!m_prefixed && !m_data.Prefix().empty()) {
    m_prefixed = true;
    if (!Note(m_file.Prepend(m_data.Prefix()))) return false;
  }
  return Note(m_file.Write(bytes));
}

bool AnswerFile::Finish() {
  if (!Write(m_data.Finish())) return false;
  if (const std::uint64_t missing = m_data.Missing(); missing > 0) {
    const std::uint64_t length = m_data.Length().value_or(0);
    const auto counted = [](std::uint64_t number) { return ToText(static_cast<std::int64_t>(number)); };
    m_fault = FromUtf8(m_path).Text + u" was not written: the block is torn, of " + counted(length) + u" bytes " +
              counted(length - missing) + u" are there";
    m_isTorn = true;
    return false;
  }
  return Note(m_file.Commit());
}

bool AnswerFile::Note(int error) {
  if (error == 0) return true;
  m_fault = FromUtf8(m_path).Text + u" cannot be written: " + FromUtf8(std::generic_category().message(error)).Text;
  return false;
}

} // namespace portico::answers
