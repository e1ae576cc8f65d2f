#include "engine/source_listing.h"

#include <map>
#include <stdexcept>
#include <string>

#include "engine/folders_ahead.h"
#include "engine/targets.h"
#include "support/engine_doubles.h"

namespace {

const std::wstring kSource = L"C:\\src";
constexpr uint32_t kNotReady = 21;
constexpr uint32_t kNetworkError = 59;

// A file system whose folders follow from their paths: the same for every listing, on every thread.
class CRandomFiles : public test::CMemoryFileSystem {
 public:
  explicit CRandomFiles(uint64_t seed) : m_seed(seed) {}

  std::unique_ptr<my::IFindFiles> Find(const std::wstring& path) override {
    const std::wstring folder = my::JoinPath(path, {});
    EXPECT_FALSE(test::Has(folder, L"excluded")) << "an excluded folder is never read";
    uint64_t random = m_seed;
    for (const wchar_t c : folder) random = (random ^ static_cast<uint64_t>(c)) * 0x9E3779B97F4A7C15 >> 1;
    const bool isSource = folder == kSource + L'\\';
    if (random % (isSource ? 50 : 9) == 0)
      throw Failure(random % 2 == 0 ? my::kErrorAccessDenied : kNotReady);
    return std::make_unique<CEntries>(random, isSource);
  }

 private:
  struct CEntries : my::IFindFiles {
    CEntries(uint64_t start, bool isSource)
        : random(start), left(isSource || start % 7 == 0 ? 9 : start % 8) {
      if (start % 100 == 3) left = 1300;  // more than are read at once
    }

    bool Next(my::CFindData& entry) override {
      if (random % 40 == 1) throw Failure(kNetworkError);
      if (left-- == 0) return false;
      random = random * 6364136223846793005 + 1442695040888963407;
      const uint64_t kind = random >> 40;
      const bool isFolder = kind % 4 == 0 && (left < 9 || kind % 600 == 0);
      name = std::to_wstring(left);
      if (kind % 11 == 0) name = L"excluded" + name;
      if (kind % 13 == 0) name += std::wstring(90, L'n');
      if (kind % 997 == 0) name = std::wstring(60, L'a');  // no expression of the filter can decide
      if (kind % 17 == 0) name = L".";
      entry = {name, {kind}, kind % 1000, isFolder ? my::kAttributeFolder : 0};
      if (kind % 5 == 0) entry.attributes |= my::kAttributeLink;
      return true;
    }

    uint64_t random;
    uint64_t left;
    std::wstring name;
  };

  static my::CException Failure(uint32_t win32) {
    return my::CException(IDS_LIST_FOLDER_FAILED, {my::CSystemError::FromWin32(win32), L""});
  }

  uint64_t m_seed;
};

class SourceListing : public testing::Test {
 protected:
  SourceListing() { filter->Parse({L"- ^(a+)+[b]", L"- (^|/)excluded[0-9]+n*/?$", L"+ 1"}, texts); }

  // Returns everything that a listing gives, as text.
  std::wstring List(uint64_t seed, size_t threadCount) {
    CRandomFiles files(seed);
    const test::CStopAfter stop(seed % 5 == 0 ? static_cast<int>(seed % 63) : 1'000'000);
    qlm::CTargets targets(filter);
    std::wstring text;
    try {
      const auto failure = ListSource(files, *filter, &stop, kSource, targets, {&threads, threadCount});
      if (failure) text = L"source " + std::to_wstring(failure->SystemError().hresult);
    } catch (const my::CException& failure) {
      text = L"thrown " + std::to_wstring(failure.Id());
    }
    for (const qlm::CTarget target : targets) {
      target.AppendRelativePath(text += L'\n');
      const auto* const item = target.FilterItem();
      text += L'|' + std::to_wstring(target.LastWriteTime().ticks + target.Size() + target.Attributes()) +
              L'|' + (item ? item->line : L"");
    }
    for (const auto& folder : targets.Unlisted())
      text += L"\nunlisted " + folder.folder + std::to_wstring(folder.error.hresult);
    return text;
  }

  test::CRcTexts texts;
  test::CStdThreads threads;
  boost::shared_ptr<qlm::CFilter> filter = boost::make_shared<qlm::CFilter>();
};

#if __has_feature(thread_sanitizer)
constexpr uint64_t kTrees = 100;
#else
constexpr uint64_t kTrees = 1000;
#endif

TEST_F(SourceListing, is_the_same_with_any_number_of_threads) {
  std::map<std::wstring, int> outcomes;
  for (uint64_t seed = 1; seed <= kTrees; ++seed) {
    const std::wstring expected = List(seed, 1);
    ASSERT_EQ(List(seed, 2), expected) << "tree " << seed;
    ASSERT_EQ(List(seed, 4), expected) << "tree " << seed;
    ++outcomes[expected.substr(0, expected.find(L'\n'))];
  }
  EXPECT_EQ(outcomes.size(), 4u) << "complete, unreadable, stopped, and an expression that is too complex";
}

TEST_F(SourceListing, reads_ahead_in_listing_order_up_to_a_limit) {
  test::CMemoryFileSystem files;
  for (const wchar_t* path : {L"a\\x\\1", L"a\\2", L"b\\3", L"c\\4"})
    files.AddFile(my::JoinPath(kSource, path), "");
  qlm::CFoldersAhead folders({files, *filter, kSource}, 3);
  std::wstring order;
  const auto readAll = [&] {
    while (const auto folder = folders.BeginRead()) {
      folders.Read(**folder);
      folders.EndRead(*folder);
      order += (*folder)->path + L' ';
    }
  };
  readAll();
  EXPECT_EQ(order, L" a\\ a\\x\\ ");
  folders.Take(L"");
  folders.Take(L"a\\");
  readAll();
  EXPECT_EQ(order, L" a\\ a\\x\\ b\\ c\\ ");
  EXPECT_THROW(folders.Take(L"b\\"), std::logic_error) << "not the first one";
}

}  // namespace
