#include "application/SavedSettings.h"

#include "application/EnvironmentText.h"

#include <cstddef>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>

namespace portico {
namespace {

namespace fs = std::filesystem;

fs::path UserFolder() {
  const fs::path named = EnvironmentText("XDG_CONFIG_HOME");
  return named.is_absolute() ? named : fs::path(EnvironmentText("HOME")) / ".config";
}

std::string Bytes(const fs::path& path) {
  std::error_code fault;
  if (!fs::is_regular_file(path, fault)) return {};
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

StringView WithoutBlanks(StringView text) {
  constexpr StringView blanks = u" \t\r";
  const std::size_t begin = text.find_first_not_of(blanks);
  return begin == StringView::npos ? StringView() : text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

std::optional<unsigned> Digit(char16_t unit) {
  constexpr StringView digits = u"0123456789abcdef";
  const std::size_t value = digits.find(FoldCase(unit));
  if (value == StringView::npos) return std::nullopt;
  return static_cast<unsigned>(value);
}

/// Takes the digits of a code unit off the front.
char16_t TakeNumber(StringView& text, unsigned base) {
  unsigned number = 0;
  for (; !text.empty(); text.remove_prefix(1)) {
    const auto digit = Digit(text.front());
    if (!digit || *digit >= base) break;
    number = number * base + *digit;
  }
  return static_cast<char16_t>(number);
}

/// Takes what follows a backslash off the front.
char16_t TakeEscaped(StringView& text) {
  if (text.empty()) return u'\\';
  if (const auto digit = Digit(text.front()); digit && *digit < 8) return TakeNumber(text, 8);
  const char16_t letter = text.front();
  text.remove_prefix(1);
  if (letter == u'x') return TakeNumber(text, 16);
  constexpr StringView letters = u"abfnrtv";
  constexpr StringView meant = u"\a\b\f\n\r\t\v";
  const std::size_t position = letters.find(letter);
  return position == StringView::npos ? letter : meant[position];
}

/// The text that a value stands for; none if it stands for something else, which begins with "@" or is a list.
std::optional<String> Text(StringView raw) {
  String text;
  bool isQuoted = false;
  while (!raw.empty()) {
    const char16_t unit = raw.front();
    raw.remove_prefix(1);
    if (unit == u'"') {
      isQuoted = !isQuoted;
    } else if (unit == u'\\') {
      text += TakeEscaped(raw);
    } else if (unit == u',' && !isQuoted) {
      return std::nullopt;
    } else {
      text += unit;
    }
  }
  constexpr StringView withNull = u"@String(";
  if (!text.starts_with(u'@')) return text;
  if (text.starts_with(u"@@")) return text.substr(1);
  if (!text.starts_with(withNull) || !text.ends_with(u')')) return std::nullopt;
  return text.substr(withNull.size(), text.size() - withNull.size() - 1);
}

/// The last one counts.
std::optional<String> Find(StringView file, const String& section, StringView key) {
  const String heading = u"[" + section + u"]";
  std::optional<String> found;
  bool isWithin = false;
  for (StringView line : Split(file, u"\n")) {
    line = WithoutBlanks(line);
    const std::size_t equals = line.find(u'=');
    if (line.starts_with(u'[')) {
      isWithin = line == heading;
    } else if (isWithin && equals != StringView::npos && WithoutBlanks(line.substr(0, equals)) == key) {
      found = Text(WithoutBlanks(line.substr(equals + 1)));
    }
  }
  return found;
}

} // namespace

SavedSettings::SavedSettings() : SavedSettings(UserFolder()) {}

String SavedSettings::GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) {
  const std::string title = ToUtf8(Title);
  return Find(FromUtf8(Bytes(m_folder / title / (title + ".conf"))).Text, Section, Key).value_or(Default);
}

void SavedSettings::SaveSetting(const String&, const String&, const String&, const String&) {}

} // namespace portico
