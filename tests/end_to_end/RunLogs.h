#pragma once

#include "end_to_end/Programs.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <stdexcept>

namespace portico::test {

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("there is no file " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline long CountOf(const std::string& text, const std::string& part) {
  long count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

inline const std::regex Stamp(R"re((\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d)\.\d{9}-5:00)re");

/// A log with one text in the place of every stamp.
inline std::string WithoutStamps(const std::string& log) { return std::regex_replace(log, Stamp, "STAMP"); }

/// Those of sessions and entities, in order.
inline std::vector<std::string> StampsOf(const std::string& log) {
  return {std::sregex_token_iterator(log.begin(), log.end(), Stamp), std::sregex_token_iterator()};
}

/// Those of entities, in order. A session's may stand there twice: it goes on behind what others wrote into the log.
inline std::vector<std::string> EntityStampsOf(const std::string& log) {
  static const std::regex attribute(R"re( Timestamp="([^"]+)")re");
  return {std::sregex_token_iterator(log.begin(), log.end(), attribute, 1), std::sregex_token_iterator()};
}

/// The seconds into which all stamps fall.
inline std::set<std::string> SecondsOf(const std::string& log) {
  return {std::sregex_token_iterator(log.begin(), log.end(), Stamp, 1), std::sregex_token_iterator()};
}

/// The ASCII text of a payload, without its line end.
inline std::string FromPayload(const std::string& hexadecimal) {
  std::string text;
  for (std::size_t at = 0; at + 4 <= hexadecimal.size(); at += 4) {
    text += static_cast<char>(std::stoi(hexadecimal.substr(at, 2), nullptr, 16));
  }
  const std::size_t lineEnd = text.rfind("\r\n");
  if (lineEnd == std::string::npos || lineEnd + 2 != text.size()) throw std::runtime_error("no line end: " + text);
  return text.substr(0, lineEnd);
}

/// What a log tells, as `portico-run` would print it. Good for answers of one line.
inline std::string Told(const std::string& log) {
  static const std::regex Entity(R"re(<(\w+) DataType="(\w+)" Timestamp="[^"]+">\s*<!\[CDATA\[([0-9A-F]*)\]\]>)re");
  std::string told;
  for (std::sregex_iterator entity(log.begin(), log.end(), Entity), end; entity != end; ++entity) {
    const std::string type = (*entity)[1];
    if (type != (*entity)[2]) throw std::runtime_error("an element of two types: " + entity->str());
    told += type == "Instruction" ? "> " : type == "AutomaticInstruction" ? "* " : type == "Response" ? "< " : "! ";
    told += FromPayload((*entity)[3]) + '\n';
  }
  return told;
}

/// Whether the document is there to its end.
inline bool IsComplete(const std::string& log) {
  const std::string end = "</SCPICommLog>";
  const std::size_t at = log.rfind(end);
  return at != std::string::npos && log.find_first_not_of(" \r\n", at + end.size()) == std::string::npos;
}

} // namespace portico::test
