#pragma once

#include <random>
#include <string>
#include <vector>

namespace portico::test {

/// Command lines of all sorts by chance: the same ones for the same seed everywhere. Bytes of the instrument's code
/// page.
class MixedLines {
public:
  explicit MixedLines(unsigned seed) : m_random(seed) {}

  std::vector<std::string> Make(std::size_t count);

private:
  template <std::size_t N>
  const char* OneOf(const char* const (&texts)[N]) {
    return texts[m_random() % N];
  }
  bool Once(unsigned in) { return m_random() % in == 0; }
  std::string Number() { return std::to_string(m_random() % 1000); }

  std::string Line();
  std::string Instruction();
  std::string Query();
  std::string Quoted();
  std::string Remark();
  std::string NearlyRemark();
  std::string Marked();
  std::string KnownWord();
  std::string LikeAutomatic();
  std::string RichText();
  std::string Foreign();
  std::string Failing();
  /// A stretch of a history as it comes back by the clipboard.
  std::vector<std::string> Pasted();

  std::mt19937 m_random; // whose numbers are laid down, unlike those of the distributions
};

} // namespace portico::test
