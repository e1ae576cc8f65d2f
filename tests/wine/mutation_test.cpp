#include <gtest/gtest.h>

#include <random>
#include <set>
#include <sstream>

#include "document/document.h"
#include "document/document_file.h"
#include "platform/win32/com.h"
#include "platform/win32/msxml_dom.h"
#include "platform/win32/win32_file_system.h"
#include "settings/settings.h"
#include "settings/settings_file.h"
#include "support/checks.h"
#include "support/golden.h"

namespace {

const my::CComApartment com;
my::CMsxmlDom dom;

// Every path of this disk has the current bytes as content.
struct COneFile : my::CWin32FileSystem {
  std::string ReadFile(const std::wstring&, uint64_t, uint64_t) override { return bytes; }
  std::string bytes;
};

// Typical input that breaks parsers.
std::vector<std::string> Insertions() {
  std::istringstream words(
      "<!DOCTYPE a [<!ENTITY b SYSTEM 'file:///c:/windows/win.ini'>]>~&b;~&#0;~&#x110000;~<![CDATA[~]]>~<!--~"
      "<?a b?>~ a='1' a='2'~</Dsts>~<Width/>~<x:y/>~\xEF\xBB\xBF~\xFF\xFE~\xED\xA0\x80~4294967296~A~|~-");
  std::vector<std::string> all;
  for (std::string word; std::getline(words, word, '~');) all.push_back(word);
  return all;
}

void Mutate(std::string& bytes, std::mt19937& random) {
  static const std::vector<std::string> insertions = Insertions();
  const std::string& insertion = insertions[random() % insertions.size()];
  const size_t at = random() % bytes.size();
  const size_t tag = std::min(bytes.rfind('<', at), at);
  const size_t text = std::min(bytes.find('>', tag), bytes.size() - 1) + 1;
  switch (random() % 6) {
    case 0: bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8)); break;
    case 1: bytes.erase(at, random() % 60); break;
    case 2: bytes.insert(random() % bytes.size(), bytes.substr(at, random() % 60)); break;
    case 3: bytes.insert(tag, insertion); break;
    case 4: bytes.insert(text, insertion); break;
    default: bytes.erase(tag, bytes.find('>', text) - tag + 1);
  }
}

// A mutated file must load or be refused with an exception of the program.
template <class Load>
void SurvivesMutations(const std::string& golden, Load load) {
  const std::string original = test::Golden(golden);
  COneFile file;
  std::set<uint32_t> outcomes;
  for (uint32_t seed = 0; seed < 2000; ++seed) {
    std::mt19937 random(seed);
    file.bytes = original;
    for (uint32_t i = 0; i < seed % 3 && !file.bytes.empty(); ++i) Mutate(file.bytes, random);
    EXPECT_NO_THROW(outcomes.insert(test::ThrownId([&] { load(file); }))) << seed;
  }
  EXPECT_GE(outcomes.size(), 6u) << "mutations must get past the parser";
}

TEST(Mutation, file_loads_or_is_refused) {
  qlm::CSettings settings(1);
  SurvivesMutations("settings_full.config",
                    [&](COneFile& file) { qlm::LoadSettings(file, dom, L"C:\\in", settings); });
  SurvivesMutations("document.qlmr", [](COneFile& file) { qlm::LoadDocument(file, dom, L"C:\\in"); });
}

}  // namespace
