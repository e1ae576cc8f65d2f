#include <gtest/gtest.h>
#include <windows.h>

#include <psapi.h>

#include <fstream>
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
#include "support/exception.h"

namespace {

const my::CComApartment com;
my::CMsxmlDom dom;

// Every path of this disk reads as the bytes of the moment.
struct COneFile : my::CWin32FileSystem {
  std::string ReadFile(const std::wstring&, uint64_t, uint64_t) override { return bytes; }
  std::string bytes;
};

// What hurts parsers and value codecs; the last one is nested deeply.
std::vector<std::string> Insertions() {
  std::istringstream words(
      "<!DOCTYPE a [<!ENTITY b '1'><!ENTITY c SYSTEM "
      "'file:///c:/windows/win.ini'>]>|&b;|&#0;|&#x110000;|&amp;|"
      "<Dst>4294967296</Dst>|<Width/>|</Dsts>|<x:y/>|<![CDATA[|]]>|<!--|<?a b?>| a='1' "
      "a='2'|\xEF\xBB\xBF|\xFF\xFE|"
      "\xED\xA0\x80|0|19|A| |f|true|-");
  std::vector<std::string> all;
  for (std::string word; std::getline(words, word, '|');) all.push_back(word);
  all.emplace_back();
  for (int depth = 0; depth < 9999; ++depth) all.back() = "<a>" + all.back() + "</a>";
  return all;
}

void Mutate(std::string& bytes, std::mt19937& random) {
  static const std::vector<std::string> insertions = Insertions();
  const std::string& insertion = insertions[random() % insertions.size()];
  const size_t at = random() % bytes.size();
  const size_t tag = std::min(bytes.rfind('<', at), at);
  const size_t text = std::min(bytes.find('>', tag), bytes.size() - 1) + 1;
  const std::string end = "</" + bytes.substr(tag + 1, text - tag - 1);
  const size_t element = std::min(bytes.find(end, text), bytes.size()) + end.size() - tag;
  const size_t kind = random() % 8;
  if (kind == 0) bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
  if (kind == 1) bytes.erase(at, random() % 60);
  if (kind == 2) bytes.insert(random() % bytes.size(), bytes.substr(at, random() % 60));
  if (kind == 3) bytes.insert(tag, insertion);
  if (kind == 4) bytes.insert(text, insertion);
  if (kind == 5) bytes.erase(tag, element);
  if (kind == 6) bytes.insert(tag, bytes.substr(tag, element));
  if (kind == 7) bytes.resize(at);
}

size_t PrivateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

// Mutations of a file load or are refused with an exception of the program, in bounded time and without
// leaving memory behind.
template <class Load>
void SurvivesMutations(const std::string& golden, Load load) {
  std::ifstream stream("Z:" QLM_SOURCE_DIR "/tests/host/golden/" + golden, std::ios::binary);
  const std::string original(std::istreambuf_iterator<char>(stream), {});
  COneFile file;
  file.bytes = original;
  ASSERT_NO_THROW(load(file));
  const size_t bytesBefore = PrivateBytes();
  const uint64_t start = ::GetTickCount64();
  std::set<uint32_t> outcomes{0};
  for (uint32_t seed = 0; seed < 2000; ++seed) {
    std::mt19937 random(seed);
    file.bytes = original;
    for (uint32_t i = 0; i <= seed % 2 && !file.bytes.empty(); ++i) Mutate(file.bytes, random);
    try {
      load(file);
    } catch (const my::CException& failure) {
      outcomes.insert(failure.Id());
    } catch (...) {
      ADD_FAILURE() << "another exception, seed " << seed;
    }
  }
  EXPECT_LT(::GetTickCount64() - start, 60'000u);
  EXPECT_LT(PrivateBytes(), bytesBefore + (8u << 20)) << "less than a kept document for each one parsed";
  EXPECT_GE(outcomes.size(), 8u) << "mutations must get past the parser";
}

TEST(Mutation, settings_file_loads_or_is_refused) {
  qlm::CSettings settings(1);
  SurvivesMutations("settings_full.config",
                    [&](COneFile& file) { qlm::LoadSettings(file, dom, L"C:\\in", settings); });
}

TEST(Mutation, document_file_loads_or_is_refused) {
  SurvivesMutations("document.qlmr", [](COneFile& file) { qlm::LoadDocument(file, dom, L"C:\\in"); });
}

}  // namespace
