#include "logtool/Spool.h"

#include <array>
#include <string>

namespace portico::logtool {
namespace {

void Check(bool succeeded) {
  if (!succeeded) throw Spool::Failed{};
}

} // namespace

Spool::Spool() : m_file(std::tmpfile()) { Check(m_file != nullptr); }

void Spool::Add(std::string_view line) {
  Check(std::fwrite(line.data(), 1, line.size(), m_file.get()) == line.size());
  Check(std::fputc('\n', m_file.get()) != EOF);
}

void Spool::ForEach(const std::function<void(std::string_view line)>& take) {
  Check(std::fflush(m_file.get()) == 0);
  Check(std::fseek(m_file.get(), 0, SEEK_SET) == 0);
  std::array<char, 65536> buffer{};
  std::string line; // what is there of one that is not whole
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), m_file.get())) {
    std::string_view rest(buffer.data(), count);
    for (auto end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
      line += rest.substr(0, end);
      take(line);
      line.clear();
      rest.remove_prefix(end + 1);
    }
    line += rest;
  }
  Check(std::ferror(m_file.get()) == 0);
}

} // namespace portico::logtool
