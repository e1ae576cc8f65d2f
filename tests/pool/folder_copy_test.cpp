#include <random>

#include "engine/helper_count.h"
#include "engine/transfer_counters.h"
#include "support/engine_doubles.h"

namespace {

using test::kTime;
using test::Op;

// What a run left.
struct COutcome {
  std::vector<std::wstring> rows;
  std::map<std::wstring, std::string> backups;
  std::map<std::wstring, std::string> leftovers;  // in temporary folders
  bool failed = false;
};

// A random tree with random faults, copied to two folders. The same seed makes the same.
class CRandomRun : test::CEngineDoubles {
 public:
  explicit CRandomRun(unsigned seed) : m_random(seed) {
    files.RefuseRenames(0);
    files.AddFile(L"D:\\linked", "target of links", kTime);
    std::wstring folder;
    for (unsigned i = 0, count = 1 + Random(12); i < count; ++i) {
      if (Random(4) == 0) folder.clear();
      if (Random(3) == 0) folder += L"d" + std::to_wstring(i) + L"\\";
      Add(folder + L"f" + std::to_wstring(i));
    }
  }

  COutcome Run(size_t threads) {
    qlm::CTask task{L"1", L"C:\\src", L"", {}};
    for (const wchar_t* name : {L"one", L"two"}) {
      task.dsts.push_back(test::MakeDst(L"D:\\dst", qlm::DstType::FOLDER, name));
    }
    const test::CStopAfter stop(Random(4) == 0 ? static_cast<int>(Random(60)) : 1000);
    const auto job = MakeJob(task, threads);
    job->SetStopQuery(&stop);
    job->Run();
    return Outcome(job->Results());
  }

 private:
  unsigned Random(unsigned end) { return static_cast<unsigned>(m_random() % end); }

  void Add(const std::wstring& path) {
    const std::wstring from = L"C:\\src\\" + path;
    const std::wstring to = L"D:\\dst\\_tmp_" + std::wstring(Random(2) == 0 ? L"one\\" : L"two\\") + path;
    if (Random(8) == 0)
      files.AddLink(from, L"D:\\linked", kTime);
    else
      files.AddFile(from, std::string(Random(40) == 0 ? 1u << 20 : Random(90), 'x'), kTime);
    const std::pair<Op, std::wstring> faults[] = {{Op::COPY, from},
                                                  {Op::SIZE, from},
                                                  {Op::FLUSH_FILE, to},
                                                  {Op::CREATE_FOLDERS, std::wstring(my::ParentPath(to))}};
    if (const auto& [op, on] = faults[Random(4)]; Random(15) == 0) files.FailOn(op, on);
  }

  COutcome Outcome(const qlm::CResults& rows) {
    COutcome outcome;
    for (const auto& row : rows) {
      const bool done = !row->error && row->transfer;
      outcome.rows.push_back(row->destinationPath + L": " + qlm::ResultText(texts, *row) + L" " +
                             std::to_wstring(done ? row->transfer->Files() : 0) + L" " +
                             std::to_wstring(done ? row->transfer->Bytes() : 0));
      outcome.failed |= static_cast<bool>(row->error);
    }
    for (const auto& [path, content] : files.Files()) {
      (path.starts_with(L"D:\\dst\\_tmp") ? outcome.leftovers : outcome.backups)[path] = content;
    }
    return outcome;
  }

  std::mt19937 m_random;
};

TEST(FolderCopy, random_trees_with_faults_are_copied_by_many_threads_as_by_one) {
  int failed = 0;
  for (unsigned seed = 0; seed < 1000; ++seed) {
    const COutcome one = CRandomRun(seed).Run(1);
    failed += one.failed;
    for (const size_t threads : {2, 4}) {
      const COutcome many = CRandomRun(seed).Run(threads);
      ASSERT_EQ(many.rows, one.rows) << seed;
      ASSERT_EQ(many.backups, one.backups) << seed;
      // What was begun after the file that failed is left too.
      for (const auto& [path, content] : one.leftovers) {
        const auto found = many.leftovers.find(path);
        ASSERT_TRUE(found != many.leftovers.end() && found->second == content) << seed;
      }
    }
  }
  EXPECT_TRUE(failed > 200 && failed < 800) << failed;
}

TEST(FolderCopy, counts_of_files_in_progress_only_grow_and_name_the_first_file) {
  qlm::CTransferCounters counters({.counted = 3, .bytes = 60}, 0);
  auto first = counters.BeginFile(5, 10);
  auto second = counters.BeginFile(6, 20);
  counters.CountWithinFile(first, 4);
  counters.CountWithinFile(second, 25);  // grew meanwhile
  EXPECT_TRUE(counters.Bytes() == 24 && counters.Files() == 0 && counters.Target() == 5);
  counters.EndFile(first);
  auto third = counters.BeginFile(9, 30);
  counters.CountWithinFile(second, 1);
  EXPECT_TRUE(counters.Bytes() == 30 && counters.Files() == 1 && counters.Target() == 6);
  counters.EndFile(third);
  counters.EndFile(second);
  EXPECT_TRUE(counters.Bytes() == 60 && counters.Files() == 3);
}

TEST(FolderCopy, number_of_threads_suits_the_slower_disk) {
  using enum my::DiskKind;
  EXPECT_TRUE(qlm::HelperCount({NoSeeks, NoSeeks}, 1) == 2 && qlm::HelperCount({NoSeeks, NoSeeks}, 16) == 4);
  EXPECT_TRUE(qlm::HelperCount({NoSeeks, Network}, 1) == 4 && qlm::HelperCount({Network, NoSeeks}, 16) == 8);
  EXPECT_TRUE(qlm::HelperCount({Seeks, NoSeeks}, 16) == 1 && qlm::HelperCount({Network, Unknown}, 16) == 1);
}

}  // namespace
