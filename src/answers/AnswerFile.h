#pragma once

#include "answers/AnswerData.h"
#include "framework/text/text.h"
#include "system/PendingFile.h"

namespace portico::answers {

/// Puts an answer that comes in pieces into a file: of a block its bytes, of any other answer all of it, as they came,
/// without the line end that ends the answer. There is no file before the answer is whole.
class AnswerFile {
public:
  explicit AnswerFile(std::string path) : m_path(std::move(path)), m_file(m_path) {}

  // False once something has failed. What is done after that does nothing.

  bool Open();
  bool Add(std::string_view piece);
  bool Finish();

  /// What has failed, without a full stop; empty if nothing has.
  const String& Fault() const { return m_fault; }
  /// What has failed is the answer, not the file.
  bool IsTorn() const { return m_isTorn; }
  /// Bytes that have come so far.
  std::uint64_t Done() const { return m_done; }
  /// How many will come, about; 0 where that is not known.
  std::uint64_t Total() const { return m_data.Length().value_or(0); }

private:
  bool Note(int error);
  bool Write(std::string_view bytes);

  const std::string m_path;
  system::PendingFile m_file;
  AnswerData m_data;
  bool m_prefixed = false;
  bool m_isTorn = false;
  std::uint64_t m_done = 0;
  String m_fault;
};

} // namespace portico::answers
