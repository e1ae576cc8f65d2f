// The resources in their two languages: same ids, same placeholders, distinct access keys.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>

#include "support/names.h"
#include "support/source_folder.h"
#include "text_ids.h"

namespace {

using CTexts = std::map<std::string, std::string>;

CTexts ReadTexts(const std::string& language) {
  CTexts texts = test::ReadPairs(language + "/strings.rc", std::regex("\\s*(IDS_\\w+) \"(.*)\""));
  texts.merge(test::ReadPairs(language + "/window_texts.h", std::regex("#define (TXT_\\w+)\\s+\"(.*)\"")));
  return texts;
}

// Returns the parts of a text that a translation must keep: placeholders, the mark of an access key, and what
// follows a tab, which is the name of a shortcut.
std::multiset<std::string> KeptParts(const std::string& text) {
  static const std::regex kKept(R"(%s|&|\\t.*)");
  const std::sregex_token_iterator begin(text.begin(), text.end(), kKept);
  return {begin, std::sregex_token_iterator()};
}

TEST(Languages, have_the_same_texts_with_the_same_placeholders) {
  const CTexts japanese = ReadTexts("ja");
  CTexts english = ReadTexts("en");
  EXPECT_GT(japanese.size(), 600u);
  for (const auto& [name, text] : japanese) {
    const auto found = english.extract(name);
    if (found.empty())
      ADD_FAILURE() << name << " has no English text";
    else
      EXPECT_EQ(KeptParts(found.mapped()), KeptParts(text)) << name;
  }
  for (const auto& left : english) ADD_FAILURE() << left.first << " has no Japanese text";
}

// The resource compiler accepts two texts with one id, and keeps one of them.
TEST(Languages, every_text_has_an_id_of_its_own) {
  std::map<std::string, std::string> names;
  for (const auto& [name, id] :
       test::ReadPairs("text_ids.h", std::regex("#define (IDS_\\w+)\\s+(\\d+)\\s*"))) {
    if (name.ends_with("_FIRST") || name.ends_with("_LAST")) continue;  // of a range of ids
    const auto [known, isNew] = names.try_emplace(id, name);
    EXPECT_TRUE(isNew) << known->second << " and " << name << " have the id " << id;
  }
}

char AccessKey(const std::string& text) {
  const size_t mark = text.find('&');
  return mark == text.npos ? '\0'
                           : static_cast<char>(std::tolower(static_cast<unsigned char>(text[mark + 1])));
}

// Expects distinct access keys in the menu bar, each popup menu and each dialog. A page is shown together
// with the Apply button.
void ExpectDistinctKeys(const std::filesystem::path& file, const CTexts& texts) {
  static const std::regex kText(R"(.*\b(TXT_\w+).*)");
  std::ifstream stream(file);
  std::set<char> bar;
  std::set<char> taken;
  std::smatch match;
  for (std::string line; std::getline(stream, line);) {
    const bool isPopup = line.find("POPUP ") != line.npos;
    if (isPopup || line.find(" DIALOGEX ") != line.npos) taken.clear();
    if (line.find("_PAGE DIALOGEX") != line.npos) taken.insert(AccessKey(texts.at("TXT_APPLY")));
    if (!std::regex_match(line, match, kText)) continue;
    const std::string& text = texts.at(match[1]);
    const char key = AccessKey(text);
    if (key != '\0') EXPECT_TRUE((isPopup ? bar : taken).insert(key).second) << match[1] << ": " << text;
    const bool needsKey = line.find("MENUITEM") != line.npos && match[1] != "TXT_MENU_MRU_FIRST";
    EXPECT_TRUE(key != '\0' || !needsKey) << match[1] << ": " << text;
  }
}

TEST(Languages, access_keys_are_distinct) {
  for (const char* language : {"ja", "en"}) {
    const CTexts texts = ReadTexts(language);
    for (const auto& file : std::filesystem::directory_iterator(test::InSourceTree("res/windows")))
      ExpectDistinctKeys(file.path(), texts);
  }
}

}  // namespace
