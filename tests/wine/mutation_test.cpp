#include <gtest/gtest.h>
#include <windows.h>

#include <psapi.h>

#include <fstream>
#include <iterator>
#include <random>

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

// Every file of this disk holds the bytes of the moment; nothing is written.
class COneFile : public my::CWin32FileSystem {
 public:
  std::string ReadFile(const std::wstring&, uint64_t, uint64_t) override { return bytes; }
  void MoveOver(const std::wstring&, const std::wstring&) override {}
  std::string bytes;
};

std::string Repeat(std::string_view text, int times) {
  std::string all;
  while (times-- > 0) all += text;
  return all;
}

const std::string kInsertions[] = {
    "<!DOCTYPE a [<!ENTITY b \"<Width>1</Width>\"><!ENTITY c SYSTEM \"file:///c:/windows/win.ini\">]>",
    "&b;",
    "&c;",
    "&#0;",
    "&#x110000;",
    "&amp;",
    "<Dst>4294967296</Dst>",
    "<Width/>",
    "</Dsts>",
    "<x:y/>",
    "<![CDATA[",
    "]]>",
    "<!--",
    "-->",
    "<?a b?>",
    " a='1' a='2'",
    "\xEF\xBB\xBF",
    "\xFF\xFE",
    "\xED\xA0\x80",
    std::string(3, '\0'),
    Repeat("<Rect>", 20'000),
    Repeat("<UI>", 400) + Repeat("</UI>", 400)};

class CMutator {
 public:
  explicit CMutator(uint32_t seed) : m_random(seed) {}

  std::string Mutate(std::string bytes) {
    for (size_t steps = 1 + Below(3); steps > 0 && !bytes.empty(); --steps) Step(bytes);
    return bytes;
  }

 private:
  size_t Below(size_t bound) { return m_random() % bound; }

  void Step(std::string& bytes) {
    const size_t at = Below(bytes.size());
    const size_t length = 1 + Below(60);
    switch (Below(6)) {
      case 0:
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << Below(8)));
        break;
      case 1:
        bytes.erase(at, length);
        break;
      case 2:
        bytes.insert(Below(bytes.size()), bytes.substr(at, length));
        break;
      case 3:
        bytes.resize(Below(8) == 0 ? at : bytes.size());
        break;
      case 4:
        bytes.insert(at, kInsertions[Below(std::size(kInsertions))]);
        break;
      default:
        bytes.insert(bytes.find('<', at) % bytes.size(), kInsertions[Below(std::size(kInsertions))]);
    }
  }

  std::mt19937 m_random;
};

size_t PrivateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  EXPECT_TRUE(::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters));
  return counters.PagefileUsage;
}

// Loads 2,000 mutations of a file: each loads or is refused with the program's own exception, in a bounded
// time and without piling up memory.
template <class Load>
void SurvivesMutations(const std::string& original, Load load) {
  COneFile file;
  file.bytes = original;
  ASSERT_NO_THROW(load(file));
  const size_t bytesBefore = PrivateBytes();
  const uint64_t start = ::GetTickCount64();
  int loaded = 0;
  for (uint32_t seed = 0; seed < 2000; ++seed) {
    SCOPED_TRACE(seed);
    file.bytes = CMutator(seed).Mutate(original);
    try {
      load(file);
      ++loaded;
    } catch (const my::CException& failure) {
      EXPECT_EQ(failure.Where(), L"C:\\in");
    } catch (...) {
      ADD_FAILURE() << "another exception escapes";
    }
  }
  EXPECT_LT(::GetTickCount64() - start, 60'000u);
  EXPECT_LT(PrivateBytes(), bytesBefore + (64u << 20));
  EXPECT_TRUE(loaded > 20 && loaded < 1900)
      << loaded << ": mutations that only break or never do test nothing";
  std::printf("%d loaded, %llu ms, %lld KB\n", loaded, ::GetTickCount64() - start,
              (long long)(PrivateBytes() - bytesBefore) / 1024);
}

std::string Golden(const std::string& name) {
  std::ifstream file("Z:" QLM_SOURCE_DIR "/tests/host/golden/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Mutation, settings_file_loads_or_is_refused) {
  SurvivesMutations(Golden("settings_full.config"), [](COneFile& file) {
    qlm::CSettings settings(1);
    qlm::LoadSettings(file, dom, L"C:\\in", settings);
  });
}

TEST(Mutation, document_file_loads_or_is_refused) {
  const std::string dst =
      "<Dst><Folder>D:\\保存</Folder><Type>ZIP</Type><Pattern>&lt;ID&gt;.zip</Pattern></Dst>";
  const std::string task =
      "<Task><Id>a</Id><Path>C:\\a</Path><Dsts><Dst>1</Dst><Dst>0</Dst></Dsts><FilterPath/></Task>";
  SurvivesMutations(
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<QuillmoorDoc><Version>1.0.0.0</Version><Dsts>" + dst +
          dst + "</Dsts><Tasks>" + task + task + "</Tasks></QuillmoorDoc>\n",
      [](COneFile& file) { qlm::LoadDocument(file, dom, L"C:\\in"); });
}

}  // namespace
