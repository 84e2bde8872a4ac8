// Runs a fuzz target where there is no fuzzer: on nothing, on each seed, and on changes of them that are random and the
// same each time.
//   fuzz_NAME SEEDS DICTIONARY INPUT
// What the target is given is first written to the file INPUT, which stays behind if the target ends the program.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

constexpr int Inputs = 5000;
constexpr std::size_t Longest = 4096; // bytes of an input

std::string Content(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The contents of a folder's files, in the order of their names.
Texts Seeds(const fs::path& folder) {
  std::vector<fs::path> paths(fs::directory_iterator(folder), fs::directory_iterator{});
  std::sort(paths.begin(), paths.end());
  Texts seeds;
  for (const fs::path& path : paths) seeds.push_back(Content(path));
  return seeds;
}

/// A word of a dictionary, which stands between quotes: \\ and \" are one character, and so is \x with two digits.
std::string Word(const std::string& quoted) {
  std::string word;
  for (std::size_t i = 0; i < quoted.size(); ++i) {
    if (quoted[i] != '\\') {
      word += quoted[i];
    } else if (quoted[++i] == 'x') {
      word += static_cast<char>(std::stoi(quoted.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      word += quoted[i];
    }
  }
  return word;
}

Texts Words(const fs::path& dictionary) {
  std::ifstream file(dictionary);
  Texts words;
  for (std::string line; std::getline(file, line);) {
    const std::size_t begin = line.find('"');
    if (line.starts_with('#') || begin == std::string::npos) continue;
    words.push_back(Word(line.substr(begin + 1, line.rfind('"') - begin - 1)));
  }
  return words;
}

class Changes {
public:
  Changes(const Texts& seeds, const Texts& words) : m_seeds(seeds), m_words(words) {}

  std::string Next() {
    std::string text = Any(m_seeds);
    for (std::size_t count = 1 + Below(5); count > 0; --count) Change(text);
    return text.substr(0, Longest);
  }

private:
  std::size_t Below(std::size_t limit) { return m_random() % limit; }
  const std::string& Any(const Texts& texts) { return texts[Below(texts.size())]; }
  char AnyByte() { return static_cast<char>(Below(256)); }

  void Change(std::string& text) {
    const std::size_t at = Below(text.size() + 1);
    const std::size_t length = Below(text.size() - at + 1);
    switch (Below(6)) {
    case 0:
      text.insert(at, 1, AnyByte());
      return;
    case 1:
      text.replace(at, 1, 1, AnyByte());
      return;
    case 2:
      text.erase(at, length);
      return;
    case 3:
      text.insert(Below(text.size() + 1), text.substr(at, length));
      return;
    case 4:
      text.insert(at, Any(m_words));
      return;
    default: { // goes on as another does
      const std::string& other = Any(m_seeds);
      text.replace(at, std::string::npos, other, Below(other.size() + 1));
    }
    }
  }

  const Texts& m_seeds;
  const Texts& m_words;
  std::mt19937 m_random;
};

} // namespace

int main(int argc, char** argv) {
  if (argc != 4) return EXIT_FAILURE;
  const Texts seeds = Seeds(argv[1]);
  const Texts words = Words(argv[2]);
  const fs::path input = argv[3];
  if (seeds.empty() || words.empty()) {
    std::cerr << "There are no seeds or no words.\n";
    return EXIT_FAILURE;
  }
  const auto run = [&](const std::string& text) {
    std::ofstream(input, std::ios::binary) << text;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  };
  run("");
  for (const std::string& seed : seeds) run(seed);
  Changes changes(seeds, words);
  for (int i = 0; i < Inputs; ++i) run(changes.Next());
  fs::remove(input);
  return EXIT_SUCCESS;
}
