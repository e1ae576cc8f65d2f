#include "support/names.h"

#include <fstream>

#include "support/source_folder.h"

namespace test {

std::map<std::string, std::string> ReadPairs(const std::string& file, const std::regex& form) {
  std::map<std::string, std::string> pairs;
  std::ifstream stream(InSourceTree("res/" + file));
  std::smatch match;
  for (std::string line; std::getline(stream, line);) {
    if (std::regex_match(line, match, form)) pairs[match[1]] = match[2];
  }
  return pairs;
}

std::string NameOf(uint32_t textId) {
  static const auto ids = ReadPairs("text_ids.h", std::regex("#define IDS_(\\w+)\\s+(\\d+)\\s*"));
  for (const auto& [name, id] : ids) {
    if (std::stoul(id) == textId) return name;
  }
  return std::to_string(textId);
}

}  // namespace test
